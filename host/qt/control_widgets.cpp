#include "host/qt/control_widgets.h"

#include <optional>
#include <string>
#include <vector>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTableWidget>
#include <QTextCursor>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeWidget>
#include <QValidator>
#include <QVBoxLayout>

#include "host/qt/font_map.h"
#include "host/qt/picture_frame.h"
#include "host/qt/rich_text_document.h"
#include "ui/actions.h"
#include "ui/dialog.h"
#include "ui/focus.h"

namespace kestra::qt {

QString WithoutMnemonic(const std::string& text) {
  QString in = QString::fromStdString(text);
  QString out;
  out.reserve(in.size());
  for (qsizetype i = 0; i < in.size(); ++i) {
    if (in[i] == QLatin1Char('&')) {
      if (i + 1 < in.size() && in[i + 1] == QLatin1Char('&')) {
        out += QLatin1Char('&');
        ++i;
      }
      continue;
    }
    out += in[i];
  }
  return out;
}

namespace {

QString Q(const std::string& s) { return QString::fromStdString(s); }

// The template statement a control came from (null for controls made at run time).
const ui::ControlTemplate* TemplateOf(const ui::Control& c) {
  const ui::DialogTemplate* t = c.owner() ? c.owner()->GetTemplate() : nullptr;
  int i = c.template_index();
  if (!t || i < 0 || i >= static_cast<int>(t->controls.size())) return nullptr;
  return &t->controls[static_cast<std::size_t>(i)];
}

bool HasStyle(const ui::Control& c, const char* style) {
  const ui::ControlTemplate* t = TemplateOf(c);
  return t && t->Has(style);
}

Qt::Alignment HorizontalOf(ui::Align a) {
  switch (a) {
    case ui::Align::Center: return Qt::AlignHCenter;
    case ui::Align::Right: return Qt::AlignRight;
    default: return Qt::AlignLeft;
  }
}

QRect RectOf(const ui::Rect& r) { return QRect(r.left, r.top, r.Width(), r.Height()); }

// Sends focus loss when the designer moves on inside the dialog (not when another
// window, a message box or a popup takes the focus).
class LeaveFilter : public QObject {
 public:
  LeaveFilter(QObject* parent, std::function<void()> on_leave) : QObject(parent), on_leave_(std::move(on_leave)) {}
  bool eventFilter(QObject* o, QEvent* e) override {
    if (e->type() == QEvent::FocusOut) {
      Qt::FocusReason why = static_cast<QFocusEvent*>(e)->reason();
      if (why != Qt::ActiveWindowFocusReason && why != Qt::PopupFocusReason) on_leave_();
    }
    return QObject::eventFilter(o, e);
  }

 private:
  std::function<void()> on_leave_;
};

// The arrow keys in an edit step its up-down control when that has UDS_ARROWKEYS.
class ArrowKeyFilter : public QObject {
 public:
  ArrowKeyFilter(QObject* parent, std::function<bool(bool up)> on_arrow) : QObject(parent), on_arrow_(std::move(on_arrow)) {}
  bool eventFilter(QObject* o, QEvent* e) override {
    if (e->type() == QEvent::KeyPress) {
      int key = static_cast<QKeyEvent*>(e)->key();
      if ((key == Qt::Key_Up || key == Qt::Key_Down) && on_arrow_(key == Qt::Key_Up)) return true;
    }
    return QObject::eventFilter(o, e);
  }

 private:
  std::function<bool(bool)> on_arrow_;
};

// Refuses the keystrokes a numeric edit refuses.
class FilterValidator : public QValidator {
 public:
  explicit FilterValidator(QObject* parent) : QValidator(parent) {}
  void set_filter(ui::CharFilter f) { filter_ = f; }
  State validate(QString& input, int&) const override {
    return ui::FilterAccepts(filter_, input.toStdString()) ? Acceptable : Invalid;
  }

