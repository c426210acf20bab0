// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/shell/volume_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "platform/posix/shell/gvfs_name.h"

namespace quorbit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kRoot = "20 1 8:1 / / rw - ext4 /dev/sda1 rw\n";

// Returns the labels in path order, each after the letter of its kind: F, R, O or n.
std::vector<std::string> Listed(const std::string& table, const DriveMap& drives = {},
                                const std::string& devices = "/nowhere/")
{
    std::vector<std::string> result;
    for (const ShellVolume& volume : ListVolumes(ParseMountTable(table), drives, devices)) {
        EXPECT_TRUE(EndsInSeparator(volume.path));
        result.push_back("FROn"[static_cast<int>(volume.kind)] + (" " + volume.label));
    }
    return result;
}

TEST(VolumeList, OfADesktopMachineHoldsWhatAPersonCallsADrive)
{
    EXPECT_THAT(
        Listed("22 27 0:21 / /proc rw shared:5 - proc proc rw\n"
               "23 27 0:22 / /sys rw shared:6 - sysfs sysfs rw\n"
               "24 27 0:6 / /dev rw shared:2 - devtmpfs udev rw,size=12334432k\n"
               "25 24 0:23 / /dev/pts rw shared:3 - devpts devpts rw\n"
               "26 27 0:24 / /run rw shared:4 - tmpfs tmpfs rw\n"
               "27 1 259:2 / / rw,relatime shared:1 - ext4 /dev/nvme0n1p2 rw\n"
               "29 23 0:29 / /sys/fs/cgroup rw shared:9 - cgroup2 cgroup2 rw\n"
               "33 22 0:33 / /proc/sys/fs/binfmt_misc rw - autofs systemd-1 rw,direct\n"
               "34 27 0:34 / /tmp rw shared:11 - tmpfs tmpfs rw\n"
               "90 27 259:1 / /boot/efi rw shared:40 - vfat /dev/nvme0n1p1 rw\n"
               "91 27 259:3 / /home rw shared:41 - ext4 /dev/nvme0n1p3 rw\n"
               "92 27 7:0 / /snap/core20/1 ro shared:42 - squashfs /dev/loop0 ro\n"
               "93 26 0:45 / /run/user/1000 rw shared:43 - tmpfs tmpfs rw\n"
               "94 93 0:46 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw,user_id=1000\n"
               "95 93 0:47 / /run/user/1000/doc rw - fuse.portal portal rw,user_id=1000\n"
               "96 27 8:17 / /media/me/STICK rw shared:44 - vfat /dev/sdb1 rw\n"
               "97 26 8:33 / /run/media/me/My\\040Disk rw - fuseblk /dev/sdc1 rw,user_id=0\n"
               "98 27 11:0 / /media/cdrom0 ro - iso9660 /dev/sr0 ro\n"
               "99 27 0:50 / /var/lib/lxcfs rw - fuse.lxcfs lxcfs rw\n"
               "100 34 0:51 / /tmp/.mount_AppXYZ ro - fuse.App.AppImage App.AppImage ro\n"
               "101 27 0:52 / /var/lib/docker/overlay2/ab/merged rw - overlay overlay rw\n"),
        ElementsAre("F root (/)", "F home (/home)", "O cdrom0 (/media/cdrom0)",
                    "R STICK (/media/me/STICK)", "R My Disk (/run/media/me/My Disk)"));
}

TEST(VolumeList, ShowsEachContentOnceAndSubvolumesAndSharesForThemselves)
{
    EXPECT_THAT(Listed(kRoot + "30 20 8:2 /home /home rw - ext4 /dev/sda2 rw\n"
                               "31 20 8:2 / /data rw - ext4 /dev/sda2 rw\n"
                               "32 20 8:1 /srv/x /srv/y rw - ext4 /dev/sda1 rw\n"
                               "33 20 8:2 / /data-again rw - ext4 /dev/sda2 rw\n"),
                ElementsAre("F root (/)", "F data (/data)"))
        << "binds";
    EXPECT_THAT(Listed("20 1 8:1 /deploy / rw - ext4 /dev/sda1 rw\n"
                       "21 20 8:1 / /mnt/disk rw - ext4 /dev/sda1 rw\n"),
                ElementsAre("F root (/)", "F disk (/mnt/disk)"))
        << "the root folder, though it is a part of another drive";
    EXPECT_THAT(Listed("20 1 0:30 /@ / rw - btrfs /dev/sda2 rw,subvol=/@\n"
                       "21 20 0:30 /@home /home rw - btrfs /dev/sda2 rw,subvol=/@home\n"
                       "22 20 0:30 / /mnt/all rw - btrfs /dev/sda2 rw,subvol=/\n"
                       "23 20 0:30 /@home /srv/home rw - btrfs /dev/sda2 rw,subvol=/@home\n"),
                ElementsAre("F root (/)", "F home (/home)", "F all (/mnt/all)"))
        << "subvolumes";
    EXPECT_THAT(Listed(kRoot + "40 20 0:40 / /mnt/x rw - nfs4 nas:/x rw\n"
                               "41 20 0:40 /sub /mnt/xsub rw - nfs4 nas:/x/sub rw\n"
                               "42 20 0:40 / /mnt/again rw - nfs4 nas:/x rw\n"),
                ElementsAre("F root (/)", "n x on nas (/mnt/x)", "n sub on nas (/mnt/xsub)"))
        << "shares";
    EXPECT_THAT(Listed("20 1 0:30 / / rw - overlay overlay rw\n"
                       "21 20 254:1 /var/lib/docker/containers/1/hosts /etc/hosts rw - ext4 "
                       "/dev/vda1 rw\n"
                       "22 20 254:1 /host/data /data rw - ext4 /dev/vda1 rw\n"
                       "23 20 254:1 /host/data/part /part rw - ext4 /dev/vda1 rw\n"),
                ElementsAre("F root (/)", "F data (/data)"))
        << "a container";
}

TEST(VolumeList, HoldsARootFolderInAnyCaseAndMappedDrivesWithTheirLetters)
{
    EXPECT_THAT(Listed(""), ElementsAre("F root (/)"));
    const std::string table = kRoot + "40 20 0:40 / /mnt/nas rw - cifs //nas/docs rw\n";
    EXPECT_THAT(Listed(table, {{"C:", "/mnt/c"},
                               {"N:", "/mnt/nas/sub/"},
                               {"O:", "/mnt/nas2"},
                               {"X:", ""},
                               {"Y:", "rel"},
                               {"\\\\nas\\share", "/mnt/nas"}}),
                ElementsAre("F root (/)", "n docs on nas (/mnt/nas)", "F c (C:)", "n sub (N:)",
                            "F nas2 (O:)"));
}

TEST(GvfsFolders, AreThoseOfTheUserWhoAsks)
{
    const std::string ours = std::to_string(::getuid());
    const auto mounts = ParseMountTable(
        "41 20 0:38 / /run/user/1/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw,user_id=" + ours +
        ",group_id=0\n42 20 0:39 / /run/user/2/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw,user_id=" +
        ours + "9,group_id=0\n");
    EXPECT_THAT(ListGvfsFolders(mounts), ElementsAre("/run/user/1/gvfs"));
    EXPECT_THAT(ListGvfsFolders({}), IsEmpty());
}

}  // namespace
}  // namespace quorbit
