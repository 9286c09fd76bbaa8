#pragma once
// The voltage-loss calculator's arithmetic, free of any dialog: the voltage loss Δu of a line for
// each line kind and input form, the permissible line length for a required loss, and the
// third-harmonic correction of the section current. Inputs are the texts and numbers the forms
// hold; results carry every value the calculation report prints, so the report only formats.
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace kestra::dyss {

// The line kinds, in list order (both pages).
enum LineKind : int {
  kThreePhase = 0,          // 三相平衡 (负荷) 线路
  kSinglePhaseOnLine = 1,   // 接于线电压的单相负荷线路
  kTwoPhaseN = 2,           // 接于相电压的两相-N线平衡负荷线路
  kSinglePhaseOnPhase = 3,  // 接相电压的单相负荷线路
};

// Why a calculation that passed its checks has no number to show.
enum class Outcome {
  kValue,       // the value is finite
  kNoLineData,  // the line's data are missing (U = 0, or no impedance): the formula divides by 0
  kNotFinite,   // the inputs are so large or small that the quotient is not a finite number
  kNoFormula,   // the kind has no such form (kinds 2 and 3 have no six-load forms 1 and 3)
};

// One input of a form: which field, and for the six-load fields which load (0..5; 0 is also the
// single load of forms 0 and 2). Checks and stored keys name their field this way.
enum class Field { kPowerFactor, kCurrent, kLength, kLoad, kSection, kCoefficient, kRequire };
struct FieldRef {
  Field field;
  int element = 0;
  bool operator==(const FieldRef&) const = default;
};

// The text a result edit shows: the value with "%.3f", or what stands for no number
// (kNoLineDataText, kNoFormulaText of dyss_messages.h; "溢出"/"无效" for a value not finite).
std::string ResultText(Outcome outcome, double value);

// The voltage-loss page: what the shown form holds (forms 0 to 4). Single-load forms use
// element 0 of the arrays; empty texts count 0.
struct LossInputs {
  int kind = kThreePhase;  // 0..3
  int form = 0;            // 0..4, as chosen by kind and load situation
  double cos_phi = 0;      // forms 0 to 3
  std::array<std::string, 6> current;  // I, I1..I6 (A)
  std::array<std::string, 6> length;   // l, l1..l6 (km)
  std::array<std::string, 6> load;     // P, P1..P6 (kW)
  std::string section;                 // form 4: S (mm²), the section box's text
  std::string coefficient;             // form 4: C
  std::array<std::string, 3> line;     // forms 0 to 3: the line's R′ (Ω/km), X′ (Ω/km), U (kV) texts
};

// The text of a field of the voltage-loss page (power factor and required loss: empty).
const std::string& TextOf(const LossInputs& in, FieldRef f);

struct LossResult {
  Outcome outcome = Outcome::kValue;
  double du = 0;  // Δu (%), meaningful only for Outcome::kValue
  // The numbers the formulas used: num() of every text, and the derived terms.
  double cos_phi = 0, sin_phi = 0, tan_phi = 0;  // sinφ = √(1 − cos²φ), tgφ = sinφ / cosφ
  double r = 0, x = 0, u = 0;
  std::array<double, 6> current{}, length{}, load{};
  double sum_il = 0;  // ΣIL = I1·l1 + … + I6·l6, in that order
  double sum_pl = 0;  // ΣpL = P1·l1 + … + P6·l6
  double c = 0, s = 0;
};

// Δu by the formula of the kind and form, the constants as written (1.732 for √3, 2.598 for
// 1.5·√3, 2.25, U/1.732 for the phase voltage of kind 3) and every expression grouped as the
// handbook writes it. Kinds 2 and 3 use P1·l1 only on form 4. No line data: U = 0 on forms 0 to 3.
LossResult ComputeLoss(const LossInputs& in);

// The line-length page: what the shown form and the page hold.
struct LengthInputs {
  int kind = kThreePhase;  // 0..3
  int form = 0;            // 0: current moment (I), 1: load moment (P)
  std::string current;     // form 0: I (A)
  std::string load;        // form 1: P (kW)
  double cos_phi = 0;      // the form's power factor as held
  std::string require;     // required voltage loss Δu (%)
  std::array<std::string, 3> line;  // R′, X′, Un texts
};

// The text of a field of the line-length page (current, load, required loss; others: empty).
const std::string& TextOf(const LengthInputs& in, FieldRef f);

struct LengthResult {
  Outcome outcome = Outcome::kValue;
  double l = 0;  // permissible length (km)
  // cosφ is the power factor as its "%.3f" text reads (the calculation works with three decimals).
  double cos_phi = 0, sin_phi = 0, tan_phi = 0;
  double r = 0, x = 0, u = 0;
  double du = 0;       // num(required loss)
  double current = 0;  // num(I)
  double load = 0;     // num(P)
};

// l by the formula of the kind and form (0.245 km for kind 0, form 0 with Un 0.38, R′ 0.5,
// X′ 0.08, I 100, cosφ 0.8, Δu 5). No line data: Un = 0, or the impedance term is 0.
LengthResult ComputeLength(const LengthInputs& in);

// The third-harmonic correction for a harmonic position of the list: the K text, the section
// current I′ and its text ("%g" for 无谐波 and 50%, "%.3f" for 20% and 40%). Positions outside
// 0..3 change nothing (nullopt).
struct HarmonicCurrent {
  const char* k_text;
  double i_prime;
  std::string i_prime_text;
};
std::optional<HarmonicCurrent> HarmonicCurrentOf(int position, double i);

// The length under harmonics with the section current I′ read from its edit, for a line whose
// length was just computed. When the rated ampacity is below I′ (equal passes) there is no length.
struct HarmonicLength {
  double i_prime = 0;  // num(I′ text)
  double rated = 0;    // num(rated ampacity text)
  bool ampacity_short = false;
  Outcome outcome = Outcome::kValue;
  double l_prime = 0;  // L′ (km), meaningful when the ampacity suffices and Outcome::kValue
};
HarmonicLength ComputeHarmonicLength(const LengthResult& line, std::string_view i_prime_text,
                                     std::string_view rated_text);

// sinφ = √(1 − cosφ·cosφ) and tgφ = sinφ / cosφ of a power factor, as the reports write them.
struct PhiTerms {
  double cos_phi, sin_phi, tan_phi;
};
PhiTerms PhiTermsOf(double cos_phi);

// One step of a power-factor spin: cosφ − delta/20, limited to 0..1 (the up arrow reports −1).
double SpinPowerFactor(double cos_phi, int delta);

// Focus-loss rules of the line-length page: a current (I, I′) that is negative or empty becomes 1;
// a rated ampacity that is negative becomes 0. The dialog writes the value back with "%g".
double NormalisedCurrent(std::string_view text);
double NormalisedRating(std::string_view text);

}  // namespace kestra::dyss
