// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/selection.h"

#include <gtest/gtest.h>

#include "batch/dir_copy.h"
#include "platform/find_data.h"

namespace quorbit {
namespace {

using List = std::vector<std::string>;

TEST(MatchFileType, FollowsTheTable)
{
    const struct {
        List list;
        std::string name;
        bool selected;
        std::uint32_t kind = DCK_TYPES;
        std::uint32_t flags = 0;
    } cases[] = {// Compares the end of the name with the mask without its first character.
                 {{"*.txt"}, "A.TXT", true},
                 {{"*.txt"}, ".txt", false},  // the name must be longer than the suffix
                 {{"*.txt"}, "a.txt.bak", false},
                 {{"*.htm"}, "index.html", false},
                 {{"*.t?t"}, "a.txt", false},  // only the first character is a wildcard
                 {{"*.t?t"}, "a.t?t", true},
                 {{".txt"}, "atxt", true},  // the first character is always ignored
                 {{"*"}, "a", true},
                 {{""}, "a", true},
                 {{"*.*"}, "no dot", true},
                 {{"*.* "}, "a.b", false},  // only "*.*" itself matches all
                 {{"*.a", "*.b"}, "x.b", true},
                 {{"*.prü"}, "a.PRÜ", true},
                 {{"ä.txt"}, "x.TXT", true},  // ignores the first character, not its first byte
                 {{"\xE4.txt"}, "x.TXT", true},
                 {{"*.pr\xFC"}, "a.prü", false},  // invalid UTF-8 matches only the same bytes
                 {{"*.[x"}, "a.{x", false},
                 {{}, "a.txt", false},
                 // Excluding inverts the list, except for "*.*".
                 {{"*.tmp", "*.bak"}, "a.tmp", false, DCK_TYPES, DCF_EXCLUDE},
                 {{"*.tmp", "*.bak"}, "b.BAK", false, DCK_TYPES, DCF_EXCLUDE},
                 {{"*.tmp", "*.bak"}, "c.txt", true, DCK_TYPES, DCF_EXCLUDE},
                 {{"*.*", "*.tmp"}, "a.tmp", true, DCK_TYPES, DCF_EXCLUDE},
                 {{"*.tmp", "*.*"}, "a.tmp", false, DCK_TYPES, DCF_EXCLUDE},
                 {{}, "a.tmp", true, DCK_TYPES, DCF_EXCLUDE},
                 // Whole names.
                 {{"Report.doc"}, "REPORT.DOC", true, DCK_NAMES},
                 {{"Report.doc"}, "Report.docx", false, DCK_NAMES},
                 {{"*.*"}, "a.b", false, DCK_NAMES},
                 {{}, "a", false, DCK_NAMES},
                 {{"a.txt"}, "A.txt", false, DCK_NAMES, DCF_EXCLUDE},
                 {{"ärger.txt"}, "ÄRGER.txt", false, DCK_NAMES, DCF_EXCLUDE},
                 {{"a.txt"}, "b.txt", true, DCK_NAMES, DCF_EXCLUDE},
                 {{"*.*"}, "a.b", true, DCK_NAMES, DCF_EXCLUDE},
                 // Deleting a whole folder selects every file.
                 {{}, "a", true, DCK_NAMES, DCF_DELETE_FOLDER},
                 {{"*.a"}, "x.a", true, DCK_TYPES, DCF_DELETE_FOLDER | DCF_EXCLUDE}};
    for (const auto& c : cases) {
        EXPECT_EQ(MatchFileType(c.list, c.name, c.kind, c.flags), c.selected)
            << c.name << " against " << testing::PrintToString(c.list) << c.kind << c.flags;
    }
}

TEST(MatchAttributes, FollowsTheRelationship)
{
    constexpr std::uint32_t kReadOnly = kAttributeReadOnly;
    constexpr std::uint32_t kArchive = kAttributeArchive;
    const std::tuple<std::uint32_t, std::uint32_t, bool> cases[] = {
        // AND needs equality, not a subset.
        {kReadOnly, DCF_ATTR_AND | DCF_ATTR_READONLY, true},
        {kReadOnly | kArchive, DCF_ATTR_AND | DCF_ATTR_READONLY, false},
        {kReadOnly, DCF_ATTR_AND | DCF_ATTR_READONLY | DCF_ATTR_ARCHIVE, false},
        {kAttributeNormal, DCF_ATTR_AND, true},
        {kArchive, DCF_ATTR_AND, false},
        // The system and hidden bits are swapped between file attributes and entry flags.
        {kAttributeSystem, DCF_ATTR_AND | DCF_ATTR_SYSTEM, true},
        {kAttributeSystem, DCF_ATTR_AND | DCF_ATTR_HIDDEN, false},
        {kAttributeHidden, DCF_ATTR_OR | DCF_ATTR_HIDDEN, true},
        {kAttributeHidden, DCF_ATTR_OR | DCF_ATTR_SYSTEM, false},
        {kArchive, DCF_ATTR_OR | DCF_ATTR_ARCHIVE, true},
        // OR needs one common bit.
        {kAttributeHidden | kAttributeSystem, DCF_ATTR_OR | DCF_ATTR_READONLY | DCF_ATTR_HIDDEN,
         true},
        {kArchive, DCF_ATTR_OR | DCF_ATTR_READONLY | DCF_ATTR_HIDDEN, false},
        {kReadOnly, DCF_ATTR_OR, false},
        // Other attribute bits are ignored.
        {kReadOnly | 0x100 | kAttributeFolder, DCF_ATTR_AND | DCF_ATTR_READONLY, true},
        {0x100 | kAttributeNormal, DCF_ATTR_OR | DCF_ATTR_MASK, false},
        // AND wins over OR. Without either nothing matches. Without a filter everything matches.
        {kReadOnly, DCF_ATTR_AND | DCF_ATTR_OR | DCF_ATTR_READONLY | DCF_ATTR_HIDDEN, false},
        {kReadOnly, DCF_ATTR_READONLY, false},
        {kAttributeNormal, 0, false},
        {kArchive, DCF_NO_ATTRS | DCF_ATTR_AND | DCF_ATTR_READONLY, true}};
    for (const auto& [attributes, flags, passes] : cases) {
        EXPECT_EQ(MatchAttributes(attributes, flags, flags & DCF_ATTR_MASK), passes)
            << std::hex << "attributes " << attributes << ", flags " << flags;
    }
}

}  // namespace
}  // namespace quorbit
