// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Decides what to do with one file of a transfer entry. TransferFile executes the decision. Pure
// function. Any thread.

#pragma once

#include <cstdint>
#include <optional>

namespace quorbit {

enum class TransferAction {
    Copy,         // "Copying File."
    Sync,         // "Sync File."
    LeaveSync,    // "Didn't Sync File."
    Backup,       // first keeps the old file as a numbered version, if a number is free
    LeaveBackup,  // "Didn't backup file. No change detected."
};

// Modification times in seconds since 1970-01-01 UTC; tDest is nullopt if the destination does not
// exist. Only a strictly greater tSource is newer. DCF_INCREMENTAL overrides DCF_SYNC.
[[nodiscard]] TransferAction DecideTransfer(std::uint32_t dwFlags, std::int64_t tSource,
                                            std::optional<std::int64_t> tDest);

}  // namespace quorbit
