// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/shell_pidl.h"

#include "platform/shell/shell_list_item.h"
#include "support/shell_test.h"

namespace quorbit {
namespace {

using Bytes = std::vector<std::uint8_t>;

const ItemIdList kOne(Bytes{4, 0, 'a', 'b', 0, 0});
const ItemIdList kTwo(Bytes{3, 0, 'x', 5, 0, 'y', 'z', '!', 0, 0});
const ItemIdList kEmpty(Bytes{0, 0});

TEST(ItemIdArithmetic, JoinsListsAndTakesNoListForTheDesktop)
{
    EXPECT_EQ(CShellPidl::ConcatIdLists(kOne, kTwo),
              ItemIdList(Bytes{4, 0, 'a', 'b', 3, 0, 'x', 5, 0, 'y', 'z', '!', 0, 0}));
    EXPECT_EQ(CShellPidl::ConcatIdLists({}, kTwo), kTwo);
    EXPECT_EQ(CShellPidl::ConcatIdLists(kEmpty, kTwo), kTwo);
    EXPECT_EQ(CShellPidl::ConcatIdLists(kTwo, {}), kTwo);
    EXPECT_EQ(CShellPidl::CopySingleItemId(kTwo), ItemIdList(Bytes{3, 0, 'x', 0, 0}));
    EXPECT_EQ(CShellPidl::CopySingleItemId(kEmpty), kEmpty);
    EXPECT_EQ(CShellPidl::GetIdListSize({}), 0U);
    EXPECT_EQ(CShellPidl::GetIdListSize(kTwo), 10U);
}

TEST(ItemIdArithmetic, NeverReadsBeyondADamagedList)
{
    const Bytes damaged[] = {
        {9},                          // half a size field
        {1, 0, 'x'},                  // smaller than its own size field
        {200, 0, 'x', 0, 0},          // longer than the list
        {3, 0, 'x', 0xFF, 0xFF, 'y'}  // a valid id, then an invalid one
    };
    for (const Bytes& bytes : damaged) {
        const std::size_t good = bytes[0] == 3 ? 3 : 0;
        EXPECT_EQ(CShellPidl::GetIdListSize(bytes), good + 2);
        EXPECT_EQ(CShellPidl::ConcatIdLists(bytes, kOne).View().size(), good + 6);
        EXPECT_EQ(CShellPidl::CopySingleItemId(bytes).View().size(), good + 2);
    }
}

class ShellPidlTest : public ShellTest {};

TEST_F(ShellPidlTest, PathsEndInASeparatorOnlyAtRoots)
{
    Write({"sub/a.txt=1"});
    m_drives["C:"] = Path();
    const auto desktop = Desktop();
    const std::pair<std::string, std::string> cases[] = {{"/", "/"},
                                                         {"C:\\", "C:\\"},
                                                         {"c:\\sub\\", "C:\\sub"},
                                                         {"C:\\sub\\a.txt", "C:\\sub\\a.txt"},
                                                         {Path("sub/"), Path("sub")},
                                                         {"::My Computer", "(none)"}};
    for (const auto& [name, path] : cases) {
        EXPECT_EQ(CShellPidl::GetPathFromIdList(*desktop, *desktop->ParseDisplayName(name))
                      .value_or("(none)"),
                  path);
    }
    EXPECT_EQ(CShellPidl::GetPathFromIdList(*desktop, kEmpty), std::nullopt);
}

TEST_F(ShellPidlTest, ItemsOfTheSameNameInTwoFoldersAreTwoItems)
{
    Write({"docs/docs/docs/", "docs/other/"});
    const auto top = BindTemp();
    const auto docs = BindTemp("docs");
    const ItemIdList inner = IdOf(*docs, "docs");
    EXPECT_FALSE(CShellPidl::IsSameItem(*top, IdOf(*top, "docs"), *docs, inner));
    EXPECT_TRUE(CShellPidl::IsSameItem(*docs, inner, *BindTemp("docs"), IdOf(*docs, "docs")));
    EXPECT_FALSE(CShellPidl::IsSameItem(*docs, inner, *docs, IdOf(*docs, "other")));
    EXPECT_EQ(CompareItemIds({docs, kOne, {}}, {docs, kTwo, {}}), 0) << "not our ids";
}

}  // namespace
}  // namespace quorbit
