// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/selection.h"

#include <gtest/gtest.h>

#include "batch/dir_copy.h"
#include "platform/find_data.h"

namespace quorbit {
namespace {

using List = std::vector<std::string>;

struct NameCase {
    List list;
    std::string name;
    bool selected;
};

template <std::size_t N>
void ExpectSelection(const NameCase (&cases)[N], std::uint32_t nKind, std::uint32_t dwFlags = 0)
{
    for (const NameCase& c : cases)
        EXPECT_EQ(MatchFileType(c.list, c.name, nKind, dwFlags), c.selected)
            << c.name << " against " << testing::PrintToString(c.list);
}

TEST(MatchFileType, ComparesTheEndOfTheNameWithTheMaskWithoutItsFirstCharacter)
{
    const NameCase cases[] = {
        {{"*.txt"}, "A.TXT", true},
        {{"*.txt"}, ".txt", false},  // the name must be longer than the suffix
        {{"*.txt"}, "a.txt.bak", false},
        {{"*.htm"}, "index.html", false},
        {{"*.t?t"}, "a.txt", false},  // no wildcards but the first character
        {{"*.t?t"}, "a.t?t", true},
        {{".txt"}, "a.txt", true},  // whatever the first character is, it goes
        {{".txt"}, "atxt", true},
        {{"*"}, "a", true},
        {{""}, "a", true},
        {{"*.*"}, "no dot", true},
        {{"*.* "}, "a.b", false},  // exactly "*.*" only
        {{"*.a", "*.b"}, "x.b", true},
        {{"*.\xC3\x84"}, "x.\xC3\xA4", false},  // letters without case are those of ASCII
        {{"*.[x"}, "a.{x", false},
        {{}, "a.txt", false},
    };
    ExpectSelection(cases, DCK_TYPES);
}

TEST(MatchFileType, ExcludeTurnsTheListRoundExceptForAllFiles)
{
    const NameCase cases[] = {
        {{"*.tmp", "*.bak"}, "a.tmp", false}, {{"*.tmp", "*.bak"}, "b.BAK", false},
        {{"*.tmp", "*.bak"}, "c.txt", true},  {{"*.*", "*.tmp"}, "a.tmp", true},
        {{"*.tmp", "*.*"}, "a.tmp", false},   {{}, "a.tmp", true},
    };
    ExpectSelection(cases, DCK_TYPES, DCF_EXCLUDE);
}

TEST(MatchFileType, ComparesWholeNames)
{
    const NameCase cases[] = {
        {{"Report.doc"}, "REPORT.DOC", true},
        {{"Report.doc"}, "Report.docx", false},
        {{"*.*"}, "a.b", false},
        {{}, "a", false},
    };
    ExpectSelection(cases, DCK_NAMES);
    const NameCase excluding[] = {
        {{"a.txt"}, "A.txt", false},
        {{"a.txt"}, "b.txt", true},
        {{"*.*"}, "a.b", true},
        {{}, "a", true},
    };
    ExpectSelection(excluding, DCK_NAMES, DCF_EXCLUDE);
}

TEST(MatchFileType, AFolderDeletedAsAUnitTakesEveryFile)
{
    EXPECT_TRUE(MatchFileType({}, "a", DCK_NAMES, DCF_DELETE_FOLDER));
    EXPECT_TRUE(MatchFileType({"*.a"}, "x.a", DCK_TYPES, DCF_DELETE_FOLDER | DCF_EXCLUDE));
}

TEST(MatchAttributes, FollowsTheRelationship)
{
    constexpr std::uint32_t kReadOnly = kAttributeReadOnly;
    constexpr std::uint32_t kArchive = kAttributeArchive;
    const struct {
        std::uint32_t attributes;
        std::uint32_t flags;
        bool passes;
    } cases[] = {
        // Equality, not a subset.
        {kReadOnly, DCF_ATTR_AND | DCF_ATTR_READONLY, true},
        {kReadOnly | kArchive, DCF_ATTR_AND | DCF_ATTR_READONLY, false},
        {kReadOnly, DCF_ATTR_AND | DCF_ATTR_READONLY | DCF_ATTR_ARCHIVE, false},
        {kAttributeNormal, DCF_ATTR_AND, true},
        {kArchive, DCF_ATTR_AND, false},
        // System and hidden change places between the two words.
        {kAttributeSystem, DCF_ATTR_AND | DCF_ATTR_SYSTEM, true},
        {kAttributeSystem, DCF_ATTR_AND | DCF_ATTR_HIDDEN, false},
        {kAttributeHidden, DCF_ATTR_OR | DCF_ATTR_HIDDEN, true},
        {kAttributeHidden, DCF_ATTR_OR | DCF_ATTR_SYSTEM, false},
        {kArchive, DCF_ATTR_OR | DCF_ATTR_ARCHIVE, true},
        // One in common.
        {kAttributeHidden | kAttributeSystem, DCF_ATTR_OR | DCF_ATTR_READONLY | DCF_ATTR_HIDDEN,
         true},
        {kArchive, DCF_ATTR_OR | DCF_ATTR_READONLY | DCF_ATTR_HIDDEN, false},
        {kReadOnly, DCF_ATTR_OR, false},
        // Other bits of the word are not looked at.
        {kReadOnly | 0x100 | kAttributeFolder, DCF_ATTR_AND | DCF_ATTR_READONLY, true},
        {0x100 | kAttributeNormal, DCF_ATTR_OR | DCF_ATTR_MASK, false},
        // AND wins; neither lets nothing pass; no filter lets everything pass.
        {kReadOnly, DCF_ATTR_AND | DCF_ATTR_OR | DCF_ATTR_READONLY | DCF_ATTR_HIDDEN, false},
        {kReadOnly, DCF_ATTR_READONLY, false},
        {kAttributeNormal, 0, false},
        {kArchive, DCF_NO_ATTRS | DCF_ATTR_AND | DCF_ATTR_READONLY, true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MatchAttributes(c.attributes, c.flags, c.flags & DCF_ATTR_MASK), c.passes)
            << std::hex << "attributes " << c.attributes << ", flags " << c.flags;
}

}  // namespace
}  // namespace quorbit
