#pragma once
// What the voltage-loss dialog owns for its life and lends to its pages and forms: the open line
// catalogue, the parameter tree of "Kestra\电压损失计算.idp", and the working values by which the
// forms of a page hand their values to one another (a form that is left copies its values into
// them; the form shown next takes its values from them).
#include <array>
#include <string>

class CADODatabase;
class CInterDpData;

namespace kestra::shell {
class ModuleContext;
}

namespace kestra::dyss {

// The line chosen on a line-data form: its position in the line-name list and the positions in
// the first, second and third index list.
struct LinePositions {
  int line_name = 0;
  std::array<int, 3> index{};
};

// The voltage-loss page's five forms share one set: m_nLineName, m_nIndex1..3, m_dCosPhi, and
// the currents, lengths and active loads of six loads (the single load of forms 0 and 2 is load 1).
struct LossWorkingValues {
  LinePositions line;
  double cos_phi = 0;
  std::array<double, 6> current{};  // A
  std::array<double, 6> length{};   // km
  std::array<double, 6> load{};     // kW
};

// The line-length page keeps its own set for its two forms.
struct LengthWorkingValues {
  LinePositions line;
  double cos_phi = 0;
  double current = 0;   // I (A)
  double load = 0;      // P (kW)
  double length = 0;    // l (km)
  std::string require;  // the required voltage loss as typed
};

struct DyssState {
  explicit DyssState(const shell::ModuleContext& m) : module(m) {}

  const shell::ModuleContext& module;
  CADODatabase* db = nullptr;  // the line catalogue when it is open
  CInterDpData* idp = nullptr;  // the dialog's parameter tree
  std::string idp_path;         // data root + "Kestra\电压损失计算.idp"
  LossWorkingValues loss;
  LengthWorkingValues length;
};

}  // namespace kestra::dyss
