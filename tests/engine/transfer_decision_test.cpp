// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/transfer_decision.h"

#include <gtest/gtest.h>

#include "batch/dir_copy.h"

namespace quorbit {
namespace {

TEST(DecideTransfer, FollowsTheTable)
{
    constexpr std::uint32_t kBoth = DCF_SYNC | DCF_INCREMENTAL;
    constexpr std::int64_t kOld = 1000;
    constexpr std::int64_t kNew = 1001;  // one second suffices
    const std::tuple<std::uint32_t, std::int64_t, std::optional<std::int64_t>, TransferAction>
        cases[] = {
            {0, kNew, std::nullopt, TransferAction::Copy},
            {DCF_SYNC, kNew, std::nullopt, TransferAction::Copy},
            {DCF_INCREMENTAL, kNew, std::nullopt, TransferAction::Copy},
            {0, kNew, kOld, TransferAction::Copy},
            {0, kOld, kNew, TransferAction::Copy},
            {DCF_OVERWRITE_RO | DCF_ALL_TYPES, kOld, kNew, TransferAction::Copy},
            {DCF_SYNC, kNew, kOld, TransferAction::Sync},
            {DCF_SYNC, kOld, kOld, TransferAction::LeaveSync},
            {DCF_SYNC, kOld, kNew, TransferAction::LeaveSync},
            {DCF_SYNC, 1, 0, TransferAction::Sync},  // a destination time of 0 is not "missing"
            {DCF_SYNC, -1, -2, TransferAction::Sync},
            {DCF_INCREMENTAL, kNew, kOld, TransferAction::Backup},
            {DCF_INCREMENTAL, kOld, kOld, TransferAction::LeaveBackup},
            {DCF_INCREMENTAL, kOld, kNew, TransferAction::LeaveBackup},
            {kBoth, kNew, kOld, TransferAction::Backup},
            {kBoth, kOld, kOld, TransferAction::LeaveBackup}};
    for (const auto& [flags, source, dest, expected] : cases) {
        EXPECT_EQ(DecideTransfer(flags, source, dest), expected)
            << "flags " << flags << ", source " << source << ", destination "
            << (dest ? std::to_string(*dest) : "missing");
    }
}

}  // namespace
}  // namespace quorbit
