#pragma once
// Template and control ids of the generator-capacity dialog and its pages (res/diesel.rc).
// The pages reuse the same numbers for different quantities, so each page has its own names.

namespace kestra::diesel {

namespace ids {
inline constexpr int kMainDialog = 200;  // ZoUiCyfdjzrlCalDlg
inline constexpr int kSteadyLoadPage = 201;
inline constexpr int kPeakLoadPage = 202;
inline constexpr int kBusDropPage = 203;

inline constexpr int kReport = 213;     // "计算书"
inline constexpr int kCalculate = 214;  // "计算"
inline constexpr int kTab = 215;
}  // namespace ids

// Steady-load page: inputs, the result, and the subscript labels in the small font (the first
// one is the model of that font).
namespace steady_ids {
inline constexpr int kPSum = 216, kEtaSum = 217, kCosPhi = 218, kSg1 = 219;
inline constexpr int kSubscripts[] = {225 /* P∑ */, 229 /* η∑ */, 231 /* SG1 */};
}  // namespace steady_ids

namespace peak_ids {
inline constexpr int kKj = 216, kKg = 217, kSm = 218, kPm = 219, kQm = 220, kSg2 = 221;
inline constexpr int kSubscripts[] = {225 /* KG */, 229 /* SG2 */};
}  // namespace peak_ids

namespace bus_drop_ids {
inline constexpr int kSg3 = 216, kDeltaU = 217, kXd = 218, kSst = 219;
inline constexpr int kSubscripts[] = {225 /* X'd */, 229 /* Sst△ */, 231 /* SG3 */};
}  // namespace bus_drop_ids

}  // namespace kestra::diesel
