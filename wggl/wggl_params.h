#pragma once
// The calculator's parameter file "Kestra\无功功率补偿计算.idp": the texts read when the dialog
// opens (with each key's default) and the numbers stored on "确定".
#include <string>

#include "wggl/wggl_formulas.h"

namespace kestra::wggl {

inline constexpr const char* kWgglParamFile = "Kestra\\无功功率补偿计算.idp";

// The values as stored texts, defaults filled in for missing or empty keys.
struct WgglParamTexts {
  std::string zrglys = "0.5";   // Wgglbc\Zrglys   cosφ1
  std::string bchglys = "0.5";  // Wgglbc\Bchglys  cosφ2
  std::string fhxs = "0.75";    // Wgglbc\Fhxs     α
  std::string ygjsfh = "0";     // Wgglbc\Ygjsfh   Pjs
  std::string sfdrsl = "1";     // Wgglbc\Sfdrsl   capacitor-count check box
  std::string drrl = "30";      // Wgglbc\Drrl     rating of one capacitor q
  std::string dqxtlx = "0";     // Wgglbc\Dqxtlx   system kind (radio index)
  std::string ygfhxs = "0.75";  // Wgglbc\Ygfhxs   α'
  std::string wgfhxs = "0.75";  // Wgglbc\Wgfhxs   β
  std::string wgjsfh = "0";     // Wgglbc\Wgjsfh   Qjs
  std::string ygdn = "0";       // Wgglbc\Ygdn     Wm
  std::string wgdn = "0";       // Wgglbc\Wgdn     Wrm
};

// Reads the file (a missing or unreadable one gives every default).
WgglParamTexts ReadWgglParams(const std::string& path);
// The numbers of freshly read texts: reals with wcstod, the rating, radio and box with _wtoi.
WgglInputs InputsOf(const WgglParamTexts& t);
// Read, set every key ("%g" for reals, "%d" for the radio index and the check box), write;
// keys of the file that the calculator does not own stay as they are.
void WriteWgglParams(const std::string& path, const WgglInputs& n);

}  // namespace kestra::wggl
