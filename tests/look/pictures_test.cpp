// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/pictures.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>
#include <array>

#include "batch/command_target.h"

namespace quorbit {
namespace {

constexpr std::array kButtons{CMD_FILE_NEW,   CMD_FILE_OPEN, CMD_FILE_SAVE,
                              CMD_EDIT_ENTRY, CMD_DELETE,    CMD_START_BATCH,
                              CMD_REFRESH,    CMD_LOG_FILE,  CMD_VIEWS};

// The part of an image that is painted, 0 to 1.
double Painted(const QImage& image)
{
    int painted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            painted += qAlpha(image.pixel(x, y)) > 0x40 ? 1 : 0;
        }
    }
    return static_cast<double>(painted) / (image.width() * image.height());
}

TEST(Pictures, EveryButtonHasOneOfItsOwnThatIsDrawnAtAnySize)
{
    std::vector<QImage> seen;
    for (const int nId : kButtons) {
        for (const int side : {16, 128}) {
            const QImage image = CommandPicture(nId).pixmap(side, side).toImage();
            ASSERT_EQ(image.size(), QSize(side, side)) << nId;
            EXPECT_GT(Painted(image), 0.15) << nId << " at " << side;
        }
        const QImage large = CommandPicture(nId).pixmap(128, 128).toImage();
        for (const QImage& other : seen) {
            EXPECT_NE(large, other) << nId;
        }
        seen.push_back(large);
    }
    EXPECT_TRUE(CommandPicture(CMD_EXIT).isNull());
    EXPECT_TRUE(Picture("no such picture").isNull());
}

}  // namespace
}  // namespace quorbit
