// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drag_payload.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quorbit {
namespace {

TEST(DragPayloadTest, OfAFolderEndsInOneZeroByte)
{
    EXPECT_EQ(PayloadOf(FolderDrag("/a b/\xFF")), std::string("QRBD/a b/\xFF\0", 11));
}

TEST(DragPayloadTest, OfTheListFillsWholeBlocks)
{
    EXPECT_EQ(PayloadOf(ListDrag({"C:\\"})), "QRBFC:\\" + std::string(4096 - 7, '\0'));
    EXPECT_EQ(PayloadOf(ListDrag({"a", "b c", "d"})).substr(0, 14),
              std::string("QRBFa, b c, d\0", 14));
    struct Case {
        std::size_t nameLength;
        std::size_t size;
    };
    for (const Case& c : {Case{4091, 4096}, Case{4092, 4096}, Case{4093, 8192}}) {
        const std::string name(c.nameLength, 'n');
        const std::string payload = PayloadOf(ListDrag({name}));
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

TEST(DragPayloadTest, NamesOfThisProcessStayWholeAndThoseOfAnotherAreRefused)
{
    const auto data = MakeDragData(ListDrag({"with, comma", "b\xE9"}), Qt::RightButton);
    EXPECT_TRUE(data->hasText());
    EXPECT_EQ(ButtonOf(*data), Qt::RightButton);
    const auto content = ReadDrag(*data);
    ASSERT_TRUE(content.has_value());
    EXPECT_EQ(content->text, "Fwith, comma, b\xE9");
    EXPECT_EQ(content->names, (std::vector<std::string>{"with, comma", "b\xE9"}));

    const QString format = QStringLiteral("application/x-quorbit-names");
    QByteArray names = data->data(format);
    names[1] = names[1] == '0' ? '1' : '0';
    data->setData(format, names);
    EXPECT_FALSE(ReadDrag(*data).has_value()) << "they belong to the folder shown there";
}

TEST(DragPayloadTest, ReadsTextOfOtherPrograms)
{
    struct Case {
        const char* text;
        std::optional<std::string> content;
    };
    for (const Case& c :
         {Case{"QRBFa, b", "Fa, b"}, Case{"QRBD/caf\u00e9", "D/caf\xC3\xA9"},
          Case{"QRBDC:\\x", "DC:\\x"}, Case{"QRBDx", std::nullopt}, Case{"QRBx", std::nullopt},
          Case{"QRB", std::nullopt}, Case{"/home/me", std::nullopt}}) {
        QMimeData data;
        data.setText(QString::fromUtf8(c.text));
        const auto content = ReadDrag(data);
        EXPECT_EQ(content ? std::optional(content->text) : std::nullopt, c.content) << c.text;
        EXPECT_TRUE(!content || content->names.empty());
        EXPECT_EQ(ButtonOf(data), Qt::NoButton);
    }
}

}  // namespace
}  // namespace quorbit
