#pragma once
#include <string>
#include <string_view>
// Pixel geometry of the dialog model; dialog units are mapped through the dialog font.

namespace ui {

struct Rect {
  int left = 0, top = 0, right = 0, bottom = 0;
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool operator==(const Rect&) const = default;
};

struct Size {
  int cx = 0, cy = 0;
  bool operator==(const Size&) const = default;
};

// A font as a dialog asks for it: face, logical height (negative = character height in
// pixels, as Windows logical fonts), weight, character set and pitch-and-family byte.
struct Font {
  std::string face = "宋体";
  int height = -12;
  int weight = 400;
  int charset = 1;
  int pitch_family = 0;
  bool italic = false;
  bool operator==(const Font&) const = default;
};

// Point size to logical height at 96 dots per inch, as the dialog manager does.
inline int HeightFromPoints(int points) { return -((points * 96 + 36) / 72); }

}  // namespace ui
