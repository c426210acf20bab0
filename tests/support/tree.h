// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes and reads folder trees as text, one line per item, so that one assertion compares a whole
// tree:
//
//   "a.txt=content"    a file           "sub/"      a folder
//   "link->target"     a symbolic link  "pipe|"     a FIFO
//
// Uses none of the code under test.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorbit {

using TreeLines = std::vector<std::string>;

// Creates the items and their parent folders. Paths are relative to `root`.
void WriteTree(const std::string& root, const TreeLines& items);

// Returns every item below `root`, sorted. Content of more than 200 bytes is shown as size and
// hash.
TreeLines ReadTree(const std::string& root);

// The same with permissions and, except for folders, the last-write time in seconds and
// nanoseconds: "a.txt=content 0644 1700000000.000000001".
TreeLines ReadTreeWithDetails(const std::string& root);

// Sets the last-write time of an item, in seconds since 1970-01-01 UTC. Does not follow links.
void SetModified(const std::string& path, std::int64_t seconds, std::uint32_t nanoseconds = 0);

// Permission bits of an item. Follows links.
[[nodiscard]] unsigned ModeOf(const std::string& path);
void SetMode(const std::string& path, unsigned mode);

// Returns the content of a file, or "(none)" if it cannot be opened.
[[nodiscard]] std::string ContentOf(const std::string& path);
void WriteContent(const std::string& path, const std::string& content);

}  // namespace quorbit