 private:
  ui::CharFilter filter_ = ui::CharFilter::None;
};

// A combo box that tells the model before its list opens (the list may be filled then).
class DropCombo : public QComboBox {
 public:
  explicit DropCombo(QWidget* parent) : QComboBox(parent) {}
  std::function<void()> before_popup;
  void showPopup() override {
    if (before_popup) before_popup();
    QComboBox::showPopup();
  }
};

// Place, visibility, enabled state and font: the same for every kind.
class Common : public ControlWidget {
 public:
  QWidget* widget() const override { return w_; }

 protected:
  explicit Common(QWidget* w) : w_(w) {}
  void Place(const ui::Control& c, int height_limit = 0) {
    QRect r = RectOf(c.GetWindowRect());
    if (height_limit > 0 && r.height() > height_limit) r.setHeight(height_limit);
    if (w_->geometry() != r) w_->setGeometry(r);
    if (c.font() && (!font_ || !(*font_ == *c.font()))) {
      font_ = *c.font();
      w_->setFont(FontFor(*font_));
    }
    if (w_->isEnabled() != c.IsWindowEnabled()) w_->setEnabled(c.IsWindowEnabled());
    if (w_->isVisibleTo(w_->parentWidget()) != c.IsWindowVisible()) w_->setVisible(c.IsWindowVisible());
  }

  QWidget* w_;
  std::optional<ui::Font> font_;
};

class LabelView : public Common {
 public:
  LabelView(ui::Control& c, QWidget* parent) : Common(new QLabel(parent)), label_(static_cast<QLabel*>(w_)) {
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(!HasStyle(c, "SS_LEFTNOWORDWRAP") && !HasStyle(c, "SS_SIMPLE"));
    label_->setAttribute(Qt::WA_TransparentForMouseEvents);
    if (HasStyle(c, "SS_ETCHEDHORZ") || HasStyle(c, "SS_ETCHEDVERT")) label_->setFrameStyle(QFrame::Box | QFrame::Sunken);
    if (HasStyle(c, "SS_SUNKEN")) label_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    no_prefix_ = HasStyle(c, "SS_NOPREFIX");
    vcenter_ = HasStyle(c, "SS_CENTERIMAGE");
  }
  void Show(const ui::Control& c) override {
    Place(c);
    QString text = no_prefix_ ? Q(c.GetWindowText()) : WithoutMnemonic(c.GetWindowText());
    if (label_->text() != text) label_->setText(text);
    label_->setAlignment(HorizontalOf(c.align()) | (vcenter_ ? Qt::AlignVCenter : Qt::AlignTop));
  }

 private:
  QLabel* label_;
  bool no_prefix_ = false, vcenter_ = false;
};

class EditView : public Common {
 public:
  EditView(ui::Control& c, QWidget* parent, ActionRouter& router) : Common(new QLineEdit(parent)), edit_(static_cast<QLineEdit*>(w_)) {
    validator_ = new FilterValidator(edit_);
    edit_->setValidator(validator_);
    ui::Control* id = &c;
    QObject::connect(edit_, &QLineEdit::textEdited, edit_, [&router, id](const QString& text) {
      router.Act(id, [t = text.toStdString()](ui::Control& k) { ui::act::SetText(k, t); });
    });
    edit_->installEventFilter(new LeaveFilter(edit_, [&router, id] {
      router.Act(id, [](ui::Control& k) { ui::act::Leave(k); });
    }));
    edit_->installEventFilter(new ArrowKeyFilter(edit_, [&router, id](bool up) {
      bool stepped = false;
      router.Act(id, [up, &stepped](ui::Control& k) {
        ui::Control* spin = ui::act::UpDownOf(k);
        if (!spin || !HasStyle(*spin, "UDS_ARROWKEYS")) return;
        stepped = true;
        ui::act::Spin(*spin, up);
      });
      return stepped;
    }));
  }
  void Show(const ui::Control& c) override {
    Place(c);
    validator_->set_filter(c.filter());
    QString text = Q(c.GetWindowText());
    if (edit_->text() != text) {
      edit_->setText(text);
      // A text the program sets is shown from its start, as a native edit shows it: the
      // leading digits of a long number stay in view.
      edit_->setCursorPosition(0);
    }
    edit_->setAlignment(HorizontalOf(c.align()) | Qt::AlignVCenter);
    if (edit_->isReadOnly() != c.read_only()) {
      edit_->setReadOnly(c.read_only());
      // A read-only edit shows the system's face colour (also on a white page).
      QPalette pal = edit_->palette();
      pal.setColor(QPalette::Base, c.read_only() ? QApplication::palette().color(QPalette::Window)
                                                 : QApplication::palette().color(QPalette::Base));
      edit_->setPalette(pal);
    }
  }

