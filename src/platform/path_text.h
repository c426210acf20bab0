// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Handles paths as text: separators, roots, last components and drives. Pure functions except
// MakeAbsolute. Any thread.
//
// A Windows path is one on every platform; its separator is the backslash, and a slash is accepted
// too. It starts with a drive ("C:\Data"), with a server and a share ("\\nas\backup\2024"), or with
// a single backslash ("\Data", on the current drive of Windows, which does not exist here). Every
// other path is native ("/home/me/Data/") and its separator is '/'. A backslash is an ordinary
// character of a native path; write "./\name" for a name that starts with one.

#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorbit {

// Maps the prefix of a Windows path to its native folder. A key is what DriveKey returns: "C:"
// (e.g. to "/mnt/c") or "\\nas\backup" (e.g. to "/mnt/nas").
using DriveMap = std::map<std::string, std::string>;

[[nodiscard]] bool IsDrivePath(std::string_view path);
// Returns true if the path starts with two backslashes.
[[nodiscard]] bool IsSharePath(std::string_view path);
// Returns true for drive paths and for paths that start with one or two backslashes.
[[nodiscard]] bool IsWindowsPath(std::string_view path);
[[nodiscard]] char SeparatorOf(std::string_view path);
[[nodiscard]] bool EndsInSeparator(std::string_view path);
// Adds a trailing separator if there is none. An empty path stays empty, since it must not turn
// into the root folder.
[[nodiscard]] std::string WithSeparator(std::string path);
// Returns true for "/", for "\", and for a drive or a share with or without separator ("C:", "C:\",
// "\\nas\backup").
[[nodiscard]] bool IsRoot(std::string_view path);
// Returns the parent without trailing separator, and the last component. Trailing separators of the
// path are ignored: "/a/b/" gives {"/a", "b"}, "/a" gives {"", "a"}, "C:\x\" gives {"C:", "x"}, "a"
// gives {"", "a"}, "\\nas\backup\x" gives {"\\nas\backup", "x"}.
[[nodiscard]] std::pair<std::string, std::string> SplitLast(std::string_view path);
// Returns the parent as a path that can be opened: like SplitLast, but the root folder or, for a
// relative path, the current folder (".") instead of an empty parent.
[[nodiscard]] std::string ParentFolder(std::string_view path);
// Returns the name of the destination folder for a whole volume: the letter of a drive path;
// otherwise the components of the path joined with '-', or "root" for "/".
[[nodiscard]] std::string VolumeName(std::string_view path);
// Returns the key of the drive map for a name in the settings: "C:" for "c", "\\nas\backup" for
// "\\nas\backup\". Empty if the name is neither a letter nor a server in UTF-8.
[[nodiscard]] std::string DriveKey(std::string_view name);

// A Windows path with its prefix mapped to a native folder.
struct MappedPath {
    std::string folder;              // without trailing separator; "" is the root folder
    std::vector<std::string> names;  // the path below the folder
    bool closed = false;             // the path ends in a separator, or is the root folder
};
// Returns nullopt for native paths, and if the drive or share is not in the map or not mapped to an
// absolute path. The longest prefix of a share path wins; case is ignored
// (platform/case_folding.h). ".." leads neither out of the drive nor out of the mapped folder.
[[nodiscard]] std::optional<MappedPath> MapPath(std::string_view path, const DriveMap& drives);
// Returns the native path. Empty if MapPath cannot map a Windows path.
[[nodiscard]] std::string ToNative(std::string_view path, const DriveMap& drives);
// Makes a native path from the command line absolute. If it contains "..", resolves the part up to
// the last one on the disk, because ".." after a link leads to the parent of its target. If that
// fails, the path keeps its "..". Does not resolve other links. Drive paths and the empty path are
// returned unchanged.
[[nodiscard]] std::string MakeAbsolute(std::string_view path);
// Returns text for the log and the screen: escapes, byte by byte as \x0A, what is not UTF-8,
// control characters, line and paragraph separators (U+2028, U+2029) and direction marks (U+061C,
// U+200E, U+200F, U+202A to U+202E, U+2066 to U+2069).
[[nodiscard]] std::string Printable(std::string_view text);
// The same, appended to `out`.
void AppendPrintable(std::string& out, std::string_view text);

}  // namespace quorbit
