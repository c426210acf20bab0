// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/shell_pidl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "platform/shell/shell_list_item.h"
#include "shell_fixture.h"

namespace quorbit {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes BytesOf(ItemIdView list)
{
    return {list.begin(), list.end()};
}

const ItemIdList kOne(Bytes{4, 0, 'a', 'b', 0, 0});
const ItemIdList kTwo(Bytes{3, 0, 'x', 5, 0, 'y', 'z', '!', 0, 0});
const ItemIdList kEmpty(Bytes{0, 0});

TEST(ItemIdArithmetic, CountsTheTerminatorButNoListIsNothing)
{
    EXPECT_EQ(CShellPidl::GetIdListSize({}), 0U);
    EXPECT_EQ(CShellPidl::GetIdListSize(kEmpty), 2U);
    EXPECT_EQ(CShellPidl::GetIdListSize(kOne), 6U);
    EXPECT_EQ(CShellPidl::GetIdListSize(kTwo), 10U);
    EXPECT_EQ(BytesOf(CShellPidl::CreateIdList(3)), (Bytes{0, 0, 0}));
}

TEST(ItemIdArithmetic, StepsFromIdToIdAndStaysAtTheEnd)
{
    const ItemIdView second = CShellPidl::GetNextItemId(kTwo);
    EXPECT_EQ(BytesOf(second), (Bytes{5, 0, 'y', 'z', '!', 0, 0}));
    const ItemIdView end = CShellPidl::GetNextItemId(second);
    EXPECT_EQ(BytesOf(end), (Bytes{0, 0}));
    EXPECT_EQ(BytesOf(CShellPidl::GetNextItemId(end)), (Bytes{0, 0}));
}

TEST(ItemIdArithmetic, JoinsListsAndTakesNoListForTheDesktop)
{
    EXPECT_EQ(BytesOf(CShellPidl::ConcatIdLists(kOne, kTwo)),
              (Bytes{4, 0, 'a', 'b', 3, 0, 'x', 5, 0, 'y', 'z', '!', 0, 0}));
    EXPECT_EQ(CShellPidl::ConcatIdLists({}, kTwo), kTwo);
    EXPECT_EQ(CShellPidl::ConcatIdLists(kEmpty, kTwo), kTwo);
    EXPECT_EQ(CShellPidl::ConcatIdLists(kTwo, {}), kTwo);
    EXPECT_EQ(CShellPidl::CopySingleItemId(kTwo), ItemIdList(Bytes{3, 0, 'x', 0, 0}));
    EXPECT_EQ(CShellPidl::CopySingleItemId(kEmpty), kEmpty);
}

TEST(ItemIdArithmetic, NeverReadsBeyondADamagedList)
{
    const std::vector<Bytes> damaged = {
        {9},                          // half a size
        {1, 0, 'x'},                  // smaller than its own size field
        {200, 0, 'x', 0, 0},          // longer than the list
        {3, 0, 'x', 0xFF, 0xFF, 'y'}  // a good id, then a bad one
    };
    for (const Bytes& bytes : damaged) {
        const std::size_t good = bytes[0] == 3 ? 3 : 0;
        EXPECT_EQ(CShellPidl::GetIdListSize(bytes), good + 2);
        EXPECT_EQ(BytesOf(CShellPidl::ConcatIdLists(bytes, kOne)).size(), good + 6);
        EXPECT_EQ(CShellPidl::CopySingleItemId(bytes).View().size(), good + 2);
    }
}

class ShellPidlTest : public ShellTest {};

// Stands in for a folder that cannot compare.
class MuteFolder final : public ShellFolder {
public:
    std::unique_ptr<ShellEnumerator> EnumObjects(std::uint32_t, std::stop_token) const override
    {
        return nullptr;
    }
    Result<std::uint32_t> GetAttributesOf(ItemIdView, std::uint32_t) const override { return kNo; }
    Result<std::string> GetDisplayNameOf(ItemIdView, std::uint32_t) const override { return kNo; }
    Result<ShellFolderPtr> BindToObject(ItemIdView) const override { return kNo; }
    Result<int> CompareIDs(ItemIdView, ItemIdView) const override { return kNo; }
    Result<ItemIdList> ParseDisplayName(std::string_view) const override { return kNo; }

private:
    inline static const Error kNo{ErrorKind::Other, "no"};
};

TEST_F(ShellPidlTest, NodesThatCannotBeComparedAreEqual)
{
    const auto mute = std::make_shared<const MuteFolder>();
    EXPECT_EQ(CompareItemIds({mute, kOne, {}}, {mute, kTwo, {}}), 0);
    EXPECT_EQ(CompareItemIds({Desktop(), kOne, {}}, {Desktop(), kTwo, {}}), 0) << "not our ids";
    EXPECT_EQ(CompareItemIds({}, {}), 0);
    EXPECT_EQ(CShellPidl::GetItemName(*mute, kOne, SHGDN_NORMAL), std::nullopt);
    EXPECT_EQ(CShellPidl::GetAbsoluteIdList(*Desktop(), *mute, kOne), std::nullopt);
}

TEST_F(ShellPidlTest, ALongNameComesWhole)
{
    const std::string name(255, '\xFE');
    WriteTree(Path(), {name + "/"});
    const auto folder = BindTemp();
    const ItemIdList id = Ids(*folder).at(0);
    EXPECT_EQ(CShellPidl::GetItemName(*folder, id, SHGDN_NORMAL)->size(), 4 * name.size());
    EXPECT_EQ(CShellPidl::GetPathOf(*folder, id), Path(name));
}

TEST_F(ShellPidlTest, PathsEndInASeparatorOnlyAtRoots)
{
    WriteTree(Path(), {"sub/a.txt=1"});
    m_drives['C'] = Path();
    const auto desktop = Desktop();
    const auto pathOf = [&](const std::string& parsingName) {
        const auto list = desktop->ParseDisplayName(parsingName);
        return list ? CShellPidl::GetPathFromIdList(*desktop, *list).value_or("(none)") : "(bad)";
    };
    EXPECT_EQ(pathOf("/"), "/");
    EXPECT_EQ(pathOf("C:\\"), "C:\\");
    EXPECT_EQ(pathOf("c:\\sub\\"), "C:\\sub");
    EXPECT_EQ(pathOf("C:\\sub\\a.txt"), "C:\\sub\\a.txt");
    EXPECT_EQ(pathOf(Path("sub/")), Path("sub"));
    EXPECT_EQ(pathOf("::My Computer"), "(none)");
    EXPECT_EQ(CShellPidl::GetPathFromIdList(*desktop, kEmpty), std::nullopt);
}

TEST_F(ShellPidlTest, ItemsOfTheSameNameInTwoFoldersAreTwoItems)
{
    WriteTree(Path(), {"docs/docs/docs/", "docs/other/"});
    const auto top = BindTemp();
    const auto docs = BindTemp("docs");
    const ItemIdList outer = IdOf(*top, "docs");
    const ItemIdList inner = IdOf(*docs, "docs");
    EXPECT_FALSE(CShellPidl::IsSameItem(*top, outer, *docs, inner));
    EXPECT_TRUE(CShellPidl::IsSameItem(*docs, inner, *BindTemp("docs"), IdOf(*docs, "docs")));
    EXPECT_FALSE(CShellPidl::IsSameItem(*docs, inner, *docs, IdOf(*docs, "other")));
    EXPECT_FALSE(CShellPidl::IsSameItem(*docs, kOne, *docs, kOne)) << "no item at all";
}

TEST_F(ShellPidlTest, RecordsKeepTheirFolderAliveUntilTheLastIsGone)
{
    auto folder = BindTemp();
    const std::weak_ptr<const ShellFolder> watch = folder;
    std::vector<ShellTreeItem> nodes(2, ShellTreeItem{folder, kOne, kTwo});
    auto row = std::make_unique<ShellListItem>();
    row->m_pFolder = std::move(folder);
    nodes.pop_back();
    EXPECT_EQ(watch.use_count(), 2);
    nodes.clear();
    EXPECT_FALSE(watch.expired());
    row.reset();
    EXPECT_TRUE(watch.expired());
}

TEST_F(ShellPidlTest, FoldersOpenUnderTheCursorAndFilesLookLikeTheirType)
{
    WriteTree(Path(), {"sub/", "a.PDF=", "link->a.PDF"});
    const auto folder = BindTemp();
    const auto icon = [&](const std::string& name, bool open) {
        return CShellPidl::GetItemIcon(IdOf(*folder, name), open).name;
    };
    EXPECT_EQ(icon("sub", false), "folder");
    EXPECT_EQ(icon("sub", true), "folder-open");
    EXPECT_EQ(icon("a.PDF", true), "application-pdf");
    EXPECT_EQ(icon("link", false), "inode-symlink");
    const auto full = CShellPidl::GetAbsoluteIdList(*Desktop(), *folder, IdOf(*folder, "a.PDF"));
    EXPECT_EQ(CShellPidl::GetItemIcon(full.value(), false).name, "application-pdf");
    EXPECT_EQ(
        CShellPidl::GetItemIcon(Bind("::My Computer")->BindToObject({}) ? kOne : kEmpty, false)
            .fallback,
        "application-x-generic");
}

}  // namespace
}  // namespace quorbit