 private:
  QLineEdit* edit_;
  FilterValidator* validator_;
};

class ButtonView : public Common {
 public:
  ButtonView(ui::Control& c, QWidget* parent, ActionRouter& router) : Common(new QPushButton(parent)), button_(static_cast<QPushButton*>(w_)) {
    ui::Control* id = &c;
    QObject::connect(button_, &QPushButton::clicked, button_,
                     [&router, id] { router.Act(id, [](ui::Control& k) { ui::act::Click(k); }); });
  }
  void Show(const ui::Control& c) override {
    Place(c);
    QString text = Q(c.GetWindowText());
    if (button_->text() != text) button_->setText(text);
    button_->setDefault(c.default_button());
  }

 private:
  QPushButton* button_;
};

// A check box or radio button that never changes its own check: the model decides it (auto
// or not) and shows it before the click's handler runs, so a button stays as the designer left
// it while a dialog opened by the click is in front.
template <class B>
class ModelButton : public B {
 public:
  using B::B;

 protected:
  void nextCheckState() override {}
};

// The arrow keys in a group of radio buttons move to the next one of the group and click it.
class RadioArrowFilter : public QObject {
 public:
  RadioArrowFilter(QObject* parent, ui::Control* id, ActionRouter& router) : QObject(parent), id_(id), router_(router) {}
  bool eventFilter(QObject* o, QEvent* e) override {
    if (e->type() != QEvent::KeyPress) return QObject::eventFilter(o, e);
    const int key = static_cast<QKeyEvent*>(e)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_Left && key != Qt::Key_Right)
      return QObject::eventFilter(o, e);
    const bool forward = key == Qt::Key_Down || key == Qt::Key_Right;
    ui::Control* to = nullptr;
    router_.Act(id_, [&](ui::Control& k) { to = ui::NextInGroup(k, forward); });
    if (to && to != id_) {
      router_.FocusControl(to);
      router_.Act(to, [](ui::Control& k) { ui::act::Click(k); });
    }
    return true;
  }

 private:
  ui::Control* id_;
  ActionRouter& router_;
};

// Check boxes and radio buttons.
template <class B>
class CheckView : public Common {
 public:
  CheckView(ui::Control& c, QWidget* parent, ActionRouter& router)
      : Common(new ModelButton<B>(parent)), button_(static_cast<B*>(w_)) {
    button_->setAutoExclusive(false);
    ui::Control* id = &c;
    QObject::connect(button_, &QAbstractButton::clicked, button_,
                     [&router, id] { router.Act(id, [](ui::Control& k) { ui::act::Click(k); }); });
    if constexpr (std::is_same_v<B, QRadioButton>) button_->installEventFilter(new RadioArrowFilter(button_, id, router));
  }
  void Show(const ui::Control& c) override {
    Place(c);
    QString text = Q(c.GetWindowText());
    if (button_->text() != text) button_->setText(text);
    SetState(c.GetCheck());
  }

