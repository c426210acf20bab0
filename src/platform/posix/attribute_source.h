// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Where a volume keeps read-only, hidden, system and archive.

#pragma once

#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/error.h"
#include "platform/find_data.h"

namespace quorbit {

// The bits that can be stored; the others of the attribute word follow from the item.
inline constexpr std::uint32_t kStoredAttributes =
    kAttributeReadOnly | kAttributeHidden | kAttributeSystem | kAttributeArchive;

// A file or a folder, by its name in an open folder and, where it is open anyway, by its
// descriptor.
struct AttributeItem {
    int folder = -1;
    const std::string& name;
    ItemKind kind = ItemKind::File;
    int descriptor = -1;  // open for reading or writing, or -1
};

class AttributeSource {
public:
    virtual ~AttributeSource() = default;
    // True if the file system itself keeps the bits: then they do not travel with extended
    // attributes.
    [[nodiscard]] virtual bool IsNative() const = 0;
    // The stored bits, nullopt if none are stored for this item.
    virtual Result<std::optional<std::uint32_t>> Read(const AttributeItem& item) = 0;
    // Stores the bits and leaves everything else that is stored beside them as it is.
    virtual Status Write(const AttributeItem& item, std::uint32_t bits) = 0;
};

// The source for a volume: type is f_type of statfs(2), folder any open folder of it. Asks the
// volume where the type does not tell. Never null.
[[nodiscard]] std::unique_ptr<AttributeSource> MakeAttributeSource(std::uint32_t type, int folder);

}  // namespace quorbit
