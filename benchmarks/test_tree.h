// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Creates, checks and deletes the trees of the benchmarks.

#pragma once

#include <cstdint>
#include <string>

namespace quorbit::bench {

// The shape of a tree: folders directly below its top, with files of equal size.
struct TreeShape {
    std::uint64_t folders = 0;
    std::uint64_t filesPerFolder = 0;
    std::uint64_t fileSize = 0;  // bytes

    [[nodiscard]] std::uint64_t Files() const { return folders * filesPerFolder; }
    // Returns a text such as "50,000 files of 4 KB".
    [[nodiscard]] std::string Text() const;
};

// Creates the tree unless an earlier call has created the same one there. The contents are random,
// so they are neither compressible nor sparse, and the same on every run. Gives up on a write
// error.
void EnsureTree(const std::string& path, const TreeShape& shape);
// Reads all files, so that they are in the page cache.
void WarmUp(const std::string& path);
// Returns an empty string if the tree has the number of files and bytes of the shape, otherwise a
// message. Does not compare the contents. A tree that does not exist counts as empty.
[[nodiscard]] std::string CompareTree(const std::string& path, const TreeShape& shape);
// Deletes a tree. Does nothing if it does not exist.
void RemoveTree(const std::string& path);

}  // namespace quorbit::bench