 private:
  void SetState(int check) {
    if constexpr (std::is_same_v<B, QCheckBox>) {
      if (check == 2) button_->setTristate(true);
      Qt::CheckState s = check == 0 ? Qt::Unchecked : check == 1 ? Qt::Checked : Qt::PartiallyChecked;
      if (button_->checkState() != s) button_->setCheckState(s);
    } else {
      if (button_->isChecked() != (check != 0)) button_->setChecked(check != 0);
    }
  }
  B* button_;
};

// Cached items, so that a long list filled one item at a time is not rebuilt each time.
class ItemCache {
 public:
  enum class Change { None, Append, Rebuild };
  Change Compare(const std::vector<std::string>& items) const {
    if (items == shown_) return Change::None;
    if (items.size() > shown_.size() && std::equal(shown_.begin(), shown_.end(), items.begin())) return Change::Append;
    return Change::Rebuild;
  }
  std::size_t size() const { return shown_.size(); }
  void Set(const std::vector<std::string>& items) { shown_ = items; }

 private:
  std::vector<std::string> shown_;
};

class ComboView : public Common {
 public:
  ComboView(ui::Control& c, QWidget* parent, ActionRouter& router)
      : Common(new DropCombo(parent)), combo_(static_cast<DropCombo*>(w_)), router_(router) {
    combo_->setInsertPolicy(QComboBox::NoInsert);
    combo_->setMaxVisibleItems(12);
    ui::Control* id = &c;
    combo_->before_popup = [&router, id] { router.Act(id, [](ui::Control& k) { ui::act::Drop(k); }); };
    QObject::connect(combo_, &QComboBox::activated, combo_, [&router, id](int index) {
      router.Act(id, [index](ui::Control& k) { ui::act::Select(k, index); });
    });
    combo_->installEventFilter(new LeaveFilter(combo_, [&router, id] {
      router.Act(id, [](ui::Control& k) { ui::act::Leave(k); });
    }));
    id_ = id;
  }
  void Show(const ui::Control& c) override {
    bool editable = !c.drop_list();
    if (combo_->isEditable() != editable) {
      combo_->setEditable(editable);
      if (editable) {
        ActionRouter* router = &router_;
        ui::Control* id = id_;
        QObject::connect(combo_->lineEdit(), &QLineEdit::textEdited, combo_, [router, id](const QString& text) {
          router->Act(id, [t = text.toStdString()](ui::Control& k) { ui::act::SetText(k, t); });
        });
        combo_->lineEdit()->installEventFilter(new LeaveFilter(combo_->lineEdit(), [router, id] {
          router->Act(id, [](ui::Control& k) { ui::act::Leave(k); });
        }));
      }
    }
    // The template height of a combo includes its dropped list; the box itself is one line.
    Place(c, combo_->sizeHint().height());
    switch (cache_.Compare(c.items())) {
      case ItemCache::Change::None: break;
      case ItemCache::Change::Append:
        for (std::size_t i = cache_.size(); i < c.items().size(); ++i) combo_->addItem(Q(c.items()[i]));
        break;
      case ItemCache::Change::Rebuild:
        combo_->clear();
        for (const auto& item : c.items()) combo_->addItem(Q(item));
        break;
    }
    cache_.Set(c.items());
    if (combo_->currentIndex() != c.GetCurSel()) combo_->setCurrentIndex(c.GetCurSel());
    if (editable && combo_->currentText() != Q(c.GetWindowText())) {
      combo_->setEditText(Q(c.GetWindowText()));
      combo_->lineEdit()->setCursorPosition(0);
    }
  }

