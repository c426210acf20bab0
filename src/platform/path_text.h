// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Paths as text: the one place that knows separators, roots, last components and drives.
//
// A path that starts with a letter and a colon is a drive path on every platform; its separator is
// the backslash. Every other path is native ("/home/me/Data/") and its separator is '/'. A name is
// never split on a character that is legal in it on its platform, so the backslash is an ordinary
// character of a native path.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace quorbit {

// Drive letter (upper case) to the native folder that it stands for, e.g. 'C' to "/mnt/c".
using DriveMap = std::map<char, std::string>;

[[nodiscard]] bool IsDrivePath(std::string_view path);
[[nodiscard]] char SeparatorOf(std::string_view path);
[[nodiscard]] bool EndsInSeparator(std::string_view path);
// The path with a closing separator of its own kind. An empty path stays empty: it names nothing,
// and must not turn into the root folder.
[[nodiscard]] std::string WithSeparator(std::string path);
// "/", or a drive with or without its separator ("C:", "C:\").
[[nodiscard]] bool IsRoot(std::string_view path);
// The parent without closing separator, and the last component; closing separators of the path do
// not count.
// "/a/b/" gives {"/a", "b"}, "/a" gives {"", "a"}, "C:\x\" gives {"C:", "x"}, "a" gives {"", "a"}.
[[nodiscard]] std::pair<std::string, std::string> SplitLast(std::string_view path);
// The parent as a path that can be opened: where SplitLast gives none, the root folder or, for a
// relative path, the current one.
[[nodiscard]] std::string ParentFolder(std::string_view path);
// What the folder of a whole volume is called below a destination: the letter of a drive path; for
// a mount path its components joined by '-', and "root" for "/".
[[nodiscard]] std::string VolumeName(std::string_view path);
// The path as the system takes it. A drive path needs its letter in the map, else the result is
// empty.
[[nodiscard]] std::string ToNative(std::string_view path, const DriveMap& drives);
// Absolute form of a path given on the command line; "." and ".." are resolved as text, links are
// not.
[[nodiscard]] std::string MakeAbsolute(std::string_view path);
// Text for the log and the screen: control characters and bytes that are not UTF-8 as \x0A,
// everything else as it is.
[[nodiscard]] std::string Printable(std::string_view text);
// The same, behind what out holds.
void AppendPrintable(std::string& out, std::string_view text);

}  // namespace quorbit
