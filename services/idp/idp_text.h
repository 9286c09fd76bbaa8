#pragma once
// Texts of parameter files: UTF-8 checks, the UTF-16 length that callers store, key paths
// and the escaping of values on a line.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestra::idp {

// Well-formed UTF-8: no stray or missing continuation bytes, no overlong forms, no surrogates,
// nothing above U+10FFFF.
bool IsValidUtf8(std::string_view s);

// Characters counted as UTF-16 code units (characters above U+FFFF count twice), as the
// stored length of a value counts them. The text must be valid UTF-8.
std::size_t Utf16Units(std::string_view s);

// The stored length of a text: Utf16Units + 1, capped at the largest 16-bit value.
short StoredLength(std::string_view text);

// The largest key path a parameter file holds: the calculators' deepest keys have six names
// and some fifty bytes. A file with a longer or deeper key is not one of ours (it counts as
// unreadable), and such a key is never stored, so no tree grows deep enough to hurt.
inline constexpr std::size_t kMaxKeyDepth = 32;
inline constexpr std::size_t kMaxKeyPathBytes = 1024;

// A name of a key path: not empty, no "\", "=" or control character.
bool IsKeyName(std::string_view name);

// Splits a key path at "\" into its names. Empty (nullopt) when a name is empty or holds "="
// or a control character, when the path is not valid UTF-8, when it begins with ";" (the
// line would read as a comment), or when it is longer or deeper than the limits above.
std::optional<std::vector<std::string_view>> SplitKeyPath(std::string_view key_path);

// "\" -> "\\", line feed -> "\n", carriage return -> "\r", tab -> "\t"; the rest as it is.
void AppendEscaped(std::string& out, std::string_view value);
// The reverse; false on a "\" followed by anything else or by nothing.
bool Unescape(std::string_view line_value, std::string& out);

}  // namespace kestra::idp
