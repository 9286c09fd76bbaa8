#include <cstdio>
int main() {
  std::puts("kestra 0.1.0 - OrvelKestra host (commands to come: WGGL, DYSSCAL, DJQDCAL, OrvelDieselContentCal)");
  return 0;
}