 private:
  DropCombo* combo_;
  ActionRouter& router_;
  ui::Control* id_ = nullptr;
  ItemCache cache_;
};

class ListBoxView : public Common {
 public:
  ListBoxView(ui::Control& c, QWidget* parent, ActionRouter& router) : Common(new QListWidget(parent)), list_(static_cast<QListWidget*>(w_)) {
    ui::Control* id = &c;
    QObject::connect(list_, &QListWidget::currentRowChanged, list_, [&router, id](int row) {
      if (row >= 0 && !router.Showing()) router.Act(id, [row](ui::Control& k) { ui::act::Select(k, row); });
    });
    QObject::connect(list_, &QListWidget::itemDoubleClicked, list_, [&router, id, this](QListWidgetItem* item) {
      int row = list_->row(item);
      router.Act(id, [row](ui::Control& k) { k.owner()->SendNotify(k.id(), ui::Notify::DblClk, row); });
    });
  }
  void Show(const ui::Control& c) override {
    Place(c);
    switch (cache_.Compare(c.items())) {
      case ItemCache::Change::None: break;
      case ItemCache::Change::Append:
        for (std::size_t i = cache_.size(); i < c.items().size(); ++i) list_->addItem(Q(c.items()[i]));
        break;
      case ItemCache::Change::Rebuild:
        list_->clear();
        for (const auto& item : c.items()) list_->addItem(Q(item));
        break;
    }
    cache_.Set(c.items());
    if (list_->currentRow() != c.GetCurSel()) list_->setCurrentRow(c.GetCurSel());
  }

 private:
  QListWidget* list_;
  ItemCache cache_;
};

class ListViewView : public Common {
 public:
  ListViewView(ui::Control& c, QWidget* parent, ActionRouter& router) : Common(new QTreeWidget(parent)), tree_(static_cast<QTreeWidget*>(w_)) {
    tree_->setRootIsDecorated(false);
    tree_->setUniformRowHeights(true);
    tree_->setAllColumnsShowFocus(true);
    tree_->header()->setSectionsClickable(true);
    tree_->header()->setSectionsMovable(false);
    tree_->header()->setStretchLastSection(false);
    ui::Control* id = &c;
    QObject::connect(tree_, &QTreeWidget::currentItemChanged, tree_, [&router, id, this](QTreeWidgetItem* item) {
      int row = item ? tree_->indexOfTopLevelItem(item) : -1;
      if (row >= 0 && !router.Showing()) router.Act(id, [row](ui::Control& k) { ui::act::Select(k, row); });
    });
    QObject::connect(tree_->header(), &QHeaderView::sectionClicked, tree_, [&router, id](int column) {
      router.Act(id, [column](ui::Control& k) { ui::act::HeaderClick(k, column); });
    });
    QObject::connect(tree_, &QTreeWidget::itemDoubleClicked, tree_, [&router, id, this](QTreeWidgetItem* item) {
      int row = tree_->indexOfTopLevelItem(item);
      router.Act(id, [row](ui::Control& k) { k.owner()->SendNotify(k.id(), ui::Notify::DblClk, row); });
    });
  }
  void Show(const ui::Control& c) override {
    Place(c);
    if (c.columns() != columns_ || c.column_widths() != widths_) {
      columns_ = c.columns();
      widths_ = c.column_widths();
      QStringList labels;
      for (const auto& col : columns_) labels << Q(col);
      tree_->setColumnCount(static_cast<int>(columns_.size()));
      tree_->setHeaderLabels(labels);
      for (std::size_t i = 0; i < widths_.size(); ++i) tree_->setColumnWidth(static_cast<int>(i), widths_[i]);
      rows_.clear();
      tree_->clear();
    }
    if (c.rows() != rows_) {
      std::size_t keep = 0;
      while (keep < rows_.size() && keep < c.rows().size() && rows_[keep] == c.rows()[keep]) ++keep;
      while (static_cast<std::size_t>(tree_->topLevelItemCount()) > keep)
        delete tree_->takeTopLevelItem(tree_->topLevelItemCount() - 1);
      for (std::size_t r = keep; r < c.rows().size(); ++r) {
        QStringList cells;
        for (const auto& cell : c.rows()[r]) cells << Q(cell);
        tree_->addTopLevelItem(new QTreeWidgetItem(cells));
      }
      rows_ = c.rows();
    }
    int sel = c.GetCurSel();
    QTreeWidgetItem* want = sel >= 0 ? tree_->topLevelItem(sel) : nullptr;
    if (tree_->currentItem() != want) tree_->setCurrentItem(want);
    if (!want) tree_->clearSelection();
  }

