#include "diesel/diesel_formulas.h"

#include <cmath>

namespace kestra::diesel {

bool NearZero(double x) { return x > -1e-6 && x < 1e-6; }

// Each formula is evaluated in the handbook's order: the results are compared with hand
// calculations to the last printed digit.

double SteadyLoadCapacity(const SteadyLoadInputs& in) {
  if (NearZero(in.cos_phi) || NearZero(in.eta_sum)) return 0.0;
  return in.p_sum / (in.eta_sum * in.cos_phi);
}

double PeakLoadCapacity(const PeakLoadInputs& in) {
  if (NearZero(in.kg)) return 0.0;
  return (in.kj / in.kg) * in.sm;
}

double StartingCapacityFromPQ(const PeakLoadInputs& in) { return std::sqrt(in.pm * in.pm + in.qm * in.qm); }

double PeakLoadCapacityFromPQ(const PeakLoadInputs& in) {
  if (NearZero(in.kg)) return 0.0;
  return (in.kj / in.kg) * StartingCapacityFromPQ(in);
}

double BusDropCapacity(const BusDropInputs& in) {
  if (NearZero(in.delta_u)) return 0.0;
  return ((1.0 - in.delta_u) / in.delta_u) * in.xd * in.sst;
}

DieselResults Calculate(const DieselInputs& in) {
  DieselResults r;
  r.sg1 = SteadyLoadCapacity(in.steady);
  r.sg2 = NearZero(in.peak.sm) ? PeakLoadCapacityFromPQ(in.peak) : PeakLoadCapacity(in.peak);
  r.sg3 = BusDropCapacity(in.bus_drop);
  return r;
}

}  // namespace kestra::diesel
