// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/recent_files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/temp_folder.h"

namespace quorbit {
namespace {

using Paths = std::vector<std::string>;

TEST(RecentFilesTest, KeepsTheEightLastOnesWithTheNewestInFront)
{
    const TempFolder folder;
    const Profile profile{SettingsStore(folder.Path() + "/profile.ini")};
    const RecentFiles recent(profile);
    for (int i = 1; i <= 9; ++i) {
        recent.Add("/f" + std::to_string(i));
    }
    EXPECT_EQ(recent.List(), (Paths{"/f9", "/f8", "/f7", "/f6", "/f5", "/f4", "/f3", "/f2"}));
    recent.Add("/f4");
    EXPECT_EQ(recent.List(), (Paths{"/f4", "/f9", "/f8", "/f7", "/f6", "/f5", "/f3", "/f2"}));
    recent.Remove("/f4");
    recent.Remove("/other");

    const Profile another{SettingsStore(folder.Path() + "/profile.ini")};
    EXPECT_EQ(RecentFiles(another).List(),
              (Paths{"/f9", "/f8", "/f7", "/f6", "/f5", "/f3", "/f2"}));
}

}  // namespace
}  // namespace quorbit
