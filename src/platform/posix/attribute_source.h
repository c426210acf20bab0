// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads and writes the read-only, hidden, system and archive attributes as a volume stores them.
// Any thread.

#pragma once

#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/error.h"
#include "platform/find_data.h"

namespace quorbit {

// The bits that can be stored. The other bits of the attribute word are derived from the item.
inline constexpr std::uint32_t kStoredAttributes =
    kAttributeReadOnly | kAttributeHidden | kAttributeSystem | kAttributeArchive;

// A file or folder, identified by its name in an open folder and, if it is open already, its
// descriptor. Owns nothing.
struct AttributeItem {
    int folder = -1;
    const std::string& name;
    ItemKind kind = ItemKind::File;
    int descriptor = -1;  // open for reading or writing, or -1
};

class AttributeSource {
public:
    virtual ~AttributeSource() = default;
    // Returns true if the file system itself stores the bits, so that they are not copied with the
    // extended attributes.
    [[nodiscard]] virtual bool IsNative() const = 0;
    // Returns the stored bits, or nullopt if none are stored for this item.
    virtual Result<std::optional<std::uint32_t>> Read(const AttributeItem& item) = 0;
    // Stores the bits and keeps all other data of the same attribute.
    virtual Status Write(const AttributeItem& item, std::uint32_t bits) = 0;
};

// Returns the source for a volume. Never null. type: f_type of statfs(2). folder: any open folder
// of the volume, probed if the type is ambiguous (FUSE, ntfs3).
[[nodiscard]] std::unique_ptr<AttributeSource> MakeAttributeSource(std::uint32_t type, int folder);

}  // namespace quorbit
