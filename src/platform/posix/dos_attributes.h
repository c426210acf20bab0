// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The value of the extended attribute user.DOSATTRIB, in which Samba keeps the attribute bits of a
// file: see xattr.idl in Samba's librpc/idl. Numbers are little endian.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorbit {

// The attribute bits (values 0x01 to 0x20) of a value of any version, nullopt if it is not
// understood.
[[nodiscard]] std::optional<std::uint32_t> ReadDosAttributes(std::string_view value);

// The value with the bits of mask replaced by those of bits; form, times and all other content
// stay. An empty value gives a new one of version 5. nullopt if the value is not understood.
[[nodiscard]] std::optional<std::string> ChangeDosAttributes(std::string_view value,
                                                             std::uint32_t bits,
                                                             std::uint32_t mask);

}  // namespace quorbit
