// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads and writes extended attributes of an item by its name in an open folder, without following
// links and, if possible, without opening it. Any thread.

#pragma once

#include <string>
#include <string_view>

#include "platform/posix/attribute_source.h"

namespace quorbit {

// Reads a value. Errors are those of getxattr(2), e.g. ENODATA if the attribute does not exist and
// ERANGE if it is longer than maxSize bytes.
Result<std::string> GetItemXattr(const AttributeItem& item, const char* attribute,
                                 std::size_t maxSize);

// Writes a value. Errors are those of setxattr(2).
Status SetItemXattr(const AttributeItem& item, const char* attribute, std::string_view value);

}  // namespace quorbit
