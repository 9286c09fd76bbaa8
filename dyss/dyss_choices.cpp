#include "dyss/dyss_choices.h"

#include <array>

namespace kestra::dyss {
namespace {

constexpr std::array<LoadCase, 5> kAllForms = {{
    {"终端负荷用电流矩(A.km)", 0},
    {"几个负荷用电流矩(A.km)", 1},
    {"终端负荷用负荷矩(kW.km)", 2},
    {"几个负荷用负荷矩(kW.km)", 3},
    {"整条线路的导线截面材料及敷设方式均相同cosφ=1,几个负荷用负荷矩(kW.km)", 4},
}};
constexpr std::array<LoadCase, 3> kTwoPhaseN = {{
    {"终端负荷用电流矩(A.km)", 0},
    {"终端负荷用负荷矩(kW.km)", 2},
    {"终端负荷且cosφ=1,负荷用负荷矩(kW.km)", 4},
}};
constexpr std::array<LoadCase, 3> kSinglePhaseOnPhase = {{
    {"终端负荷用电流矩(A.km)", 0},
    {"终端负荷用负荷矩(kW.km)", 2},
    {"终端负荷且cosφ=1或直流线路用负荷矩(kW.km)表示", 4},
}};

}  // namespace

std::span<const LoadCase> LoadCasesOf(int kind) {
  switch (kind) {
    case 0:
    case 1: return kAllForms;
    case 2: return kTwoPhaseN;
    case 3: return kSinglePhaseOnPhase;
    default: return {};
  }
}

std::optional<int> FormOf(int kind, int item) {
  const std::span<const LoadCase> cases = LoadCasesOf(kind);
  if (item < 0 || static_cast<std::size_t>(item) >= cases.size()) return std::nullopt;
  return cases[static_cast<std::size_t>(item)].form;
}

std::optional<bool> OtherLoadsEnabled(int kind, int item) {
  if ((kind == 2 || kind == 3) && item == 2) return false;
  if ((kind == 0 || kind == 1) && item == 4) return true;
  return std::nullopt;
}

}  // namespace kestra::dyss
