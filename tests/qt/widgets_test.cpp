// The richer controls: tab sheets with their pages, list views, list boxes, table
// displays, rich text and pictures, each shown from the model and acted on by the designer.
#include <gtest/gtest.h>

#include <algorithm>

#include <QDialog>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QTabBar>
#include <QTableWidget>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTreeWidget>

#include "host/qt/picture_frame.h"
#include "qt_test_support.h"
#include "ui/actions.h"
#include "ui/property_sheet.h"

namespace kestra::qt::testing {
namespace {

class Page : public ui::PropertyPage {
 public:
  Page(std::string tab, bool* allow_leave) : PropertyPage(IDD_PAGE, std::move(tab)), allow_leave_(allow_leave) {}
  bool OnKillActive() override { return *allow_leave_; }

 private:
  bool* allow_leave_;
};

class SheetDlg : public ui::Dialog {
 public:
  SheetDlg() : Dialog(IDD_TEST), p0("按稳定负荷计算", &allow), p1("按尖峰负荷计算", &allow) {}
  bool OnInitDialog() override {
    Dialog::OnInitDialog();
    sheet.AddPage(&p0);
    sheet.AddPage(&p1);
    sheet.Create(this, GetDlgItem(IDC_FRAME)->GetWindowRect());
    return true;
  }
  bool allow = true;
  Page p0, p1;
  ui::PropertySheet sheet;
};

TEST(QtWidgets, TabSheetShowsThePageOfTheTabTheDesignerPicks) {
  QtScope scope;
  SheetDlg dlg;
  RunWith(scope.host(), dlg, [&](DialogView& v) {
    QWidget* strip = v.WidgetOf(*dlg.sheet.tab());
    ASSERT_NE(strip, nullptr);
    auto* bar = strip->findChild<QTabBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->count(), 2);
    EXPECT_EQ(bar->tabText(1).toStdString(), "按尖峰负荷计算");
    // The tabs stay above the page rectangle the sheet gives its pages.
    EXPECT_LE(strip->y() + bar->height(), dlg.p0.GetWindowRect().top);
    QWidget* page0 = v.WidgetOf(dlg.p0);
    ASSERT_NE(page0, nullptr);
    EXPECT_TRUE(page0->isVisible());
    EXPECT_EQ(v.WidgetOf(dlg.p1), nullptr);  // created on first activation

    bar->setCurrentIndex(1);
    EXPECT_EQ(dlg.sheet.GetActiveIndex(), 1);
    QWidget* page1 = v.WidgetOf(dlg.p1);
    ASSERT_NE(page1, nullptr);
    EXPECT_TRUE(page1->isVisible());
    EXPECT_FALSE(page0->isVisible());
    // Pages lie over the tab strip.
    EXPECT_GT(v.window()->children().indexOf(page1), v.window()->children().indexOf(strip));

    // A page that refuses to be left keeps its tab.
    dlg.allow = false;
    bar->setCurrentIndex(0);
    EXPECT_EQ(dlg.sheet.GetActiveIndex(), 1);
    EXPECT_EQ(bar->currentIndex(), 1);
    EXPECT_TRUE(page1->isVisible());
  });
}

class ListDlg : public ui::Dialog {
 public:
  ListDlg() : Dialog(IDD_TEST) {
    OnArg(7001, ui::Notify::HeaderClick, [this](int c) { header_clicks.push_back(c); });
    OnArg(7001, ui::Notify::SelChange, [this](int r) { rows_picked.push_back(r); });
    On(7002, ui::Notify::SelChange, [this] { picked = GetDlgItem(7002)->PickedText(); });
    OnArg(7004, ui::Notify::SelChange, [this](int r) { list_picked.push_back(r); });
  }
  bool OnInitDialog() override {
    Dialog::OnInitDialog();
    ui::Control& lv = CreateControl(ui::Kind::ListView, 7001, "", ui::Rect{10, 10, 300, 120});
    lv.InsertColumn(0, "型号", 120);
    lv.InsertColumn(1, "R'(Ω/km)", 100);
    for (int i = 0; i < 3; ++i) {
      int r = lv.InsertItem(i, "YJV-" + std::to_string(i + 1));
      lv.SetItemText(r, 1, std::to_string(0.1 * (i + 1)).substr(0, 3));
    }
    ui::Control& table = CreateControl(ui::Kind::Table, 7002, "", ui::Rect{10, 130, 300, 280});
    table.SetTable(ui::TableData{"计算系数C", {"线路", "220/380V", "380V"}, {{"铜", "45.7", "77"}, {"铝", "27.6", "46.3"}}, "注: 三相四线"});
    ui::Control& rich = CreateControl(ui::Kind::RichText, 7003, "", ui::Rect{310, 10, 440, 150});
    ui::RichDocument doc;
    doc.paragraphs.push_back({{{"说明", true, false, false, 0, 14, ""}}, 1, 0, 0});
    doc.paragraphs.push_back({{{"Q", false, false, false, 0, 10.5, ""}, {"c", false, false, false, 1, 10.5, ""},
                               {" = P·tanφ", false, true, false, 0, 10.5, ""}, {"2", false, false, false, 2, 10.5, ""}},
                              0, 0, 0});
    rich.SetRichDocument(doc);
    ui::Control& list = CreateControl(ui::Kind::ListBox, 7004, "", ui::Rect{310, 160, 440, 240});
    list.AddString("第一项");
    list.AddString("第二项");
    return true;
  }
  std::vector<int> header_clicks, rows_picked, list_picked;
  std::string picked;
};

TEST(QtWidgets, ListViewsTablesRichTextAndListsFollowAndAnswer) {
  QtScope scope;
  ListDlg dlg;
  RunWith(scope.host(), dlg, [&](DialogView& v) {
    auto* tree = qobject_cast<QTreeWidget*>(v.WidgetOf(*dlg.GetDlgItem(7001)));
    ASSERT_NE(tree, nullptr);
    EXPECT_EQ(tree->columnCount(), 2);
    EXPECT_EQ(tree->headerItem()->text(1).toStdString(), "R'(Ω/km)");
    EXPECT_EQ(tree->columnWidth(0), 120);
    ASSERT_EQ(tree->topLevelItemCount(), 3);
    EXPECT_EQ(tree->topLevelItem(2)->text(0).toStdString(), "YJV-3");
    emit tree->header()->sectionClicked(1);
    EXPECT_EQ(dlg.header_clicks, std::vector<int>{1});
    tree->setCurrentItem(tree->topLevelItem(1));
    EXPECT_EQ(dlg.rows_picked, std::vector<int>{1});
    // The model's selection is a row: one past the last row selects none.
    ui::Control& lv = *dlg.GetDlgItem(7001);
    EXPECT_EQ(lv.GetCurSel(), 1);
    EXPECT_EQ(lv.SetCurSel(3), -1);
    EXPECT_EQ(lv.GetCurSel(), -1);
    EXPECT_EQ(tree->currentItem(), nullptr);
    EXPECT_EQ(lv.SetCurSel(1), 1);
    // The model sorts its rows (as on a header click): the widget follows, selection too.
    lv.SortRows({2, 1, 0});
    EXPECT_EQ(tree->topLevelItem(0)->text(0).toStdString(), "YJV-3");
    EXPECT_EQ(tree->indexOfTopLevelItem(tree->currentItem()), 1);
    lv.DeleteAllItems();
    EXPECT_EQ(tree->topLevelItemCount(), 0);

    QWidget* table_box = v.WidgetOf(*dlg.GetDlgItem(7002));
    auto* table = table_box->findChild<QTableWidget*>();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->horizontalHeaderItem(2)->text().toStdString(), "380V");
    EXPECT_EQ(table->item(1, 2)->text().toStdString(), "46.3");
    emit table->cellClicked(1, 1);
    EXPECT_EQ(dlg.picked, "27.6");
    EXPECT_EQ(table->currentRow(), 1);
    bool title_found = false;
    for (QLabel* l : table_box->findChildren<QLabel*>()) title_found |= l->text().toStdString() == "计算系数C";
    EXPECT_TRUE(title_found);

    auto* rich = qobject_cast<QTextEdit*>(v.WidgetOf(*dlg.GetDlgItem(7003)));
    ASSERT_NE(rich, nullptr);
    EXPECT_TRUE(rich->isReadOnly());
    EXPECT_EQ(rich->toPlainText().toStdString(), "说明\nQc = P·tanφ2");
    QTextBlock second = rich->document()->begin().next();
    QTextCursor at(second);
    at.setPosition(second.position() + 2);  // after "Qc": the subscript run
    EXPECT_EQ(at.charFormat().verticalAlignment(), QTextCharFormat::AlignSubScript);
    QTextCursor bold(rich->document()->begin());
    bold.setPosition(1);
    EXPECT_EQ(bold.charFormat().fontWeight(), QFont::Bold);
    EXPECT_EQ(rich->document()->begin().blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
    EXPECT_EQ(rich->textCursor().position(), 0);  // read from the top

    auto* list = qobject_cast<QListWidget*>(v.WidgetOf(*dlg.GetDlgItem(7004)));
    ASSERT_NE(list, nullptr);
    list->setCurrentRow(1);
    EXPECT_EQ(dlg.list_picked, std::vector<int>{1});
    dlg.GetDlgItem(7004)->AddString("第三项");
    EXPECT_EQ(list->count(), 3);
    EXPECT_EQ(list->currentRow(), 1);
  });
}

TEST(QtWidgets, PicturesAreDrawnInsideTheirFrame) {
  QtScope scope;
  ui::Dialog dlg(IDD_TEST);
  RunWith(scope.host(), dlg, [&](DialogView& v) {
    ui::Control& frame = *dlg.GetDlgItem(IDC_FRAME);
    ui::VectorPicture pic;
    pic.width = 100;
    pic.height = 50;
    pic.lines.push_back({0, 25, 100, 25, 1});  // a red line across the middle
    pic.fills.push_back({{{60, 35}, {90, 35}, {90, 45}, {60, 45}}, 2, 1});  // a yellow block below it, right
    frame.SetPicture(pic);
    QWidget* w = v.WidgetOf(frame);
    QImage img = w->grab().toImage();
    int red = 0, black = 0;
    for (int x = 0; x < img.width(); ++x) {
      bool hit = false;
      for (int y = img.height() / 2 - 2; y <= img.height() / 2 + 2; ++y) {
        QColor c = img.pixelColor(x, y);
        hit |= c.red() > 150 && c.green() < 100;
      }
      red += hit;
    }
    for (int y = 0; y < img.height(); ++y)
      if (img.pixelColor(img.width() / 2, y) == QColor(Qt::black)) ++black;
    EXPECT_GT(red, img.width() / 2);
    // The picture is 2:1, centred; the block's centre (75, 40) of 100 x 50 lies there.
    const double scale = std::min(img.width() / 100.0, img.height() / 50.0);
    const QColor block = img.pixelColor(int(img.width() / 2 + 25 * scale), int(img.height() / 2 + 15 * scale));
    EXPECT_EQ(block, QColor(Qt::yellow)) << block.name().toStdString();
    EXPECT_GT(black, img.height() / 3);
    EXPECT_EQ(SlideColor(7), QColor(Qt::white));  // the slides' usual colour, on the black face
  });
}

}  // namespace
}  // namespace kestra::qt::testing
