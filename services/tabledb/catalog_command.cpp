#include "services/tabledb/catalog.h"

namespace kestra::catalog {

namespace {

void Usage(std::ostream& err) {
  err << "usage: kestra catalog build SRC_DIR OUT_FILE\n"
         "       kestra catalog export FILE DIR\n"
         "       kestra catalog check FILE line|motor|transformer|reactor\n";
}

}  // namespace

int RunCatalogCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (args.size() != 3) {
    Usage(err);
    return 2;
  }
  const std::string& verb = args[0];
  if (verb == "build") {
    if (auto e = BuildCatalogue(args[1], args[2]); !e.empty()) {
      err << e << "\n";
      return 1;
    }
    out << "built " << args[2] << "\n";
    return 0;
  }
  if (verb == "export") {
    if (auto e = ExportCatalogue(args[1], args[2]); !e.empty()) {
      err << e << "\n";
      return 1;
    }
    out << "exported " << args[1] << " to " << args[2] << "\n";
    return 0;
  }
  if (verb == "check") {
    const auto problems = CheckCatalogue(args[1], args[2]);
    if (problems.empty()) {
      out << "OK\n";
      return 0;
    }
    err << args[1] << " does not follow the " << args[2] << " catalogue conventions:\n";
    for (const auto& p : problems) err << "  " << p << "\n";
    return 1;
  }
  Usage(err);
  return 2;
}

}  // namespace kestra::catalog
