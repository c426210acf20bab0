// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Constants of the shell namespace.

#pragma once

#include <cstdint>

namespace quorbit {

// Names that the shell interface gives.
// NOLINTBEGIN(readability-identifier-naming)

// Attributes of an item.
inline constexpr std::uint32_t SFGAO_CANRENAME = 0x00000010;
inline constexpr std::uint32_t SFGAO_FILESYSANCESTOR =
    0x10000000;  // may contain files, whether or not it has a path
inline constexpr std::uint32_t SFGAO_FOLDER = 0x20000000;
inline constexpr std::uint32_t SFGAO_FILESYSTEM = 0x40000000;  // has a path
// May contain folders. Also set if this is not known without reading the folder.
inline constexpr std::uint32_t SFGAO_HASSUBFOLDER = 0x80000000;

// The items to enumerate.
inline constexpr std::uint32_t SHCONTF_FOLDERS = 0x20;
inline constexpr std::uint32_t SHCONTF_NONFOLDERS = 0x40;
inline constexpr std::uint32_t SHCONTF_INCLUDEHIDDEN = 0x80;

// The kind of name to return.
inline constexpr std::uint32_t SHGDN_NORMAL = 0;           // to be shown
inline constexpr std::uint32_t SHGDN_FORPARSING = 0x8000;  // for ParseDisplayName

// NOLINTEND(readability-identifier-naming)

}  // namespace quorbit
