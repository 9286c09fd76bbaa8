#pragma once
// The text of a parameter file: "KEY\PATH=escaped value" lines, ";" comments, blank lines.
#include <string>
#include <string_view>

class IdpNode;

namespace kestra::idp {

// The first line every written file carries.
inline constexpr std::string_view kFileHeader = "; OrvelKestra parameter file";

// Adds the values of a file's text to root. False (with a message naming the line) on a
// non-comment line without "=", an empty name in a key path, a bad escape or invalid UTF-8;
// root may then hold part of the text, so parse into a fresh tree.
// A UTF-8 byte-order mark at the start and CR LF line ends (files edited on Windows) are accepted.
bool ParseIdpText(std::string_view text, IdpNode& root, std::string* error);

// The whole tree as file text: the header line, then one line per value, depth first in the
// order the keys were added.
std::string FormatIdpText(const IdpNode& root);

}  // namespace kestra::idp
