// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drag_payload.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorbit {
namespace {

TEST(DragPayloadTest, OfAFolderEndsInOneZeroByte)
{
    EXPECT_EQ(FolderPayload("/a b/\xFF"), std::string("QRBD/a b/\xFF\0", 11));
}

TEST(DragPayloadTest, OfTheListFillsWholeBlocks)
{
    EXPECT_EQ(ListPayload({"C:\\"}), "QRBFC:\\" + std::string(4096 - 7, '\0'));
    EXPECT_EQ(ListPayload({"a", "b c", "d"}).substr(0, 14), std::string("QRBFa, b c, d\0", 14));
    struct Case {
        std::size_t nameLength;
        std::size_t size;
    };
    for (const Case& c : {Case{4091, 4096}, Case{4092, 4096}, Case{4093, 8192}}) {
        const std::string name(c.nameLength, 'n');
        const std::string payload = ListPayload({name});
        EXPECT_EQ(payload.size(), c.size) << c.nameLength;
        EXPECT_EQ(ReadPayload(payload), "F" + name) << "with or without a zero byte behind it";
    }
}

TEST(DragPayloadTest, ReadsWhatBeginsWithTheMarkUpToTheFirstZero)
{
    EXPECT_EQ(ReadPayload(std::string("QRBD/a\0/b\0", 10)), "D/a");
    EXPECT_EQ(ReadPayload("QRBD/a"), "D/a");
    EXPECT_EQ(ReadPayload("QRBx"), "x") << "nothing else is looked at";
    EXPECT_EQ(ReadPayload("QRB"), "");
    for (const std::string& other :
         {std::string(), std::string("QR"), std::string("qrbD/a"), std::string(" QRBD/a"),
          std::string("QR\0BD", 5), std::string("/home/me")}) {
        EXPECT_EQ(ReadPayload(other), std::nullopt) << other;
    }
}

TEST(DragPayloadTest, TravelsAsPlainTextAndTellsItsButton)
{
    const std::string payload = FolderPayload("/caf\xE9");
    const auto data = MakeDragData(payload, Qt::RightButton);
    EXPECT_TRUE(data->hasText());
    EXPECT_EQ(TextOf(*data), payload) << "to the byte";
    EXPECT_EQ(ButtonOf(*data), Qt::RightButton);

    QMimeData foreign;
    EXPECT_EQ(TextOf(foreign), std::nullopt);
    foreign.setText(QStringLiteral("QRBF\u00e9"));
    EXPECT_EQ(TextOf(foreign), "QRBF\xC3\xA9");
    EXPECT_EQ(ButtonOf(foreign), Qt::NoButton);
}

}  // namespace
}  // namespace quorbit
