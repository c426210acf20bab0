// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The check boxes that the dialogs of file entries and of file-type entries share, and how one acts
// on the others. Pure functions; each flag of an entry has one box.

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

// A yes or no for each box.
class EntryChecks {
public:
    [[nodiscard]] bool operator[](EntryBox box) const { return m_on[At(box)]; }
    bool& operator[](EntryBox box) { return m_on[At(box)]; }
    bool operator==(const EntryChecks&) const = default;

private:
    static std::size_t At(EntryBox box) { return static_cast<std::size_t>(box); }

    std::array<bool, kEntryBoxes> m_on{};
};

// The boxes of an entry's flags, without DeleteFolder and AllTypes, which hang on more than the
// flags. Preserve needs SubFolders; Sync wins over Incremental, and a delete entry has neither.
[[nodiscard]] EntryChecks ChecksOfFlags(std::uint32_t flags, bool bDelete);

// The flags with that box's bit set or cleared.
[[nodiscard]] std::uint32_t WithBox(std::uint32_t flags, EntryBox box, bool on);

// What a click on a box does to all of them.
[[nodiscard]] EntryChecks ClickBox(EntryChecks checks, EntryBox box, bool on);

// Which boxes can be clicked.
[[nodiscard]] EntryChecks EnabledBoxes(const EntryChecks& checks);

}  // namespace quorbit
