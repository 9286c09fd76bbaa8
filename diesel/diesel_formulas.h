#pragma once
// The three methods of choosing a diesel generator set's apparent power (kVA): by the steady
// load (formula 2-6), by the peak load (2-7) and by the permitted voltage drop of the generator
// bus (2-8). Plain functions of numbers: no dialog, no file, no report text.
namespace kestra::diesel {

// A divisor strictly between -1e-6 and 1e-6 makes a formula give 0; NaN is not near zero.
bool NearZero(double x);

// Steady load: SG1 = P∑ / (η∑ cosφ).
struct SteadyLoadInputs {
  double p_sum = 0;    // P∑, total calculated load of the generator, kW
  double eta_sum = 0;  // η∑, combined efficiency of the loads
  double cos_phi = 0;  // cosφ, rated power factor of the generator
};
double SteadyLoadCapacity(const SteadyLoadInputs& in);

// Peak load: SG2 = (Kj / KG) Sm, or, for a designer who knows only the active and reactive
// power of the starting capacity, (Kj / KG) √(Pm² + Qm²).
struct PeakLoadInputs {
  double kj = 0;  // Kj, motor power factor under the peak's voltage and frequency dip
  double kg = 0;  // KG, permitted short-time overload factor of the generator
  double sm = 0;  // Sm, starting capacity of the largest motor or motor group, kVA
  double pm = 0;  // Pm, active power of Sm, kW
  double qm = 0;  // Qm, reactive power of Sm, kvar
};
double PeakLoadCapacity(const PeakLoadInputs& in);
double PeakLoadCapacityFromPQ(const PeakLoadInputs& in);
// √(Pm² + Qm²): the starting capacity that Pm and Qm stand for.
double StartingCapacityFromPQ(const PeakLoadInputs& in);

// Permitted bus voltage drop: SG3 = ((1 − △U) / △U) X'd Sst△.
struct BusDropInputs {
  double delta_u = 0;  // △U, permitted voltage drop of the generator bus, per unit
  double xd = 0;       // X'd, transient reactance of the generator, per unit
  double sst = 0;      // Sst△, largest starting capacity of the motor that causes it, kVA
};
double BusDropCapacity(const BusDropInputs& in);

// All three methods, as the report states them.
struct DieselInputs {
  SteadyLoadInputs steady;
  PeakLoadInputs peak;
  BusDropInputs bus_drop;
};
struct DieselResults {
  double sg1 = 0;  // kVA
  double sg2 = 0;  // from Pm and Qm when Sm is near zero, else from Sm
  double sg3 = 0;
};
DieselResults Calculate(const DieselInputs& in);

}  // namespace kestra::diesel