 private:
  QTreeWidget* tree_;
  std::vector<std::string> columns_;
  std::vector<int> widths_;
  std::vector<std::vector<std::string>> rows_;
};

// An up-down control: two arrow buttons, each step through the model's spin.
class UpDownView : public Common {
 public:
  UpDownView(ui::Control& c, QWidget* parent, ActionRouter& router) : Common(new QWidget(parent)) {
    auto* box = new QVBoxLayout(w_);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(0);
    ui::Control* id = &c;
    for (bool up : {true, false}) {
      auto* b = new QToolButton(w_);
      b->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
      b->setAutoRepeat(true);
      b->setFocusPolicy(Qt::NoFocus);
      b->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
      b->setObjectName(up ? QStringLiteral("up") : QStringLiteral("down"));
      box->addWidget(b);
      QObject::connect(b, &QToolButton::clicked, b,
                       [&router, id, up] { router.Act(id, [up](ui::Control& k) { ui::act::Spin(k, up); }); });
    }
  }
  void Show(const ui::Control& c) override { Place(c); }
};

class GroupView : public Common {
 public:
  explicit GroupView(QWidget* parent) : Common(new QGroupBox(parent)), group_(static_cast<QGroupBox*>(w_)) {
    group_->setAttribute(Qt::WA_TransparentForMouseEvents);
    // The system's group box: the title sits on the frame's top line, at the top of the
    // rectangle, and the inside is not shaded (the templates place controls close under it).
    group_->setStyleSheet(QStringLiteral(
        "QGroupBox { border: 1px solid palette(mid); border-radius: 0px; margin-top: 0.55em; }"
        "QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top left; left: 6px; padding: 0px 2px; }"));
  }
  void Show(const ui::Control& c) override {
    Place(c);
    QString text = WithoutMnemonic(c.GetWindowText());
    if (group_->title() != text) group_->setTitle(text);
  }
  bool background() const override { return true; }

 private:
  QGroupBox* group_;
};

PictureFrame::Look LookOf(const ui::Control& c) {
  using L = PictureFrame::Look;
  if (HasStyle(c, "SS_ETCHEDFRAME")) return L::Etched;
  if (HasStyle(c, "SS_BLACKFRAME")) return L::Black;
  if (HasStyle(c, "SS_GRAYFRAME")) return L::Gray;
  if (HasStyle(c, "SS_WHITEFRAME")) return L::White;
  if (HasStyle(c, "SS_BLACKRECT")) return L::BlackFill;
  if (HasStyle(c, "SS_GRAYRECT")) return L::GrayFill;
  if (HasStyle(c, "SS_WHITERECT")) return L::WhiteFill;
  if (HasStyle(c, "SS_SUNKEN")) return L::Sunken;
  // A frame made at run time is a placeholder area: show where it is.
  return TemplateOf(c) ? L::None : L::Etched;
}

class FrameView : public Common {
 public:
  FrameView(ui::Control& c, QWidget* parent) : Common(new PictureFrame(LookOf(c), parent)), frame_(static_cast<PictureFrame*>(w_)) {}
  void Show(const ui::Control& c) override {
    Place(c);
    frame_->SetPicture(c.picture());
  }
  bool background() const override { return true; }

 private:
  PictureFrame* frame_;
};

// A tab strip: the tabs over a panel; the pages are child dialogs drawn over the panel.
class TabView : public Common {
 public:
  // Tab height that leaves the page rectangles of the model (22 pixels down) clear.
  static constexpr int kBarHeight = 21;

