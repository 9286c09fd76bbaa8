#include "host/qt/font_map.h"

#include <QFontMetrics>
#include <QString>

namespace kestra::qt {

namespace {

// Windows dialog faces and the installed CJK family that looks most like each.
struct FaceSubstitute {
  const char* face;
  const char* family;
};
constexpr FaceSubstitute kSubstitutes[] = {
    {"宋体", "Noto Serif CJK SC"},
    {"SimSun", "Noto Serif CJK SC"},
    {"新宋体", "Noto Serif CJK SC"},
    {"NSimSun", "Noto Serif CJK SC"},
    {"仿宋", "Noto Serif CJK SC"},
    {"MS Shell Dlg", "Noto Sans CJK SC"},
    {"MS Shell Dlg 2", "Noto Sans CJK SC"},
    {"MS Sans Serif", "Noto Sans CJK SC"},
    {"Microsoft Sans Serif", "Noto Sans CJK SC"},
    {"Tahoma", "Noto Sans CJK SC"},
    {"黑体", "Noto Sans CJK SC"},
    {"SimHei", "Noto Sans CJK SC"},
    {"微软雅黑", "Noto Sans CJK SC"},
    {"Microsoft YaHei", "Noto Sans CJK SC"},
};

}  // namespace

void InstallFontSubstitutions() {
  static const bool installed = [] {
    for (const auto& s : kSubstitutes) QFont::insertSubstitution(QString::fromUtf8(s.face), QString::fromUtf8(s.family));
    return true;
  }();
  (void)installed;
}

QFont FontFor(const ui::Font& font) {
  InstallFontSubstitutions();
  QFont f(QString::fromUtf8(font.face.empty() ? "MS Shell Dlg" : font.face.c_str()));
  // A negative logical height is the character height in pixels; a positive one is the
  // cell height, which for these fonts is close enough to the same pixel size.
  int px = font.height < 0 ? -font.height : font.height;
  f.setPixelSize(px > 0 ? px : 12);
  f.setWeight(static_cast<QFont::Weight>(font.weight >= 100 && font.weight <= 900 ? font.weight : 400));
  f.setItalic(font.italic);
  return f;
}

ui::Size BaseUnitsOf(const QFont& font) {
  QFontMetrics fm(font);
  int letters = fm.horizontalAdvance(QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"));
  return ui::Size{(letters / 26 + 1) / 2, fm.height()};
}

}  // namespace kestra::qt
