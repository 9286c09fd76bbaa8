// What the Qt host offers besides dialogs: message boxes with their buttons and answers,
// font measures of the mapped CJK fonts, report places, the wait cursor. (How a report is
// named within its folder: the report service's tests.)
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <QApplication>
#include <QDateTime>
#include <QFontInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>

#include "host/qt/font_map.h"
#include "host/qt/report_path.h"
#include "qt_test_support.h"
#include "tests/support/temp_folder.h"

namespace kestra::qt::testing {
namespace {

namespace fs = std::filesystem;

// Each type of box has its buttons, default button and icon; it answers with the button
// pressed, and a box without a caption bears the application's title.
TEST(QtHost, MessageBoxesAnswerWithTheButtonPressed) {
  QtScope scope;
  scope.host().SetAppTitle("OrvelKestra");
  const struct {
    const char* text;
    const char* caption;
    unsigned type;
    const char* press;
    int answer;
    const char* title;
    int icon;                    // checked when not -1
    const char* default_button;  // checked when given
  } cases[] = {
      {"补偿容量结果不能为负", "警告", ui::MB_OK, "确定", ui::IDOK, "警告", -1, nullptr},
      {"继续吗?", "", ui::MB_OKCANCEL | ui::MB_ICONQUESTION, "取消", ui::IDCANCEL, "OrvelKestra", -1, nullptr},
      {"保存?", "提示", ui::MB_YESNO, "是(&Y)", ui::IDYES, "提示", -1, nullptr},
      {"保存?", "提示", ui::MB_YESNOCANCEL, "否(&N)", ui::IDNO, "提示", -1, nullptr},
      {"找不到文件Djqd.slb, 程序调用失败!", "错误!", ui::MB_YESNO | ui::MB_ICONINFORMATION | ui::MB_DEFBUTTON2,
       "<default>", ui::IDNO, "错误!", QMessageBox::Information, "否(&N)"},
      // Escape or the close box of a box with one button: that button.
      {"x", "警告", ui::MB_OK | ui::MB_ICONWARNING, "", ui::IDOK, "警告", QMessageBox::Warning, nullptr},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    SeenBox seen;
    AnswerNextMessageBox(c.press, &seen);
    EXPECT_EQ(scope.host().MessageBox(c.text, c.caption, c.type), c.answer);
    EXPECT_EQ(seen.text, c.text);
    EXPECT_EQ(seen.title, c.title);
    if (c.icon != -1) {
      EXPECT_EQ(seen.icon, c.icon);
    }
    if (c.default_button) {
      EXPECT_EQ(seen.default_button, c.default_button);
    }
    // As the system draws a box: room for an icon only when there is one, buttons centred.
    EXPECT_EQ(seen.icon_room, (c.type & 0xF0) != 0);
    EXPECT_TRUE(seen.centred);
  }
  // A long message is wrapped (between Chinese characters) to five eighths of the screen.
  std::string long_text;
  for (int i = 0; i < 40; ++i) long_text += "补偿后功率因数必须大于补偿前的功率因数";
  SeenBox seen;
  AnswerNextMessageBox("确定", &seen);
  scope.host().MessageBox(long_text, "警告", ui::MB_OK);
  const int screen = QGuiApplication::primaryScreen()->availableGeometry().width();
  EXPECT_EQ(seen.text_width, screen * 5 / 8);
}

TEST(QtHost, DialogFontsMapToTheInstalledCjkFonts) {
  EnsureApp();
  ui::Font songti;  // 9-point 宋体, the calculators' dialog font
  songti.face = "宋体";
  songti.height = ui::HeightFromPoints(9);
  EXPECT_EQ(songti.height, -12);
  EXPECT_EQ(QFontInfo(FontFor(songti)).family().toStdString(), "Noto Serif CJK SC");
  ui::Font shell;
  shell.face = "MS Shell Dlg";
  shell.height = ui::HeightFromPoints(8);
  EXPECT_EQ(QFontInfo(FontFor(shell)).family().toStdString(), "Noto Sans CJK SC");
  EXPECT_EQ(QFontInfo(FontFor(songti)).pixelSize(), 12);

  QtUiHost host;
  ui::Size base = host.BaseUnits(songti);
  // Latin letters of a 12-pixel font average 6 to 8 pixels; a line is taller than the font.
  EXPECT_GE(base.cx, 6);
  EXPECT_LE(base.cx, 8);
  EXPECT_GE(base.cy, 12);
  EXPECT_LE(base.cy, 20);
  // Chinese characters are square: 8 of them are 8 × 12 pixels wide, whatever the Latin width.
  ui::Size ext = host.TextExtent("自然平均功率因数", songti);
  EXPECT_EQ(ext.cx, 96);
  EXPECT_EQ(ext.cy, base.cy);
  EXPECT_GT(host.TextExtent("自然平均功率因数:", songti).cx, 96);
  // A label sized in dialog units for the 6-pixel system font still holds its text here.
  EXPECT_GE((70 * base.cx + 2) / 4, host.TextExtent("自然平均功率因数:", songti).cx);
}

TEST(QtHost, ReportsGoToNewFilesInTheirOwnFolder) {
  EnsureApp();
  const kestra::testing::TempFolder temp;
  const fs::path& root = temp.path();
  fs::path folder = root / "Documents" / "OrvelKestra";
  QDateTime when(QDate(2026, 11, 22), QTime(9, 5, 7));
  auto first = NewReportPathIn(folder.string(), "无功功率补偿", when);
  ASSERT_TRUE(first);
  EXPECT_EQ(*first, (folder / "无功功率补偿 2026-11-22 090507.docx").string());
  EXPECT_TRUE(fs::is_directory(folder));
  // A folder that cannot be made (a file stands in the way): no path, and the system's reason.
  std::ofstream(root / "blocked") << "x";
  std::string why;
  EXPECT_FALSE(NewReportPathIn((root / "blocked" / "OrvelKestra").string(), "柴油发电机组容量计算", when, &why));
  EXPECT_EQ(why, std::strerror(ENOTDIR));

  // The host: its folder, the opener and the status line.
  QtUiHost host;
  host.SetReportFolder(folder.string());
  std::string opened, status;
  host.SetReportOpener([&](const std::string& p) {
    opened = p;
    return true;
  });
  host.SetStatusSink([&](const std::string& s) { status = s; });
  auto path = host.NewReportPath("柴油发电机组容量计算");
  ASSERT_TRUE(path);
  EXPECT_EQ(fs::path(*path).parent_path(), folder);
  EXPECT_EQ(fs::path(*path).extension(), ".docx");
  host.ShowReport(*path);
  EXPECT_EQ(opened, *path);
  EXPECT_NE(status.find(*path), std::string::npos);
  // Why a report could not be written: its folder and the system's text, in the status line.
  host.SetReportFolder((root / "blocked" / "OrvelKestra").string());
  EXPECT_FALSE(host.NewReportPath("柴油发电机组容量计算"));
  EXPECT_NE(status.find((root / "blocked").string()), std::string::npos) << status;
  EXPECT_NE(status.find(std::strerror(ENOTDIR)), std::string::npos) << status;
}

TEST(QtHost, WaitCursorNestsAndIsLiftedOverDialogs) {
  QtScope scope;
  QtUiHost& host = scope.host();
  {
    ui::WaitCursor outer;
    ui::WaitCursor inner;
    EXPECT_EQ(host.wait_cursor_depth(), 2);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    ui::Dialog dlg(IDD_SUB);
    bool lifted = false;
    RunWith(host, dlg, [&](DialogView&) { lifted = QApplication::overrideCursor() == nullptr; });
    EXPECT_TRUE(lifted);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
  }
  EXPECT_EQ(host.wait_cursor_depth(), 0);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace kestra::qt::testing
