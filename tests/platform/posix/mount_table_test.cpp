// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/mount_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorbit {
namespace {

using testing::ElementsAre;

std::vector<std::string> VisiblePoints(const std::string& table)
{
    std::vector<std::string> points;
    for (const MountEntry& mount : VisibleMounts(ParseMountTable(table))) {
        points.push_back(mount.mountPoint + " " + mount.type);
    }
    return points;
}

TEST(MountTable, PassesOverLinesOfAnotherForm)
{
    EXPECT_THAT(ParseMountTable("\n"
                                "1 2 3:4 / /a rw shared:1 ext4 /dev/a rw\n"  // no hyphen
                                "x 2 3:4 / /a rw - ext4 /dev/a rw\n"         // no number
                                "1 2 3 / /a rw - ext4 /dev/a rw\n"           // no device
                                "1 2 3:4 / a rw - ext4 /dev/a rw\n"          // no path
                                "1 2 3:4 / /a rw -\n"
                                "5 2 3:4 / /good\\04 rw - ext4 /dev/a rw"),
                ElementsAre(testing::Field(&MountEntry::mountPoint, "/good\\04")));
}

TEST(MountTable, SeesOnlyWhatLiesOnTop)
{
    const std::string root = "20 1 8:1 / / rw - ext4 /dev/sda1 rw\n";
    EXPECT_THAT(VisiblePoints(root + "30 20 0:40 / /mnt/nas rw - autofs systemd-1 rw,direct\n"
                                     "31 30 0:41 / /mnt/nas rw - nfs4 nas:/x rw\n"),
                ElementsAre("/ ext4", "/mnt/nas nfs4"))
        << "a mount on a mount";
    EXPECT_THAT(VisiblePoints(root + "30 20 8:2 / /mnt/a rw - xfs /dev/sda2 rw\n"
                                     "31 20 8:3 / /mnt rw - ext4 /dev/sda3 rw\n"
                                     "32 31 8:4 / /mnt/b rw - vfat /dev/sda4 rw\n"
                                     "33 30 8:5 / /mnt/a/deep rw - ext2 /dev/sda5 rw\n"),
                ElementsAre("/ ext4", "/mnt ext4", "/mnt/b vfat"))
        << "what lies under a mount that came later, and on that";
    EXPECT_THAT(VisiblePoints("2 1 0:2 / / rw - rootfs rootfs rw\n"
                              "20 2 8:1 / / rw - ext4 /dev/sda1 rw\n"
                              "21 20 8:2 / /home rw - ext4 /dev/sda2 rw\n"),
                ElementsAre("/ ext4", "/home ext4"));
    EXPECT_THAT(VisiblePoints("77 76 8:2 / /home rw - ext4 /dev/sda2 rw\n"),
                ElementsAre("/home ext4"))
        << "in a changed root the parents may be out of sight";
}

}  // namespace
}  // namespace quorbit