  TabView(ui::Control& c, QWidget* parent, ActionRouter& router) : Common(new QWidget(parent)) {
    panel_ = new QFrame(w_);
    panel_->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    bar_ = new QTabBar(w_);
    // Tabs as low as the system's, so that the pages placed just under them leave the
    // captions whole.
    bar_->setStyleSheet(QStringLiteral(
        "QTabBar::tab { height: %1px; padding: 0px 8px; margin-top: 2px; margin-right: -1px;"
        " border: 1px solid palette(mid); border-bottom: none; background: palette(button); }"
        "QTabBar::tab:selected { margin-top: 0px; height: %2px; background: palette(window); }")
                            .arg(kBarHeight - 3)
                            .arg(kBarHeight - 1));
    bar_->setDrawBase(false);
    bar_->setExpanding(false);
    bar_->setUsesScrollButtons(true);
    ui::Control* id = &c;
    QObject::connect(bar_, &QTabBar::currentChanged, bar_, [&router, id](int index) {
      if (index >= 0 && !router.Showing()) router.Act(id, [index](ui::Control& k) { ui::act::Select(k, index); });
    });
  }
  void Show(const ui::Control& c) override {
    Place(c);
    if (cache_.Compare(c.items()) != ItemCache::Change::None) {
      QSignalBlocker block(bar_);
      while (bar_->count() > 0) bar_->removeTab(bar_->count() - 1);
      for (const auto& item : c.items()) bar_->addTab(WithoutMnemonic(item));
      cache_.Set(c.items());
    }
    if (bar_->currentIndex() != c.GetCurSel() && c.GetCurSel() >= 0) {
      QSignalBlocker block(bar_);
      bar_->setCurrentIndex(c.GetCurSel());
    }
    int w = w_->width(), h = w_->height();
    int bar_h = std::min(kBarHeight, h);
    bar_->setGeometry(0, 0, std::min(w, bar_->sizeHint().width()), bar_h);
    panel_->setGeometry(0, bar_h - 1, w, std::max(0, h - bar_h + 1));
  }
  bool background() const override { return true; }

