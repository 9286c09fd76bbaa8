#pragma once
// Cells as texts: the text a designer reads in a list is the text a query compares with.
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_value;

namespace kestra::tabledb {

// Numbers: the shortest text that reads back to the same number ("500", "1.05", "0.0754");
// integers as integers; texts as they are; NULL as "".
std::string CellText(sqlite3_value* v);
std::string NumberText(double d);
// A cell of a number column (R′, a motor's currents) as the calculators show and read it: its text,
// or text::kInvalidText when the text holds no number at all ("nan", "abc" in a damaged
// catalogue). Either way it reads as 0; the designer then sees the damaged cell in the line data
// and the report instead of a "nan" that looks like a value.
std::string NumberCellText(std::string_view text);

// LIKE as the catalogues need it: "%" any run of characters, "_" one character, ASCII
// letters without regard to case, other characters exactly; `escape` (0 for none) makes
// the next pattern character literal. Works on UTF-8 characters.
bool LikeMatch(std::string_view pattern, std::string_view text, char32_t escape = 0);

// True when the pattern holds no wildcard (so LIKE is an equality without regard to ASCII case).
bool IsPlainPattern(std::string_view pattern);

// Registers like/2 and like/3 (LikeMatch on CellText of the cell) on a connection.
void RegisterCellFunctions(sqlite3* db);

}  // namespace kestra::tabledb
