// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/display.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace quorbit {
namespace {

TEST(HasDisplayTest, LooksForAServerUnlessThePlatformNeedsNone)
{
    using Variables = std::map<std::string, std::string>;
    const struct {
        Variables variables;
        bool expected;
    } cases[] = {
        {{}, false},
        {{{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}, {"QT_QPA_PLATFORM", ""}}, false},
        {{{"DISPLAY", ":0"}}, true},
        {{{"WAYLAND_DISPLAY", "wayland-0"}}, true},
        {{{"QT_QPA_PLATFORM", "offscreen"}}, true},
        {{{"QT_QPA_PLATFORM", "vnc:size=800x600"}}, true},
        {{{"QT_QPA_PLATFORM", "xcb"}}, false},
        {{{"QT_QPA_PLATFORM", "wayland;xcb"}}, false},
        {{{"QT_QPA_PLATFORM", "wayland-egl;"}}, false},
        {{{"QT_QPA_PLATFORM", "xcb;offscreen"}}, true},
        {{{"QT_QPA_PLATFORM", "xcb"}, {"DISPLAY", ":0"}}, true},
    };
    for (const auto& [variables, expected] : cases) {
        const auto environment = [&variables](const char* name) {
            const auto found = variables.find(name);
            return found == variables.end() ? std::string() : found->second;
        };
        EXPECT_EQ(HasDisplay(environment), expected) << testing::PrintToString(variables);
    }
}

}  // namespace
}  // namespace quorbit
