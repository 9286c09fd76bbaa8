#pragma once
// Data files are named the Windows way ("datcom\qddkq.mdb", "\Image\Wgglbc.RTF"): backslashes
// and any letter case. These helpers join them to the data root and find the real file.
#include <string>
#include <string_view>

namespace kestra::text {

// The data root of a module file: cut at the last separator, then once more
// ("D:\Prog\Sys\module.arx" -> "D:\Prog"). A cut that finds no separator changes nothing.
std::string DataRootOfModule(std::string_view module_path);

// The full path of a file named relative to the current folder, as the system names a loaded
// module ("bin/OrvelKestra.so" -> "/opt/kestra/bin/OrvelKestra.so"); "." and ".." are taken out,
// links are not followed. An empty text stays empty.
std::string FullPath(std::string_view path);

// root + separator (when root ends with none and rel does not start with one) + rel.
std::string JoinDataRoot(std::string_view root, std::string_view rel);

// Turns a joined path with "\" or "/" separators into a real path: each component that
// exists on disk under another ASCII letter case is taken with its real spelling; the
// components from the first one that does not exist on are kept as written.
std::string ResolvePath(std::string_view path);

// ResolvePath(JoinDataRoot(root, rel)).
std::string DataPath(std::string_view root, std::string_view rel);

// True when path exists but is no regular file (a FIFO, a device, a folder; links followed):
// opening one to read it could wait for a writer or read forever.
bool IsSpecialFile(const std::string& path);

// ASCII-only case-insensitive equality (Chinese names compare exactly).
bool EqualsNoCase(std::string_view a, std::string_view b);

}  // namespace kestra::text
