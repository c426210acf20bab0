// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/frame_geometry.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>

#include "engine/run_context.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kUnset = std::numeric_limits<std::int32_t>::min();

class FrameGeometryTest : public testing::Test {
protected:
    [[nodiscard]] std::int32_t Stored(Setting setting) const
    {
        const SettingInfo& info = InfoOf(setting);
        const auto value = profileStore.ReadInt(info.section, info.name);
        return value ? *value : kUnset;
    }

    TempFolder folder;
    SettingsStore profileStore{folder.Path() + "/profile.ini"};
    Profile profile{profileStore};
};

TEST_F(FrameGeometryTest, BringsAWindowBackToTheScreen)
{
    const FramePlace fresh = PlaceFrame(profile, 1000, 700);
    EXPECT_EQ(fresh.rect, (FrameRect{0, 0, 640, 480}));
    EXPECT_FALSE(fresh.maximised);

    struct Case {
        std::int32_t x, y, cx, cy;
        FrameRect expected;  // on a screen of 1000 by 700
    };
    for (const Case& c : {
             Case{100, 50, 640, 480, {100, 50, 640, 480}},
             Case{980, 680, 640, 480, {980, 680, 640, 480}},
             Case{981, 50, 640, 480, {0, 50, 1621, 480}},    // its right edge stays
             Case{100, 681, 640, 480, {100, 0, 640, 1161}},  // its bottom edge stays
             Case{3000, 2000, 10, 10, {0, 0, 3010, 2010}},
             Case{-50, -60, 640, 480, {-50, -60, 640, 480}},
             Case{100, 50, -640, -480, {100, 50, 0, 0}},
         }) {
        profile.WriteProfileInts({{Setting::FrameX, c.x},
                                  {Setting::FrameY, c.y},
                                  {Setting::FrameSizeX, c.cx},
                                  {Setting::FrameSizeY, c.cy}});
        EXPECT_EQ(PlaceFrame(profile, 1000, 700).rect, c.expected) << c.x << "," << c.y;
    }
}

TEST_F(FrameGeometryTest, StandsWhateverTheProfileHolds)
{
    profile.WriteProfileInts({{Setting::FrameX, kMost},
                              {Setting::FrameY, -kMost},
                              {Setting::FrameSizeX, kMost},
                              {Setting::FrameSizeY, kMost}});
    const FrameRect rect = PlaceFrame(profile, 1000, 700).rect;
    EXPECT_EQ(rect.left, 0);
    EXPECT_GT(rect.width, 0);
    EXPECT_GT(rect.height, 0);
}

TEST_F(FrameGeometryTest, RemembersByTheStateOfTheWindowAndTheMode)
{
    struct Case {
        FrameShow show;
        std::uint32_t mode;
        std::int32_t state;  // kUnset: nothing is written
        bool rect;
    };
    for (const Case& c : {Case{FrameShow::Normal, 0, kWindowNormal, true},
                          Case{FrameShow::Normal, kRunAndQuit, kWindowNormal, true},
                          Case{FrameShow::Maximised, 0, kWindowMaximised, false},
                          Case{FrameShow::Minimised, 0, kWindowMinimised, false},
                          Case{FrameShow::Minimised, kRunAndStayOpen, kWindowMinimised, false},
                          Case{FrameShow::Minimised, kRunAndQuit, kUnset, false},
                          Case{FrameShow::Minimised, kRunInvisible, kUnset, false}}) {
        WriteContent(profileStore.Path(), "");
        StoreFrame(profile, c.show, {-3, 20, 300, 200}, c.mode);
        EXPECT_EQ(Stored(Setting::WindowState), c.state) << c.state << c.mode;
        EXPECT_EQ(Stored(Setting::FrameX), c.rect ? 0 : kUnset) << "a negative value becomes 0";
        EXPECT_EQ(Stored(Setting::FrameY), c.rect ? 20 : kUnset);
        EXPECT_EQ(Stored(Setting::FrameSizeX), c.rect ? 300 : kUnset);
        EXPECT_EQ(Stored(Setting::FrameSizeY), c.rect ? 200 : kUnset);
    }
}

TEST_F(FrameGeometryTest, ComesBackMaximisedButNeverMinimised)
{
    StoreFrame(profile, FrameShow::Normal, {10, 20, 300, 200}, 0);
    StoreFrame(profile, FrameShow::Minimised, {}, 0);
    FramePlace place = PlaceFrame(profile, 1000, 700);
    EXPECT_FALSE(place.maximised);
    EXPECT_EQ(place.rect, (FrameRect{10, 20, 300, 200}));
    StoreFrame(profile, FrameShow::Maximised, {}, 0);
    place = PlaceFrame(profile, 1000, 700);
    EXPECT_TRUE(place.maximised);
    EXPECT_EQ(place.rect, (FrameRect{10, 20, 300, 200}));
}

}  // namespace
}  // namespace quorbit
