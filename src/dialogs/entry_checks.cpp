// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/entry_checks.h"

#include "batch/dir_copy.h"

namespace quorbit {
namespace {

using enum EntryBox;

constexpr std::array<std::uint32_t, kEntryBoxes> kFlags = {
    DCF_DELETE_FOLDER, DCF_SUBFOLDERS, DCF_PRESERVE_TREE, DCF_SYNC,
    DCF_INCREMENTAL,   DCF_EXCLUDE,    DCF_ALL_TYPES,     DCF_OVERWRITE_RO,
};

}  // namespace

EntryChecks ChecksOfFlags(std::uint32_t flags, bool bDelete)
{
    const auto isSet = [flags](std::uint32_t bit) { return (flags & bit) != 0; };
    EntryChecks checks;
    checks[SubFolders] = isSet(DCF_SUBFOLDERS);
    checks[Preserve] = isSet(DCF_SUBFOLDERS) && isSet(DCF_PRESERVE_TREE);
    checks[Sync] = !bDelete && isSet(DCF_SYNC);
    checks[Incremental] = !bDelete && !isSet(DCF_SYNC) && isSet(DCF_INCREMENTAL);
    checks[AllBut] = isSet(DCF_EXCLUDE);
    checks[Overwrite] = isSet(DCF_OVERWRITE_RO);
    return checks;
}

std::uint32_t WithBox(std::uint32_t flags, EntryBox box, bool on)
{
    const std::uint32_t bit = kFlags[static_cast<std::size_t>(box)];
    return on ? flags | bit : flags & ~bit;
}

EntryChecks ClickBox(EntryChecks checks, EntryBox box, bool on)
{
    checks[box] = on;
    if (box == DeleteFolder && on) {
        checks[SubFolders] = false;
    }
    if (box == Sync && on) {
        checks[Incremental] = false;
    }
    if (box == Incremental && on) {
        checks[Sync] = false;
    }
    if (!checks[SubFolders]) {
        checks[Preserve] = false;
    }
    return checks;
}

EntryChecks EnabledBoxes(const EntryChecks& checks)
{
    EntryChecks enabled;
    enabled[DeleteFolder] = true;
    enabled[SubFolders] = !checks[DeleteFolder];
    enabled[Preserve] = checks[SubFolders];
    enabled[Sync] = !checks[Incremental];
    enabled[Incremental] = !checks[Sync];
    enabled[AllBut] = true;
    enabled[AllTypes] = true;
    enabled[Overwrite] = true;
    return enabled;
}

}  // namespace quorbit
