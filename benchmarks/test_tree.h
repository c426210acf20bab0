// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The trees that are copied, counted and deleted.

#pragma once

#include <cstdint>
#include <string>

namespace quorbit::bench {

// Folders of files of one size, side by side below the top of the tree.
struct TreeShape {
    std::uint64_t folders = 0;
    std::uint64_t filesPerFolder = 0;
    std::uint64_t fileSize = 0;  // bytes

    [[nodiscard]] std::uint64_t Files() const { return folders * filesPerFolder; }
    // "50,000 files of 4 KB"
    [[nodiscard]] std::string Text() const;
};

// Makes the tree, unless an earlier call has made the same one there. The content does not compress
// and has no holes.
void EnsureTree(const std::string& path, const TreeShape& shape);
// Reads every file, so that the system holds it in memory.
void WarmUp(const std::string& path);
// Empty if the tree holds as many files and bytes as the shape says, else what is wrong.
[[nodiscard]] std::string CompareTree(const std::string& path, const TreeShape& shape);
// Deletes a tree; one that is not there is fine.
void RemoveTree(const std::string& path);

}  // namespace quorbit::bench
