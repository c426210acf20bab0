// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a transfer entry does with one file. Decides only; TransferFile acts on it.

#pragma once

#include <cstdint>
#include <optional>

namespace quorbit {

enum class TransferAction {
    Copy,         // "Copying File."
    Sync,         // "Sync File."
    LeaveSync,    // "Didn't Sync File."
    Backup,       // the old file gets a number first, if one is free
    LeaveBackup,  // "Didn't backup file. No change detected."
};

// Times are whole seconds; no destination time means that there is no such file. The source is
// newer only if its time is strictly greater. DCF_INCREMENTAL wins over DCF_SYNC.
[[nodiscard]] TransferAction DecideTransfer(std::uint32_t dwFlags, std::int64_t tSource,
                                            std::optional<std::int64_t> tDest);

}  // namespace quorbit
