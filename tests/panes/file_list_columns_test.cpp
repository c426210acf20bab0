// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/file_list_columns.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>
#include <utility>

#include "panes/file_list_item.h"
#include "platform/shell/shell_constants.h"
#include "support/scoped_variable.h"

namespace quorbit {
namespace {

class Zone {
public:
    explicit Zone(const char* name) : m_variable("TZ", name) { ::tzset(); }

private:
    struct Reset {
        ~Reset() { ::tzset(); }
    } m_reset;  // after the variable is as it was
    ScopedVariable m_variable;
};

TEST(FileListColumns, SizeCountsOneMoreAtEachFullKilobyte)
{
    const std::pair<std::uint64_t, const char*> cases[] = {{0, "1KB"},
                                                           {1, "1KB"},
                                                           {1023, "1KB"},
                                                           {1024, "2KB"},
                                                           {2047, "2KB"},
                                                           {5'000'000'000, "4882813KB"},
                                                           {UINT64_MAX, "18014398509481984KB"}};
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(SizeText(SizeInKb(bytes)), text) << bytes;
    }
}

TEST(FileListColumns, AttributesAreLettersInOneOrder)
{
    const std::pair<std::uint32_t, const char*> cases[] = {
        {0, ""}, {0x80, ""}, {0x27, "RHSA"}, {0x21, "RA"}, {0x06, "HS"}, {0x12, "H"}};
    for (const auto& [word, letters] : cases) {
        EXPECT_EQ(AttributeLetters(word), letters) << word;
    }
}

TEST(FileListColumns, TimeIsLocalInTwelveHours)
{
    const Zone zone("XXX-2");  // two hours before UTC
    const std::pair<std::int64_t, const char*> cases[] = {
        {946'677'599, "12/31/99 11:59 PM"}, {946'677'600, "01/01/00 12:00 AM"},
        {946'720'800, "01/01/00 12:00 PM"}, {4'102'434'300, "12/31/99 11:05 PM"},
        {-1, "01/01/70 01:59 AM"},          {INT64_MAX, ""}};
    for (const auto& [seconds, text] : cases) {
        EXPECT_EQ(TimeText(seconds), text) << seconds;
    }
}

ShellListItem Row(const char* name, std::uint32_t attributes, std::uint64_t kb = 0,
                  std::int64_t modified = 0)
{
    ShellListItem row;
    row.m_szName = name;
    row.m_szType = std::string("type of ") + name;
    row.m_dwAttributes = attributes;
    row.m_dwSizeKB = kb;
    row.m_tModified = modified;
    return row;
}

constexpr std::uint32_t kFolder = SFGAO_FILESYSTEM | SFGAO_FOLDER | SFGAO_FILESYSANCESTOR;

TEST(FileListColumns, FoldersStandFirstInEveryColumn)
{
    const ShellListItem folder = Row("z", kFolder);
    const ShellListItem file = Row("a", SFGAO_FILESYSTEM, 9, 9);
    for (int column = -1; column <= kFileColumns; ++column) {
        EXPECT_TRUE(StandsAbove(folder, file, column)) << column;
        EXPECT_FALSE(StandsAbove(file, folder, column)) << column;
    }
}

TEST(FileListColumns, RowsOfOneKindCompareByTheValueOfTheColumn)
{
    const ShellListItem upper = Row("B", SFGAO_FILESYSTEM, 10, -5);
    const ShellListItem lower = Row("a", SFGAO_FILESYSTEM, 9, 5);
    EXPECT_TRUE(StandsAbove(upper, lower, kFileName)) << "by bytes, not by the alphabet";
    EXPECT_TRUE(StandsAbove(lower, upper, kFileSize)) << "9 before 10";
    EXPECT_TRUE(StandsAbove(upper, lower, kFileModified)) << "before 1970";
    EXPECT_TRUE(StandsAbove(lower, Row("\xC3\xA4", SFGAO_FILESYSTEM), kFileName))
        << "bytes have no sign";
    EXPECT_FALSE(StandsAbove(upper, lower, kFileColumns));
    EXPECT_FALSE(StandsAbove(lower, upper, kFileColumns));
}

TEST(FileListColumns, OnlyPlainFilesHaveASizeATimeAndAttributes)
{
    const ShellListItem unread = Row("gone", SFGAO_FILESYSTEM);
    EXPECT_EQ(CellText(unread, kFileSize), "");
    EXPECT_EQ(CellText(unread, kFileModified), "");
    EXPECT_EQ(CellText(Row("sub", kFolder), kFileSize), "0 bytes");
    EXPECT_EQ(CellText(Row("sub", kFolder), kFileModified), "");
    EXPECT_EQ(CellText(Row("f", SFGAO_FILESYSTEM, 3), kFileSize), "3KB");
}

TEST(FileListItem, ShowsOnlyWhatABatchCanName)
{
    const std::pair<std::uint32_t, bool> cases[] = {
        {SFGAO_FILESYSTEM, true},
        {kFolder, true},
        {SFGAO_FOLDER, false},
        {SFGAO_FOLDER | SFGAO_FILESYSANCESTOR, false},
        {SFGAO_FOLDER | SFGAO_FILESYSANCESTOR | SFGAO_CANRENAME, true},
        {SFGAO_FILESYSANCESTOR | SFGAO_CANRENAME, false},
        {SFGAO_CANRENAME, false},
        {0, false}};
    for (const auto& [attributes, listed] : cases) {
        FolderItem item;
        item.attributes = attributes;
        item.name = "x";
        EXPECT_EQ(MakeListItem(std::move(item), nullptr, "").has_value(), listed) << attributes;
    }
}

TEST(FileListItem, CutsTheNameOfItsServerFromAFolderOnly)
{
    for (const auto& [attributes, shown] :
         {std::pair(kFolder, "docs"), std::pair(SFGAO_FILESYSTEM, "docs on srv")}) {
        FolderItem item;
        item.attributes = attributes;
        item.name = "docs on srv";
        EXPECT_EQ(MakeListItem(std::move(item), nullptr, "srv")->m_szName, shown);
    }
}

}  // namespace
}  // namespace quorbit
