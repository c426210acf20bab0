// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The attribute word of an item: what is stored for it, and what follows from its name and
// permissions.

#pragma once

#include <sys/stat.h>

#include "platform/posix/attribute_source.h"

namespace quorbit {

// The stored bits of the word, or what a file of that name and mode has by default: read-only
// without the owner's write permission, hidden with a leading dot, archive for anything but a
// folder. Read-only follows the permissions, too.
Result<std::uint32_t> ReadAttributeBits(AttributeSource& source, const AttributeItem& item,
                                        mode_t mode);

// Makes the bits read as wanted. Writes only what differs; read-only follows into the permissions.
Status WriteAttributeBits(AttributeSource& source, const AttributeItem& item, mode_t mode,
                          std::uint32_t bits);

// The whole word.
[[nodiscard]] std::uint32_t MakeAttributeWord(std::uint32_t bits, ItemKind kind);

}  // namespace quorbit
