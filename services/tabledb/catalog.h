#pragma once
// The catalogue tools behind "kestra catalog ...": build an SQLite catalogue from CSV
// sources, export any catalogue (SQLite or Access) back to CSV, check a catalogue against
// the conventions its calculator relies on.
#include <ostream>
#include <string>
#include <vector>

namespace kestra::catalog {

// args are the words after "catalog": build SRC_DIR OUT_FILE | export FILE DIR |
// check FILE KIND (KIND: line, motor, transformer, reactor). Returns the exit status.
int RunCatalogCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// Each returns an empty text on success, else what went wrong, in plain words.
std::string BuildCatalogue(const std::string& src_dir, const std::string& out_file);
std::string ExportCatalogue(const std::string& file, const std::string& dir);
// The problems found (empty when the catalogue follows the conventions of `kind`).
std::vector<std::string> CheckCatalogue(const std::string& file, const std::string& kind);

}  // namespace kestra::catalog
