// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Item id lists: how the shell namespace names its items. A list is a run of ids and a terminator:
//
//   id          u16, little endian: size of the id in bytes, these two included; then its own bytes
//   terminator  u16, 0
//
// A list with one id (a single id) belongs to the folder that gave it out. A list from the desktop
// down is an absolute list; the desktop itself is the list without an id, and no list at all means
// the same.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace quorbit {

// Bytes that begin at an id or at a terminator. Does not own them. A view that is cut short or
// damaged ends at the last id that is whole.
using ItemIdView = std::span<const std::uint8_t>;

// A list that owns its bytes.
class ItemIdList {
public:
    // No list at all.
    ItemIdList() = default;
    // Bytes of the form above.
    explicit ItemIdList(std::vector<std::uint8_t> bytes) : m_bytes(std::move(bytes)) {}

    [[nodiscard]] bool IsNull() const { return m_bytes.empty(); }
    [[nodiscard]] std::span<std::uint8_t> Bytes() { return m_bytes; }
    [[nodiscard]] ItemIdView View() const { return m_bytes; }
    operator ItemIdView() const { return m_bytes; }  // NOLINT(google-explicit-constructor)

    // The same bytes. Two lists for one item need not be the same bytes; see ShellFolder.
    bool operator==(const ItemIdList&) const = default;

private:
    std::vector<std::uint8_t> m_bytes;
};

// Size of the id that the view begins with; 0 at a terminator and at the end of the view.
[[nodiscard]] std::size_t ItemIdSize(ItemIdView id);

}  // namespace quorbit
