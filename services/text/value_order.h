#pragma once
// The orders in which catalogue values are listed for the designer.
//
// Natural value order (the index lists of the line forms):
//   - a text is numeric when it begins with a digit, or with "+" or "-" followed by a digit;
//   - two texts that both hold a lower-case "x" ("3x50", "4x16") and whose parts before and
//     after their first "x" are all numeric go by the front number, then by the back number;
//   - otherwise numeric texts go by their leading number (95 against 3x50 is 95 against 3);
//   - numeric texts come after the others, which go by their characters, case-sensitively.
//   So 120, 3x50, 95, 铜, 4x16, 3x25 list as 铜, 3x25, 3x50, 4x16, 95, 120.
//
// Catalogue order (the motor, transformer and reactor lists):
//   - two texts that both hold "-" are split at their first "-" into head and tail: when all
//     four parts look numeric they go by head number, head text, tail number ("3-150" before
//     "3-185", "2-240" before "3-150"); otherwise by head text, and with equal heads by the
//     numbers around a "/" in the tails ("JS-4/1" before "JS-35/10");
//   - otherwise numbers go by value (9.5 before 10), numbers after other texts (ABC before
//     120), other texts by their characters (YB before YC).
//
// Both orders read numbers with the C library's decimal reading (services/text/number_text.h).
#include <string>
#include <vector>

namespace kestra::text {

enum class ValueOrder { Natural, Catalogue };

// The positions of texts in ascending order. Texts the order takes as equal keep the order
// in which they were given (the catalogue's own row order).
std::vector<int> SortedPositions(const std::vector<std::string>& texts, ValueOrder order);

// Sorts texts ascending in place, as SortedPositions orders them.
void SortValues(std::vector<std::string>& texts, ValueOrder order);

}  // namespace kestra::text
