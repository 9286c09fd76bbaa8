#pragma once
// The dialog fonts the templates ask for ("宋体", "MS Shell Dlg") mapped onto the CJK
// fonts installed here, and the dialog-unit measures taken from them.
#include <QFont>

#include "ui/geometry.h"

namespace kestra::qt {

// Registers the family substitutions once per process (safe to call again).
void InstallFontSubstitutions();

// The Qt font for a font as a dialog asks for it: the substituted family, the pixel
// height of the logical font, its weight and slant.
QFont FontFor(const ui::Font& font);

// Dialog base units of a font: the average width of the 52 Latin letters, rounded as
// the dialog manager rounds it, and the line height.
ui::Size BaseUnitsOf(const QFont& font);

}  // namespace kestra::qt
