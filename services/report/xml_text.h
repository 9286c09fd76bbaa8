#pragma once
// Text made fit for an XML 1.0 document.
#include <string>
#include <string_view>

namespace kestra::report {

// Appends `text` to `out` as XML character data (also fit for a double-quoted attribute):
// & < > " escaped; characters XML 1.0 forbids (controls other than tab, line feed and carriage
// return; U+FFFE, U+FFFF) left out; a byte sequence that is not UTF-8 replaced by U+FFFD.
void AppendXmlEscaped(std::string& out, std::string_view text);
std::string XmlEscaped(std::string_view text);

}  // namespace kestra::report
