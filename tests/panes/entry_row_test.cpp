// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/entry_row.h"

#include <gtest/gtest.h>

namespace quorbit {
namespace {

CDirCopy Entry(std::uint32_t kind, std::vector<std::string> items)
{
    CDirCopy entry("/from", "/to", DCF_DELETE, kind, 7);
    entry.m_listItems = items;
    entry.m_listFolderTypes = std::move(items);
    return entry;
}

TEST(EntryRow, NamesStandApartAndMasksDoNot)
{
    struct Case {
        std::uint32_t kind;
        std::vector<std::string> items;
        const char* joined;
    };
    for (const Case& c : {Case{DCK_TYPES, {}, ""}, Case{DCK_NAMES, {}, ""},
                          Case{DCK_TYPES, {"*.txt", "*.doc"}, "*.txt*.doc"},
                          Case{DCK_NAMES, {"a", "b c"}, "a, b c"}, Case{DCK_NAMES, {"a"}, "a"},
                          Case{DCK_NAMES, {"", "b"}, ", b"}, Case{2, {"a", "b"}, "a, b"}}) {
        const EntryRow row = MakeEntryRow(Entry(c.kind, c.items));
        EXPECT_EQ(row.strItems, c.joined);
        EXPECT_EQ(row.strFolderTypes, c.joined);
        EXPECT_EQ(row.nId, 7U);
    }
}

TEST(EntryRow, CutsWhatIsLongerThanAThousandCharacters)
{
    for (const int length : {0, 999, 1000}) {
        EXPECT_EQ(CutForList(QString(length, QLatin1Char('x'))).size(), length);
    }
    const QString umlauts = QString::fromUtf8("\xC3\xA4").repeated(1001);
    EXPECT_EQ(CutForList(umlauts), umlauts.left(1000) + QStringLiteral("..."));
    const QString faces = QLatin1Char('x') + QString::fromUtf8("\xF0\x9F\x98\x80").repeated(600);
    EXPECT_EQ(CutForList(faces), faces.left(999) + QStringLiteral("..."));
}

TEST(EntryRow, NeverCutsTheSourceNorTheEntryItself)
{
    EntryRow row;
    row.strSource = row.strDest = row.strItems = row.strFolderTypes = std::string(1500, 'y');
    EXPECT_EQ(CellText(row, kEntrySource).size(), 1500);
    for (const int column : {kEntryDest, kEntryItems, kEntryFolderTypes}) {
        EXPECT_EQ(CellText(row, column).size(), 1003) << column;
    }
    EXPECT_EQ(MakeEntryRow(Entry(DCK_NAMES, {std::string(2000, 'z')})).strItems.size(), 2000U);
}

TEST(EntryRow, ShowsBytesThatAreNoTextEscaped)
{
    EntryRow row;
    row.strSource = "/a\n\xFF";
    EXPECT_EQ(CellText(row, kEntrySource), QStringLiteral("/a\\x0A\\xFF"));
}

}  // namespace
}  // namespace quorbit
