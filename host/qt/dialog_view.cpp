#include "host/qt/dialog_view.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QEventLoop>
#include <QGuiApplication>
#include <QLineEdit>
#include <QScreen>

#include "host/qt/font_map.h"
#include "ui/actions.h"
#include "ui/focus.h"

namespace kestra::qt {

namespace {

// The dialog window: its close box and Escape go to the model as a cancel; the model
// alone decides when the window goes. Tab and Shift+Tab go by the dialog's tab stops
// (ui/focus.h).
class ModalWindow : public QDialog {
 public:
  ModalWindow(QWidget* parent, std::function<void()> on_close, std::function<void(bool)> on_tab)
      : QDialog(parent), on_close_(std::move(on_close)), on_tab_(std::move(on_tab)) {}
  void reject() override { on_close_(); }

 protected:
  void closeEvent(QCloseEvent* e) override {
    e->ignore();
    on_close_();
  }
  bool focusNextPrevChild(bool next) override {
    on_tab_(next);
    return true;
  }

 private:
  std::function<void()> on_close_;
  std::function<void(bool)> on_tab_;
};

// Where a dialog opens: centred over its parent window when that is on the screen, else
// centred on the screen.
QPoint CentredPlace(const QWidget& window, const QWidget* parent) {
  QRect over;
  if (parent && parent->isVisible()) {
    over = parent->window()->frameGeometry();
  } else {
    const QScreen* screen = parent ? parent->screen() : QGuiApplication::primaryScreen();
    if (screen) over = screen->availableGeometry();
  }
  if (!over.isValid()) return window.pos();
  return over.center() - QPoint(window.width() / 2, window.height() / 2);
}

QRect RectOf(const ui::Rect& r) { return QRect(r.left, r.top, r.Width(), r.Height()); }

}  // namespace

DialogView::DialogView(ui::Dialog& dlg, QWidget* parent_window, std::function<void(const std::string&)> on_error)
    : dlg_(dlg), on_error_(std::move(on_error)) {
  window_ = new ModalWindow(
      parent_window,
      [this] {
        // Closing the window is the cancel command, as the dialog manager sends it.
        ActOnDialog([](ui::Dialog& d) { ui::act::Cancel(d); });
      },
      [this](bool next) { TabTo(next); });
  window_->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  window_->setWindowModality(Qt::ApplicationModal);
  window_->setObjectName(QStringLiteral("kestra_dialog_%1").arg(dlg.template_id()));
  BuildPane(dlg_, window_);
  ShowDialog(dlg_);
  dlg_.SetObserver(this);
}

DialogView::~DialogView() {
  dlg_.SetObserver(nullptr);
  // Widgets being torn down may still signal; with no controls left nothing reaches the model.
  controls_.clear();
  panes_.clear();
  delete window_;
}

QWidget* DialogView::WidgetOf(const ui::Control& c) const {
  auto it = controls_.find(&c);
  return it == controls_.end() ? nullptr : it->second->widget();
}

QWidget* DialogView::WidgetOf(const ui::Dialog& d) const {
  auto it = panes_.find(&d);
  return it == panes_.end() ? nullptr : it->second.widget;
}

int DialogView::Exec() {
  if (!dlg_.IsEnded()) {
    window_->move(CentredPlace(*window_, window_->parentWidget()));
    window_->show();
    if (QGuiApplication::platformName() != QLatin1String("offscreen")) window_->raise();
    window_->activateWindow();
    // The first tab stop takes the focus, its text selected, so the designer types at once.
    if (ui::Control* first = ui::FirstTabStop(dlg_)) FocusControl(first);
    QEventLoop loop;
    loop_ = &loop;
    loop.exec(QEventLoop::DialogExec);
    loop_ = nullptr;
    if (!dlg_.IsEnded()) {
      // The application is going away with the dialog still open: close it as a cancel.
      Guarded([this] { dlg_.OnCancel(); });
      if (!dlg_.IsEnded()) dlg_.EndDialog(ui::IDCANCEL);
    }
  }
  window_->hide();
  return dlg_.Result();
}

void DialogView::Repaint() {
  if (window_->isVisible()) window_->repaint();
}

void DialogView::Guarded(const std::function<void()>& f) {
  try {
    f();
  } catch (const ui::ActionError&) {
    // Something the designer could not have done (the control went away or was disabled
    // meanwhile): nothing happens, as with a real window.
  } catch (const std::exception& e) {
    if (on_error_) on_error_(e.what());
  }
}

void DialogView::Act(ui::Control* c, const std::function<void(ui::Control&)>& action) {
  if (showing_ > 0 || dlg_.IsEnded() || !controls_.count(c)) return;
  Guarded([&] { action(*c); });
  // The widget may have changed itself (a toggled box, a moved tab): show the model again.
  if (controls_.count(c)) ShowControl(*c);
  EndLoopIfEnded();
}

void DialogView::FocusControl(ui::Control* c) {
  QWidget* w = c ? WidgetOf(*c) : nullptr;
  if (!w) return;
  w->setFocus(Qt::TabFocusReason);
  auto* edit = qobject_cast<QLineEdit*>(w);
  if (auto* combo = qobject_cast<QComboBox*>(w); combo && combo->isEditable()) edit = combo->lineEdit();
  if (edit) edit->selectAll();
}

void DialogView::TabTo(bool next) {
  const std::vector<ui::Control*> stops = ui::TabStops(dlg_);
  if (stops.empty()) return;
  const QWidget* focus = window_->focusWidget();
  const int n = static_cast<int>(stops.size());
  int at = -1;
  for (int i = 0; i < n && focus; ++i) {
    const QWidget* w = WidgetOf(*stops[static_cast<std::size_t>(i)]);
    if (w && (w == focus || w->isAncestorOf(focus))) at = i;
  }
  const int to = at < 0 ? (next ? 0 : n - 1) : (at + (next ? 1 : n - 1)) % n;
  FocusControl(stops[static_cast<std::size_t>(to)]);
}

void DialogView::ActOnDialog(const std::function<void(ui::Dialog&)>& action) {
  if (showing_ > 0 || dlg_.IsEnded()) return;
  Guarded([&] { action(dlg_); });
  EndLoopIfEnded();
}

void DialogView::EndLoopIfEnded() {
  if (dlg_.IsEnded() && loop_) loop_->quit();
}

void DialogView::ShowControl(const ui::Control& c) {
  auto it = controls_.find(&c);
  if (it == controls_.end()) return;
  ++showing_;
  it->second->Show(c);
  --showing_;
}

void DialogView::ShowDialog(const ui::Dialog& d) {
  auto it = panes_.find(&d);
  if (it == panes_.end()) return;
  QWidget* w = it->second.widget;
  ++showing_;
  if (&d == &dlg_) {
    w->setWindowTitle(QString::fromStdString(d.GetWindowText()));
    const ui::Rect& r = d.GetWindowRect();
    w->setFixedSize(r.Width(), r.Height());
  } else {
    QRect r = RectOf(d.GetWindowRect());
    if (w->geometry() != r) w->setGeometry(r);
    if (w->isEnabled() != d.IsWindowEnabled()) w->setEnabled(d.IsWindowEnabled());
    if (w->isVisibleTo(w->parentWidget()) != d.IsWindowVisible()) w->setVisible(d.IsWindowVisible());
  }
  if (auto bg = d.background()) {
    QPalette pal = w->palette();
    pal.setColor(QPalette::Window, QColor((*bg >> 16) & 0xFF, (*bg >> 8) & 0xFF, *bg & 0xFF));
    w->setPalette(pal);
    w->setAutoFillBackground(true);
  } else if (w->autoFillBackground()) {
    w->setAutoFillBackground(false);
    w->setPalette(QPalette());
  }
  --showing_;
}

void DialogView::BuildPane(ui::Dialog& d, QWidget* widget) {
  Pane& pane = panes_[&d];
  pane.widget = widget;
  pane.parent = &d == &dlg_ ? nullptr : d.GetParent();
  widget->setFont(FontFor(d.GetFont()));
  for (const auto& c : d.controls()) AddControl(*c, false);
  for (ui::Dialog* child : d.children())
    if (child->IsCreated()) BuildChild(*child);
  Stack(d);
}

void DialogView::BuildChild(ui::Dialog& child) {
  auto parent = panes_.find(child.GetParent());
  if (parent == panes_.end()) return;
  auto* w = new QWidget(parent->second.widget);
  w->setObjectName(QStringLiteral("kestra_pane_%1").arg(child.template_id()));
  parent->second.children.push_back(&child);
  BuildPane(child, w);
  ShowDialog(child);
  w->raise();
}

// Group boxes, frames and tab strips lie behind the other controls and the pages; the
// first of them in template order lowest.
void DialogView::Stack(const ui::Dialog& d) {
  const Pane& pane = panes_[&d];
  for (auto it = pane.controls.rbegin(); it != pane.controls.rend(); ++it) {
    auto c = controls_.find(*it);
    if (c != controls_.end() && c->second->background()) c->second->widget()->lower();
  }
  for (const ui::Dialog* child : pane.children)
    if (auto p = panes_.find(child); p != panes_.end()) p->second.widget->raise();
}

void DialogView::AddControl(ui::Control& c, bool raise) {
  auto pane = panes_.find(c.owner());
  if (pane == panes_.end()) return;
  if (controls_.count(&c)) RemoveControl(&c);
  auto w = MakeControlWidget(c, pane->second.widget, *this);
  QWidget* widget = w->widget();
  bool background = w->background();
  controls_[&c] = std::move(w);
  pane->second.controls.push_back(&c);
  ShowControl(c);
  if (raise) {
    if (background) widget->lower();
    else widget->raise();
  }
}

void DialogView::RemoveControl(const ui::Control* c) {
  auto it = controls_.find(c);
  if (it == controls_.end()) return;
  QWidget* w = it->second->widget();
  controls_.erase(it);
  for (auto& [d, pane] : panes_) std::erase(pane.controls, c);
  // The widget may be the one whose signal is running now: let Qt delete it later.
  w->hide();
  w->disconnect();
  w->deleteLater();
}

void DialogView::RemovePane(const ui::Dialog* d) {
  auto it = panes_.find(d);
  if (it == panes_.end()) return;
  Pane pane = it->second;
  for (const ui::Control* c : pane.controls) {
    if (auto k = controls_.find(c); k != controls_.end()) controls_.erase(k);
  }
  for (const ui::Dialog* child : pane.children) RemovePane(child);
  panes_.erase(d);
  if (auto parent = panes_.find(pane.parent); parent != panes_.end()) std::erase(parent->second.children, d);
  if (d != &dlg_) {
    pane.widget->hide();
    pane.widget->deleteLater();
  }
}

void DialogView::ControlChanged(ui::Control& c) { ShowControl(c); }

void DialogView::ControlCreated(ui::Control& c) { AddControl(c, true); }

void DialogView::ControlDestroyed(ui::Control& c) { RemoveControl(&c); }

void DialogView::DialogChanged(ui::Dialog& d) { ShowDialog(d); }

void DialogView::ChildCreated(ui::Dialog& child) {
  // Created again (or elsewhere): its old controls are gone, build it afresh.
  RemovePane(&child);
  BuildChild(child);
}

void DialogView::ChildDestroyed(ui::Dialog& child) { RemovePane(&child); }

}  // namespace kestra::qt
