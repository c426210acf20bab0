// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Replaces a small file of our own (a batch file, a settings file) whole or not at all, and makes
// sure that the new content is on the disk before the old one goes.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace quorbit {

// Writes content beside path, syncs it, gives it the permissions of the file that it replaces,
// renames it over path and syncs the folder. On failure the old file stands and nothing is left
// behind. A symbolic link at path is followed: the file that it names is replaced.
Status ReplaceFile(const std::string& path, std::string_view content);

// Whether ReplaceFile would be allowed to: Ok also for a file that is yet to be made.
Status CanReplace(const std::string& path);

// Reads a regular file whole. Refuses anything else, and files above maxBytes (DiskFull stands for
// "too large").
Result<std::string> ReadWholeFile(const std::string& path, std::uint64_t maxBytes);

}  // namespace quorbit
