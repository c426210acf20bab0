// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/network_name.h"

#include <gtest/gtest.h>

namespace quorbit {
namespace {

TEST(NetworkNameTest, IsCutBelowItsOwnServerOnly)
{
    struct Case {
        std::string name;
        std::string parent;
        std::string shown;
    };
    const Case cases[] = {
        {"docs on server1", "server1", "docs"},
        {"docs on server1", "server2", "docs on server1"},
        {"notes on tax on server1", "server1", "notes"},
        {"docs on server10", "server1", "docs"},
        {" on server1", "server1", " on server1"},
        {"docs", "server1", "docs"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CutNetworkName(c.name, c.parent), c.shown) << c.name << " / " << c.parent;
    }
}

}  // namespace
}  // namespace quorbit
