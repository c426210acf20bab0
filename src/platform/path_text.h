// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Handles paths as text: separators, roots, last components and drives. Pure functions except
// MakeAbsolute. Any thread.
//
// A path that starts with a letter and a colon is a drive path on every platform; its separator is
// the backslash, and a slash is accepted too. Every other path is native ("/home/me/Data/") and its
// separator is '/'. A backslash is an ordinary character of a native path.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace quorbit {

// Maps a drive letter (upper case) to its native folder, e.g. 'C' to "/mnt/c".
using DriveMap = std::map<char, std::string>;

[[nodiscard]] bool IsDrivePath(std::string_view path);
[[nodiscard]] char SeparatorOf(std::string_view path);
[[nodiscard]] bool EndsInSeparator(std::string_view path);
// Adds a trailing separator if there is none. An empty path stays empty, since it must not turn
// into the root folder.
[[nodiscard]] std::string WithSeparator(std::string path);
// Returns true for "/" and for a drive with or without separator ("C:", "C:\").
[[nodiscard]] bool IsRoot(std::string_view path);
// Returns the parent without trailing separator, and the last component. Trailing separators of the
// path are ignored: "/a/b/" gives {"/a", "b"}, "/a" gives {"", "a"}, "C:\x\" gives {"C:", "x"}, "a"
// gives {"", "a"}.
[[nodiscard]] std::pair<std::string, std::string> SplitLast(std::string_view path);
// Returns the parent as a path that can be opened: like SplitLast, but the root folder or, for a
// relative path, the current folder (".") instead of an empty parent.
[[nodiscard]] std::string ParentFolder(std::string_view path);
// Returns the name of the destination folder for a whole volume: the letter of a drive path;
// otherwise the components of the mount path joined with '-', or "root" for "/".
[[nodiscard]] std::string VolumeName(std::string_view path);
// Returns the native path. Empty if the letter of a drive path is not in the map or not mapped to
// an absolute path.
[[nodiscard]] std::string ToNative(std::string_view path, const DriveMap& drives);
// Makes a path from the command line absolute. Resolves "." and ".." in the text, without following
// links. Drive paths and the empty path are returned unchanged.
[[nodiscard]] std::string MakeAbsolute(std::string_view path);
// Returns text for the log and the screen: escapes, byte by byte as \x0A, what is not UTF-8,
// control characters, line and paragraph separators (U+2028, U+2029) and direction marks (U+061C,
// U+200E, U+200F, U+202A to U+202E, U+2066 to U+2069).
[[nodiscard]] std::string Printable(std::string_view text);
// The same, appended to `out`.
void AppendPrintable(std::string& out, std::string_view text);

}  // namespace quorbit
