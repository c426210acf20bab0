// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Combines the attribute word of an item from the stored bits, its name and its permissions.

#pragma once

#include <sys/stat.h>

#include "platform/posix/attribute_source.h"

namespace quorbit {

// Returns the stored bits or, if none are stored, the defaults: read-only without the owner's write
// permission, hidden with a leading dot, archive for anything except a folder. Missing write
// permission also sets read-only on top of stored bits.
Result<std::uint32_t> ReadAttributeBits(AttributeSource& source, const AttributeItem& item,
                                        mode_t mode);

// Stores the bits and changes the write permissions to match read-only. Writes only what differs.
// Does nothing for links and special files. mode: the current st_mode.
Status WriteAttributeBits(AttributeSource& source, const AttributeItem& item, mode_t mode,
                          std::uint32_t bits);

// Returns the complete word: the folder bit added, or kAttributeNormal if no bit is set.
[[nodiscard]] std::uint32_t MakeAttributeWord(std::uint32_t bits, ItemKind kind);

}  // namespace quorbit
