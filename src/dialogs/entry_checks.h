// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The check boxes shared by the dialogs of file entries and file type entries, and how they affect
// each other. Pure functions. Each box stands for one flag of an entry.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quorbit {

enum class EntryBox : std::uint8_t {
    DeleteFolder,
    SubFolders,
    Preserve,
    Sync,
    Incremental,
    AllBut,
    AllTypes,
    Overwrite,
};
inline constexpr std::size_t kEntryBoxes = 8;

// One bool for each box.
class EntryChecks {
public:
    [[nodiscard]] bool operator[](EntryBox box) const { return m_on[At(box)]; }
    bool& operator[](EntryBox box) { return m_on[At(box)]; }
    bool operator==(const EntryChecks&) const = default;

private:
    static std::size_t At(EntryBox box) { return static_cast<std::size_t>(box); }

    std::array<bool, kEntryBoxes> m_on{};
};

// Returns the boxes for the flags of an entry, except DeleteFolder and AllTypes, which do not
// depend on the flags alone. Preserve requires SubFolders; Sync excludes Incremental; a delete
// entry has neither Sync nor Incremental.
[[nodiscard]] EntryChecks ChecksOfFlags(std::uint32_t flags, bool bDelete);

// Returns the flags with the bit of a box set or cleared.
[[nodiscard]] std::uint32_t WithBox(std::uint32_t flags, EntryBox box, bool on);

// Returns the state of all boxes after a click sets a box to `on`.
[[nodiscard]] EntryChecks ClickBox(EntryChecks checks, EntryBox box, bool on);

// Returns which boxes are enabled.
[[nodiscard]] EntryChecks EnabledBoxes(const EntryChecks& checks);

}  // namespace quorbit
