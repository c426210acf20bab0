// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Extended attributes of an item by its name in an open folder, without opening it and without
// following a link.

#pragma once

#include <string>
#include <string_view>

#include "platform/posix/attribute_source.h"

namespace quorbit {

// Reads the value; the errors of getxattr(2), among them ENODATA for an attribute that is not
// there. At most maxSize bytes, ERANGE beyond.
Result<std::string> GetItemXattr(const AttributeItem& item, const char* attribute,
                                 std::size_t maxSize);

// The errors of setxattr(2).
Status SetItemXattr(const AttributeItem& item, const char* attribute, std::string_view value);

}  // namespace quorbit