 private:
  QTabBar* bar_;
  QFrame* panel_;
  ItemCache cache_;
};

class RichTextView : public Common {
 public:
  explicit RichTextView(QWidget* parent) : Common(new QTextEdit(parent)), text_(static_cast<QTextEdit*>(w_)) {
    text_->setReadOnly(true);
    text_->setTabChangesFocus(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  }
  void Show(const ui::Control& c) override {
    Place(c);
    const ui::RichDocument* doc = c.rich();
    if (!doc) {
      if (shown_) {
        text_->clear();
        shown_.reset();
      }
      return;
    }
    if (shown_ && SameRichDocument(*shown_, *doc)) return;
    shown_ = *doc;
    FillTextDocument(*text_->document(), *doc);
    // A page is read from its top.
    text_->moveCursor(QTextCursor::Start);
    text_->ensureCursorVisible();
  }

 private:
  QTextEdit* text_;
  std::optional<ui::RichDocument> shown_;
};

bool SameTable(const ui::TableData& a, const ui::TableData& b) {
  return a.title == b.title && a.headers == b.headers && a.rows == b.rows && a.note == b.note;
}

// A table display: title, the table with its headers, a note; a click picks a cell.
class TableView : public Common {
 public:
  TableView(ui::Control& c, QWidget* parent, ActionRouter& router) : Common(new QWidget(parent)) {
    auto* box = new QVBoxLayout(w_);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(2);
    title_ = new QLabel(w_);
    title_->setTextFormat(Qt::PlainText);
    title_->setAlignment(Qt::AlignHCenter);
    table_ = new QTableWidget(w_);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->verticalHeader()->setVisible(false);
    note_ = new QLabel(w_);
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    box->addWidget(title_);
    box->addWidget(table_, 1);
    box->addWidget(note_);
    ui::Control* id = &c;
    QObject::connect(table_, &QTableWidget::cellClicked, table_, [&router, id](int row, int column) {
      router.Act(id, [row, column](ui::Control& k) { ui::act::PickCell(k, row, column); });
    });
    QObject::connect(table_, &QTableWidget::cellDoubleClicked, table_, [&router, id](int row, int) {
      router.Act(id, [row](ui::Control& k) { k.owner()->SendNotify(k.id(), ui::Notify::DblClk, row); });
    });
  }
  void Show(const ui::Control& c) override {
    Place(c);
    const ui::TableData* t = c.table();
    if (!t) {
      if (shown_) {
        table_->clear();
        table_->setRowCount(0);
        table_->setColumnCount(0);
        title_->clear();
        note_->clear();
        shown_.reset();
      }
    } else if (!shown_ || !SameTable(*shown_, *t)) {
      shown_ = *t;
      title_->setText(Q(t->title));
      title_->setVisible(!t->title.empty());
      note_->setText(Q(t->note));
      note_->setVisible(!t->note.empty());
      table_->clear();
      table_->setColumnCount(static_cast<int>(t->headers.size()));
      table_->setRowCount(static_cast<int>(t->rows.size()));
      QStringList headers;
      for (const auto& h : t->headers) headers << Q(h);
      table_->setHorizontalHeaderLabels(headers);
      for (std::size_t r = 0; r < t->rows.size(); ++r)
        for (std::size_t k = 0; k < t->rows[r].size() && k < t->headers.size(); ++k)
          table_->setItem(static_cast<int>(r), static_cast<int>(k), new QTableWidgetItem(Q(t->rows[r][k])));
      table_->resizeColumnsToContents();
    }
    int row = c.picked_row(), column = c.picked_column();
    if (row >= 0 && column >= 0) {
      if (table_->currentRow() != row || table_->currentColumn() != column) table_->setCurrentCell(row, column);
    } else if (table_->currentItem()) {
      table_->setCurrentItem(nullptr);
      table_->clearSelection();
    }
  }

 private:
  QLabel* title_;
  QTableWidget* table_;
  QLabel* note_;
  std::optional<ui::TableData> shown_;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeControlWidget(ui::Control& c, QWidget* parent, ActionRouter& router) {
  std::unique_ptr<ControlWidget> w;
  switch (c.kind()) {
    case ui::Kind::Static: w = std::make_unique<LabelView>(c, parent); break;
    case ui::Kind::Edit: w = std::make_unique<EditView>(c, parent, router); break;
    case ui::Kind::Button: w = std::make_unique<ButtonView>(c, parent, router); break;
    case ui::Kind::CheckBox: w = std::make_unique<CheckView<QCheckBox>>(c, parent, router); break;
    case ui::Kind::Radio: w = std::make_unique<CheckView<QRadioButton>>(c, parent, router); break;
    case ui::Kind::Combo: w = std::make_unique<ComboView>(c, parent, router); break;
    case ui::Kind::ListBox: w = std::make_unique<ListBoxView>(c, parent, router); break;
    case ui::Kind::ListView: w = std::make_unique<ListViewView>(c, parent, router); break;
    case ui::Kind::UpDown: w = std::make_unique<UpDownView>(c, parent, router); break;
    case ui::Kind::GroupBox: w = std::make_unique<GroupView>(parent); break;
    case ui::Kind::Frame: w = std::make_unique<FrameView>(c, parent); break;
    case ui::Kind::Tab: w = std::make_unique<TabView>(c, parent, router); break;
    case ui::Kind::RichText: w = std::make_unique<RichTextView>(parent); break;
    case ui::Kind::Table: w = std::make_unique<TableView>(c, parent, router); break;
  }
  w->widget()->setProperty("kestra_control_id", c.id());
  return w;
}

}  // namespace kestra::qt
