#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include "services/tabledb/catalog.h"

int main(int argc, char** argv) {
  if (argc >= 2 && std::strcmp(argv[1], "catalog") == 0) {
    return kestra::catalog::RunCatalogCommand(std::vector<std::string>(argv + 2, argv + argc), std::cout, std::cerr);
  }
  std::puts("kestra 0.1.0 - OrvelKestra host (commands to come: WGGL, DYSSCAL, DJQDCAL, OrvelDieselContentCal)");
  return 0;
}
