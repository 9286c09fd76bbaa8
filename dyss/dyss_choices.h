#pragma once
// The load situations each line kind offers on the voltage-loss page, the input form each one
// selects, and when form 4 takes six loads or only the first.
#include <optional>
#include <span>

namespace kestra::dyss {

struct LoadCase {
  const char* text;  // the item of the load-situation list
  int form;          // the input form it selects (0..4)
};

// The load situations of a kind in list order; empty for a kind outside 0..3 (the list is then
// left as it is).
std::span<const LoadCase> LoadCasesOf(int kind);

// The form of a load-situation item: the item for kinds 0 and 1, twice the item for kinds 2 and
// 3; nullopt when the kind or the item is not in the lists.
std::optional<int> FormOf(int kind, int item);

// Form 4's edits of P2..P6 and l2..l6: disabled for kinds 2 and 3 at item 2 (their form 4 takes
// one load), enabled for kinds 0 and 1 at item 4; nullopt elsewhere (they keep their state).
std::optional<bool> OtherLoadsEnabled(int kind, int item);

}  // namespace kestra::dyss
