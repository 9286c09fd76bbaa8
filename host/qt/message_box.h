#pragma once
// A message box drawn as the system draws one: the icon, when there is one, left of the text;
// the text on one line when it fits in five eighths of the screen, else wrapped to that width
// (between any two Chinese characters); the buttons centred under it.
#include <vector>

#include <QDialog>
#include <QMessageBox>

class QLabel;
class QPushButton;

namespace kestra::qt {

class MessageBoxWindow : public QDialog {
 public:
  MessageBoxWindow(QWidget* parent, const QString& caption, const QString& text, QMessageBox::Icon icon);

  // Buttons in order, left to right.
  QPushButton* AddButton(const QString& text);
  void SetDefaultButton(QPushButton* b);
  // The answer of Escape and the close box; without one both do nothing.
  void SetEscapeButton(QPushButton* b) { escape_ = b; }

  // The button that ended the box (null: none yet).
  QPushButton* clicked_button() const { return clicked_; }
  const std::vector<QPushButton*>& buttons() const { return buttons_; }
  QPushButton* default_button() const { return default_; }
  QMessageBox::Icon icon() const { return icon_; }
  QLabel* text_label() const { return text_; }
  QLabel* icon_label() const { return icon_label_; }  // null without an icon

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* e) override;

 private:
  QMessageBox::Icon icon_;
  QLabel* icon_label_ = nullptr;
  QLabel* text_ = nullptr;
  QWidget* button_row_ = nullptr;
  std::vector<QPushButton*> buttons_;
  QPushButton* default_ = nullptr;
  QPushButton* escape_ = nullptr;
  QPushButton* clicked_ = nullptr;
};

}  // namespace kestra::qt
