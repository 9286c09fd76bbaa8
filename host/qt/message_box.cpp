#include "host/qt/message_box.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

namespace kestra::qt {

namespace {

QStyle::StandardPixmap PixmapOf(QMessageBox::Icon icon) {
  switch (icon) {
    case QMessageBox::Critical: return QStyle::SP_MessageBoxCritical;
    case QMessageBox::Question: return QStyle::SP_MessageBoxQuestion;
    case QMessageBox::Warning: return QStyle::SP_MessageBoxWarning;
    default: return QStyle::SP_MessageBoxInformation;
  }
}

}  // namespace

MessageBoxWindow::MessageBoxWindow(QWidget* parent, const QString& caption, const QString& text, QMessageBox::Icon icon)
    : QDialog(parent), icon_(icon) {
  setObjectName(QStringLiteral("kestra_message_box"));
  setWindowTitle(caption);
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  auto* column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->setContentsMargins(16, 16, 16, 12);
  column->setSpacing(16);
  auto* row = new QHBoxLayout;
  row->setSpacing(12);
  if (icon != QMessageBox::NoIcon) {
    icon_label_ = new QLabel(this);
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    icon_label_->setPixmap(style()->standardIcon(PixmapOf(icon), nullptr, this).pixmap(side, side));
    row->addWidget(icon_label_, 0, Qt::AlignTop);
  }
  text_ = new QLabel(text, this);
  text_->setTextFormat(Qt::PlainText);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  const QScreen* screen = parent ? parent->screen() : QGuiApplication::primaryScreen();
  const int limit = screen ? screen->availableGeometry().width() * 5 / 8 : 800;
  const QFontMetrics fm(text_->font());
  if (fm.boundingRect(QRect(0, 0, 1 << 20, 1 << 20), Qt::AlignLeft | Qt::TextExpandTabs, text).width() > limit) {
    text_->setWordWrap(true);
    text_->setFixedSize(limit, text_->heightForWidth(limit));
  }
  row->addWidget(text_, 1, Qt::AlignVCenter);
  column->addLayout(row);
  button_row_ = new QWidget(this);
  auto* buttons = new QHBoxLayout(button_row_);
  buttons->setContentsMargins(0, 0, 0, 0);
  buttons->addStretch(1);
  buttons->addStretch(1);
  column->addWidget(button_row_);
}

QPushButton* MessageBoxWindow::AddButton(const QString& text) {
  auto* b = new QPushButton(text, button_row_);
  b->setMinimumWidth(88);
  auto* row = static_cast<QHBoxLayout*>(button_row_->layout());
  row->insertWidget(row->count() - 1, b);
  buttons_.push_back(b);
  connect(b, &QPushButton::clicked, this, [this, b] {
    clicked_ = b;
    accept();
  });
  return b;
}

void MessageBoxWindow::SetDefaultButton(QPushButton* b) {
  default_ = b;
  for (QPushButton* k : buttons_) {
    k->setAutoDefault(k == b);
    k->setDefault(k == b);
  }
  if (b) b->setFocus();
}

void MessageBoxWindow::reject() {
  if (!escape_) return;
  clicked_ = escape_;
  QDialog::reject();
}

void MessageBoxWindow::closeEvent(QCloseEvent* e) {
  e->ignore();
  reject();
}

}  // namespace kestra::qt
