// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Encodes and decodes the extended attribute user.DOSATTRIB, in which Samba stores the attribute
// bits of a file; see librpc/idl/xattr.idl in Samba. Numbers are little endian. Pure functions.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorbit {

// Returns the attribute bits (0x01 to 0x20) of a value of any version, or nullopt if it cannot be
// parsed.
[[nodiscard]] std::optional<std::uint32_t> ReadDosAttributes(std::string_view value);

// Returns the value with the bits in mask replaced by those of bits. Version, times and all other
// content are kept. An empty value gives a new one of version 5. Returns nullopt if the value
// cannot be parsed.
[[nodiscard]] std::optional<std::string> ChangeDosAttributes(std::string_view value,
                                                             std::uint32_t bits,
                                                             std::uint32_t mask);

}  // namespace quorbit
