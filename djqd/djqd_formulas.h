#pragma once
// The motor-start calculator's arithmetic, free of any dialog: the voltage drop of a motor
// start for the four starting methods, the reactor and autotransformer ratio that meet a
// required bus voltage, the starting-torque check, the starting time and the overload check
// of the starting apparatus. Every intermediate value a report prints is kept in the results,
// so a report only formats. Units: MVA, kV, A, Ω, mm², km; voltages relative (per unit).
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestra::djqd {

enum class StartMethod {
  FullVoltage = 0,      // "全压起动"
  TransformerUnit = 1,  // "变压器-电动机组(全压起动)"
  Reactor = 2,          // "电抗器降压起动"
  Autotransformer = 3,  // "自耦变压器降压起动"
};

// Cable type index as in the "线缆类型" combo: 0 "铜", 1 "铝", 2 "聚乙烯", 3 "纸绝缘".
inline constexpr int kCopper = 0, kAluminium = 1, kPolyethylene = 2, kPaperInsulated = 3;

// Which formula gave a cable's reactance; the report prints a different line for each.
enum class CableFormula {
  Omitted,        // S = 0 or L = 0 (or a type without a rule): Xl = 0
  CopperLarge,    // S > 150: (0.08 + 6.1/S)·L
  CopperSmall,    // S ≤ 150: (0.08 + 18.3/S)·L
  AluminiumLarge, // S > 240: (0.08 + 10/S)·L
  AluminiumSmall, // S ≤ 240: (0.08 + 30/S)·L
  Polyethylene,   // 0.09·L
  PaperInsulated, // 0.07·L
};

struct CableReactance {
  CableFormula formula = CableFormula::Omitted;
  double xl = 0;  // Ω
};

// The cable rule of the voltage-drop calculation. The thresholds compare strictly, so 150 mm²
// copper and 240 mm² aluminium take the formula of the smaller sections.
CableReactance CableReactanceOf(int type, double section, double length);
// The rule of the re-check with an actual autotransformer ratio: copper (0.07 + 6.3/S)·L,
// aluminium (0.07 + 10/S)·L, no threshold. That rule names no other cable; polyethylene
// and paper-insulated cables take 0.09·L and 0.07·L as in the voltage-drop calculation.
double RatioRecheckCableReactance(int type, double section, double length);

struct Motor {
  double pr = 0;  // rated power, kW
  double nr = 0;  // speed, r/min
  double ir = 0;  // rated current, A
  double iq = 0;  // starting current, A
  double ur = 0;  // rated voltage, kV
};

struct Cable {
  int type = kCopper;
  double section = 0;  // mm²
  double length = 0;   // km
};

// The quantities every calculation starts from.
struct Basics {
  double kst = 0;     // Iq / Ir
  double srm = 0;     // 1.732·Ur·Ir / 1000, MVA
  double sstm = 0;    // Kst·Srm, MVA
  CableReactance cable;
  double sin_phi = 0; // √(1 − cos²φ)
  double qfh = 0;     // Sfh·sinφ, Mvar
};

// A typed power factor above 1 has no sine; the checks let it through (they ask only for a
// positive number), so every calculation says so instead of producing a NaN.
enum class Status {
  Ok,
  PowerFactorAboveOne,
  NoReactance,       // page 2: no catalogue reactance at or above the calculated one
  NoRatio,           // page 3: X ≤ 0, no ratio meets the requirement with this cable
};

// Kst, Srm, Sstm, Xl, sinφ, Qfh; nullopt for cosφ above 1.
std::optional<Basics> BasicsOf(const Motor& m, const Cable& c, double sfh, double cos_phi);

// ---- Voltage drop at the start (the first page) ----

struct StartInputs {
  StartMethod method = StartMethod::FullVoltage;
  double sk = 0;    // system S" (full voltage) or bus Skm (the others), MVA
  double srt = 0;   // transformer rated capacity, MVA (methods 0 and 1)
  double ut = 0;    // transformer impedance voltage, relative (methods 0 and 1)
  double xk = 0;    // reactor reactance per phase, Ω (method 2)
  double kz = 0;    // autotransformer ratio (method 3)
  double sfh = 0;   // pre-connected load, MVA
  double cos_phi = 0;
  double um = 0;    // bus nominal voltage, kV
  Cable cable;
  Motor motor;
};

struct StartResults {
  Status status = Status::Ok;
  Basics basics;
  double skm = 0;        // bus short-circuit capacity, MVA
  double sst = 0;        // input capacity of the starting circuit, MVA
  double ustm = 0;       // bus voltage, relative
  double ustm_motor = 0; // ustM, motor terminal voltage, relative
  double istm = 0;       // the result field: methods 1 and 3 at Ur, methods 0 and 2 at UM (A)
  double istm_at_bus = 0;// Ustm·Sst / (1.732·UM)·1000 for every method, as the report prints it
};

StartResults StartVoltageDrop(const StartInputs& in);

// ---- Back-calculations of the reactor and autotransformer pages ----

struct RequirementInputs {
  double skm = 0, sfh = 0, cos_phi = 0, um = 0;
  double ustm_required = 0;  // in (0, 1)
  Cable cable;
  Motor motor;
};

// The input capacity of the starting circuit that just gives the required bus voltage:
// Sst = (Skm + Qfh)/Ustm − Skm − Qfh.
double RequiredStartingCapacity(double skm, double qfh, double ustm_required);

struct ReactorResults {
  Status status = Status::Ok;
  Basics basics;
  double sst_required = 0;  // for the required Ustm
  double xk = 0;            // calculated reactance UM²·(1/Sst − Xl/UM² − 1/Sstm), Ω
  // With the actual reactance Xz (only with status Ok):
  double xz = 0;
  double sst = 0;
  double ustm = 0, ustm_motor = 0, istm = 0;
};

// The smallest catalogue reactance not below xk; values of 10000 Ω or more are never taken.
// −1 when none qualifies.
double ChooseActualReactance(const std::vector<double>& catalogue, double xk);

// Xk from the requirement, then the results with the actual reactance chosen from the
// catalogue's reactances (status NoReactance leaves xz and the results 0).
ReactorResults ReactorForRequirement(const RequirementInputs& in, const std::vector<double>& catalogue);

struct RatioResults {
  Status status = Status::Ok;
  Basics basics;
  double sst_required = 0;
  double x = 0;   // Sstm·(1/Sst − Xl/UM²); a ratio exists only when positive
  double kz = 0;  // 1/√X
};

RatioResults RatioForRequirement(const RequirementInputs& in);

// The results with an actual ratio Kk (cable by the re-check's own rule); the working
// values are not touched by this re-check.
struct RatioRecheck {
  Status status = Status::Ok;
  Basics basics;  // cable.xl holds the re-check rule's reactance
  double sst = 0, ustm = 0, ustm_motor = 0, istm = 0;
};
RatioRecheck RecheckActualRatio(const RequirementInputs& in, double kk);

// ---- Choosing the reactor model from the catalogue ----

// The reactance text as the catalogue holds it: trailing "0" characters removed one by one
// ("1.050" gives "1.05", "2.000" gives "2.", "10.000" gives "10.").
std::string TrimTrailingZeros(std::string_view text);

// Of the catalogue's starting currents, those not below istm are kept; the index of the
// smallest kept one below 10000 A (the first of equal ones), else of the first kept one;
// −1 when none is kept.
int ChooseStartingCurrent(const std::vector<double>& currents, double istm);

// ---- Starting torque, starting time, overload of the starting apparatus ----

// The least relative terminal voltage that still starts the machine: √(1.1·Mj/MstM).
double RequiredTerminalVoltage(double mj, double mstm);
// ustM at least the required voltage.
bool TorqueCheckPasses(double ustm_motor, double mj, double mstm);

// t = J²·Nr² / [365·PrM·(ustM²·Mstp − Mj)] in seconds. Negative when the motor torque does
// not exceed the resisting torque; nullopt when the denominator is 0 or the result is not a
// finite number (a power of 0 read from an unchecked field).
std::optional<double> StartingTime(double j2, double nr, double prm, double ustm_motor, double mstp,
                                   double mj);
// A time the page reports as a result: positive.
inline bool HasStartingTime(const std::optional<double>& t) { return t && *t > 0; }

// The overload check's value; nullopt when not a finite number.
// Transformer-motor unit: KI = ustM·Sstm / SrT.
std::optional<double> OverloadTransformerUnit(double ustm_motor, double sstm, double srt);
// Reactor (first page's method 2 and the reactor page): Iqk = Istm/1000·t·2/120.
std::optional<double> OverloadReactor(double istm, double t);
// Autotransformer (method 3 and the ratio page): SrTz = Ustm·Sst·t·2/120.
std::optional<double> OverloadAutotransformer(double ustm, double sst, double t);

// The static resisting torque of a picked table cell: "0.3~0.5" gives the mean 0.4, "0.25"
// gives 0.25, an empty text gives nullopt (the value stays as it was).
std::optional<double> ResistingTorqueOfCell(std::string_view cell);

// One step of a power-factor spin (delta −1 for the up arrow): a value outside [0.01, 1]
// starts again from 0.01 (and the dialog warns); then cosφ − delta/100, clamped to [0.01, 1].
struct SpinResult {
  double cos_phi = 0;
  bool warned = false;
};
SpinResult SpinPowerFactor(double cos_phi, int delta);

}  // namespace kestra::djqd
