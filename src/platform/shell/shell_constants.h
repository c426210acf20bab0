// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Values of the shell namespace that its users test and pass.

#pragma once

#include <cstdint>

namespace quorbit {

// Names that the shell interface gives.
// NOLINTBEGIN(readability-identifier-naming)

// Attributes of an item.
inline constexpr std::uint32_t SFGAO_CANRENAME = 0x00000010;
inline constexpr std::uint32_t SFGAO_FILESYSANCESTOR =
    0x10000000;  // holds files, itself one or not
inline constexpr std::uint32_t SFGAO_FOLDER = 0x20000000;
inline constexpr std::uint32_t SFGAO_FILESYSTEM = 0x40000000;  // has a path
// May have folders in it. Where that is not known without reading it, the bit is set.
inline constexpr std::uint32_t SFGAO_HASSUBFOLDER = 0x80000000;

// What a folder is to enumerate.
inline constexpr std::uint32_t SHCONTF_FOLDERS = 0x20;
inline constexpr std::uint32_t SHCONTF_NONFOLDERS = 0x40;
inline constexpr std::uint32_t SHCONTF_INCLUDEHIDDEN = 0x80;

// Which name of an item is wanted.
inline constexpr std::uint32_t SHGDN_NORMAL = 0;           // to be shown
inline constexpr std::uint32_t SHGDN_FORPARSING = 0x8000;  // to be parsed again

// NOLINTEND(readability-identifier-naming)

}  // namespace quorbit
