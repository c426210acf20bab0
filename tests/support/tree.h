// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Whole trees as short texts, one item a line, for writing them and for comparing them in one
// assertion:
//
//   "a.txt=content"    a file           "sub/"      a folder
//   "link->target"     a symbolic link  "pipe|"     a FIFO
//
// Nothing here uses the code that is tested with it.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorbit {

using TreeLines = std::vector<std::string>;

// Makes the items, and the folders that lead to them. Paths are relative to root.
void WriteTree(const std::string& root, const TreeLines& items);

// Every item below root, sorted. Content of more than 200 bytes is given as its size and a hash.
TreeLines ReadTree(const std::string& root);

// The same with permissions and, for everything but folders, the last-write time to the nanosecond:
// "a.txt=content 0644 1700000000.000000001".
TreeLines ReadTreeWithDetails(const std::string& root);

// Sets the last-write time of an item; a link's own.
void SetModified(const std::string& path, std::int64_t seconds, std::uint32_t nanoseconds = 0);

// Permission bits of an item; of what a link points to.
[[nodiscard]] unsigned ModeOf(const std::string& path);
void SetMode(const std::string& path, unsigned mode);

// Content of a regular file; "(none)" if there is none.
[[nodiscard]] std::string ContentOf(const std::string& path);
void WriteContent(const std::string& path, const std::string& content);

}  // namespace quorbit
