// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Replaces a small file of Quorbit's own (batch file, settings file) atomically; the new content is
// on the disk before the old one is replaced. Any thread.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace quorbit {

// Writes content to a staged file, gives it the metadata of the file that it replaces, syncs it,
// renames it over path and syncs the folder. On failure the old file is unchanged and nothing is
// left behind. If path is a symbolic link, its target is replaced. AccessDenied if the file is
// read-only, even for root. AlreadyExists if the file appears during the call.
Status ReplaceFile(const std::string& path, std::string_view content);
// Like ReplaceFile, but fails with AlreadyExists if the file exists.
Status CreateNewFile(const std::string& path, std::string_view content);

// Returns Ok if permissions allow ReplaceFile to replace or create the file. Writes nothing.
Status CanReplace(const std::string& path);

// Returns the content of a regular file. Fails for any other item, and with DiskFull ("The file is
// too large") for files above maxBytes.
Result<std::string> ReadWholeFile(const std::string& path, std::uint64_t maxBytes);
// Returns the first bytes of a regular file, all of them if it has fewer.
Result<std::string> ReadStartOfFile(const std::string& path, std::uint64_t maxBytes);

}  // namespace quorbit
