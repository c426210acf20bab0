// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/transfer_decision.h"

#include "batch/dir_copy.h"

namespace quorbit {

TransferAction DecideTransfer(std::uint32_t dwFlags, std::int64_t tSource,
                              std::optional<std::int64_t> tDest)
{
    if (!tDest || (dwFlags & (DCF_SYNC | DCF_INCREMENTAL)) == 0) {
        return TransferAction::Copy;
    }
    const bool newer = tSource > *tDest;
    if (dwFlags & DCF_INCREMENTAL) {
        return newer ? TransferAction::Backup : TransferAction::LeaveBackup;
    }
    return newer ? TransferAction::Sync : TransferAction::LeaveSync;
}

}  // namespace quorbit
