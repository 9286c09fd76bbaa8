#pragma once
// The window of one modal dialog: a QDialog with a widget for every control of the model
// and a pane for every child dialog (pages, input forms), kept in step with the model
// through its observer, and a modal loop that runs until the dialog has ended.
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <QPointer>

#include "host/qt/control_widgets.h"
#include "ui/dialog.h"

class QDialog;
class QEventLoop;

namespace kestra::qt {

class DialogView : public ui::DialogObserver, public ActionRouter {
 public:
  // Builds the window for a dialog that CreateModal has built and initialised.
  DialogView(ui::Dialog& dlg, QWidget* parent_window, std::function<void(const std::string&)> on_error);
  ~DialogView() override;
  DialogView(const DialogView&) = delete;
  DialogView& operator=(const DialogView&) = delete;

  // Shows the window and runs its loop until the dialog ends; returns its result.
  int Exec();

  ui::Dialog& dialog() const { return dlg_; }
  QDialog* window() const { return window_; }
  // The widget showing a control or a child dialog (null when there is none).
  QWidget* WidgetOf(const ui::Control& c) const;
  QWidget* WidgetOf(const ui::Dialog& d) const;
  // Paints the dialog now (the model asked for a redraw).
  void Repaint();

  // ActionRouter
  void Act(ui::Control* c, const std::function<void(ui::Control&)>& action) override;
  bool Showing() const override { return showing_ > 0; }
  void FocusControl(ui::Control* c) override;
  // Tab (next) or Shift+Tab: the focus to the next or previous tab stop, round the dialog.
  void TabTo(bool next);
  // An action on the dialog itself (close box, Escape).
  void ActOnDialog(const std::function<void(ui::Dialog&)>& action);

  // DialogObserver
  void ControlChanged(ui::Control& c) override;
  void ControlCreated(ui::Control& c) override;
  void ControlDestroyed(ui::Control& c) override;
  void DialogChanged(ui::Dialog& d) override;
  void ChildCreated(ui::Dialog& child) override;
  void ChildDestroyed(ui::Dialog& child) override;

 private:
  struct Pane {
    QWidget* widget = nullptr;
    const ui::Dialog* parent = nullptr;
    std::vector<const ui::Control*> controls;
    std::vector<const ui::Dialog*> children;
  };

  void BuildPane(ui::Dialog& d, QWidget* widget);
  void BuildChild(ui::Dialog& child);
  void AddControl(ui::Control& c, bool raise);
  void RemoveControl(const ui::Control* c);
  void RemovePane(const ui::Dialog* d);
  void ShowControl(const ui::Control& c);
  void ShowDialog(const ui::Dialog& d);
  void Stack(const ui::Dialog& d);
  void EndLoopIfEnded();
  void Guarded(const std::function<void()>& f);

  ui::Dialog& dlg_;
  QDialog* window_ = nullptr;
  QEventLoop* loop_ = nullptr;
  std::function<void(const std::string&)> on_error_;
  std::unordered_map<const ui::Dialog*, Pane> panes_;
  std::unordered_map<const ui::Control*, std::unique_ptr<ControlWidget>> controls_;
  int showing_ = 0;
};

}  // namespace kestra::qt
