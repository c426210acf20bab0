// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Item id lists identify the items of the shell namespace. A list is a sequence of ids and a
// terminator:
//
//   id          u16, little endian: size of the id in bytes, including these two; then its content
//   terminator  u16, 0
//
// A list with one id (a single id) belongs to the folder that returned it. A list that starts at
// the desktop is an absolute list. The desktop itself is the list without ids or a null list.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace quorbit {

constexpr std::size_t kTerminatorSize = 2;  // bytes

// Bytes that start at an id or a terminator. Not owned. A truncated or damaged view ends after its
// last complete id.
using ItemIdView = std::span<const std::uint8_t>;

// Owns the bytes of a list.
class ItemIdList {
public:
    // A null list.
    ItemIdList() = default;
    // bytes: in the format above.
    explicit ItemIdList(std::vector<std::uint8_t> bytes) : m_bytes(std::move(bytes)) {}

    [[nodiscard]] bool IsNull() const { return m_bytes.empty(); }
    [[nodiscard]] std::span<std::uint8_t> Bytes() { return m_bytes; }
    [[nodiscard]] ItemIdView View() const { return m_bytes; }
    operator ItemIdView() const { return m_bytes; }  // NOLINT(google-explicit-constructor)

    // Compares bytes. Lists of the same item may differ; see ShellFolder.
    bool operator==(const ItemIdList&) const = default;

private:
    std::vector<std::uint8_t> m_bytes;
};

// Returns the size in bytes of the first id of the view, or 0 at a terminator and at the end of the
// view.
[[nodiscard]] std::size_t ItemIdSize(ItemIdView id);

}  // namespace quorbit
