// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests the forms behind the entry dialogs, without windows.

#include <gtest/gtest.h>

#include "dialogs/attribute_form.h"
#include "dialogs/file_entry_form.h"
#include "dialogs/file_type_form.h"

namespace quorbit {
namespace {

using enum EntryBox;
using Names = std::vector<std::string>;

EntryChecks On(std::initializer_list<EntryBox> boxes)
{
    EntryChecks checks;
    for (const EntryBox box : boxes) {
        checks[box] = true;
    }
    return checks;
}

CDirCopy Entry(std::uint32_t flags, Names items, Names folderTypes = {})
{
    CDirCopy entry("/from", "/to", flags, DCK_NAMES, 0);
    entry.m_listItems = std::move(items);
    entry.m_listFolderTypes = std::move(folderTypes);
    return entry;
}

TEST(EntryForms, EveryBoxSetsAndClearsItsFlag)
{
    const std::pair<EntryBox, std::uint32_t> boxes[] = {
        {SubFolders, DCF_SUBFOLDERS},
        {Preserve, DCF_PRESERVE_TREE},
        {Sync, DCF_SYNC},
        {Incremental, DCF_INCREMENTAL},
        {AllBut, DCF_EXCLUDE},
        {Overwrite, DCF_OVERWRITE_RO},
    };
    const auto flagsOf = [](auto form, std::uint32_t flags, const EntryChecks& checks) {
        form.flags = flags;
        form.checks = checks;
        return ValuesOf(form).m_dwFlags;
    };
    for (const auto& [box, flag] : boxes) {
        EXPECT_EQ(flagsOf(FileEntryForm(), 0, On({box})), flag);
        EXPECT_EQ(flagsOf(FileTypeForm(), 0, On({box})), flag);
        EXPECT_EQ(flagsOf(FileEntryForm(), flag, {}), 0U) << flag;
        EXPECT_EQ(flagsOf(FileTypeForm(), flag, {}), 0U) << flag;
    }
}

TEST(FileEntryForm, MendsFlagsThatDoNotFitTogether)
{
    const struct {
        const char* what;
        bool bDelete;
        std::uint32_t before;
        std::uint32_t after;
    } cases[] = {
        {"tree without sub folders", false, DCF_PRESERVE_TREE, 0},
        {"sync wins", false, DCF_SYNC | DCF_INCREMENTAL, DCF_SYNC},
        {"delete drops sync", true, DCF_DELETE | DCF_SYNC, DCF_DELETE},
        {"delete drops incremental", true, DCF_DELETE | DCF_INCREMENTAL, DCF_DELETE},
        {"files have no whole folder", true, DCF_DELETE | DCF_DELETE_FOLDER, DCF_DELETE},
        {"bits of others stay", false, DCF_ALL_TYPES | DCF_ATTR_AND | 0x80000000,
         DCF_ALL_TYPES | DCF_ATTR_AND | 0x80000000},
    };
    for (const auto& c : cases) {
        const auto form = EditFileEntryForm(true, c.bDelete, Entry(c.before, {"a"}));
        EXPECT_EQ(ValuesOf(form).m_dwFlags, c.after) << c.what;
    }
}

TEST(FileEntryForm, TakesAnEntryWithFolderTypesForAFolderEntry)
{
    const auto form = EditFileEntryForm(true, false, Entry(DCF_NO_ATTRS, {"d"}, {"*.txt"}));
    EXPECT_STREQ(TitleOf(form), "Copy Folder Property Setup");
    const EntryValues values = ValuesOf(form);
    EXPECT_EQ(values.m_dwFlags, DCF_NO_ATTRS | DCF_FOLDER_ITEMS);
    EXPECT_EQ(values.m_listFolderTypes, Names{"*.txt"});
}

TEST(FileEntryForm, PutsEveryTypeIntoACopyOfFoldersOnly)
{
    for (const bool bFiles : {false, true}) {
        for (const bool bDelete : {false, true}) {
            const auto form = NewFileEntryForm(bFiles, bDelete, "/from", "/to", {"d"});
            const Names expected = !bFiles && !bDelete ? Names{"*.*"} : Names{};
            EXPECT_EQ(ValuesOf(form).m_listFolderTypes, expected) << bFiles << bDelete;
            const std::uint32_t items = bFiles ? 0U : std::uint32_t{DCF_FOLDER_ITEMS};
            const std::uint32_t deletes = bDelete ? std::uint32_t{DCF_DELETE} : 0U;
            EXPECT_EQ(ValuesOf(form).m_dwFlags, DCF_NO_ATTRS | items | deletes);
        }
    }
}

TEST(FileEntryForm, ReadsTheNamesOfADrop)
{
    const struct {
        const char* text;
        Names names;
    } cases[] = {
        {"", {}},
        {"F", {}},
        {"Fone.txt", {"one.txt"}},
        {"Fone.txt, two.txt, three", {"one.txt", "two.txt", "three"}},
        {"FFirst", {"First"}},
        {"Fa,b.txt, c", {"a", ".txt", "c"}},
        {"D/home/me", {}},
        {"DC:\\docs", {}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NamesOfDropText(c.text), c.names) << c.text;
    }
}

TEST(FileTypeForm, PutsTheSourceBelowTheDestination)
{
    const struct {
        const char* source;
        const char* dest;
        const char* composed;
    } cases[] = {
        {"C:\\docs\\letters", "D:\\backup", "D:\\backup\\letters"},
        {"C:\\docs\\letters", "D:\\backup\\", "D:\\backup\\letters"},
        {"C:\\", "D:\\backup", "D:\\backup\\"},
        {"C:\\docs", "", ""},
        {"/home/me/letters", "/backup", "/backup/letters"},
        {"/home/me/letters", "/backup/", "/backup/letters"},
        {"/letters", "/backup", "/backup/letters"},
        {"/home/back\\slash", "/backup", "/backup/back\\slash"},
        {"/home/letters", "D:\\backup", "D:\\backup\\letters"},
        {"C:\\docs\\letters", "/backup", "/backup/letters"},
        {"/", "/backup", "/backup"},
        {"xletters", "/backup/", "/backup/letters"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ComposeDestination(c.source, c.dest), c.composed) << c.source << " " << c.dest;
    }
}

TEST(FileTypeForm, StopsAtEveryType)
{
    const auto form = EditFileTypeForm(false, Entry(DCF_EXCLUDE, {"*.txt", "*.*", "*.doc"}));
    EXPECT_EQ(form.masks, Names{"*.txt"});
    EXPECT_EQ(form.checks, On({AllTypes}));
    EXPECT_EQ(ValuesOf(form).m_listItems, Names{"*.*"});
    EXPECT_EQ(ValuesOf(form).m_dwFlags, DCF_ALL_TYPES);
}

TEST(FileTypeForm, DeletesTheWholeSource)
{
    FileTypeForm form = NewFileTypeForm(true, "/from", "");
    EXPECT_TRUE(SelectsNothing(form));
    form.masks = {"*.txt"};
    EXPECT_FALSE(SelectsNothing(form));
    form.checks = ClickTypeBox(form.checks, DeleteFolder, true);
    const EntryValues values = ValuesOf(form);
    EXPECT_EQ(values.m_listItems, (Names{"*.*", "*.txt"}));
    EXPECT_EQ(values.m_dwFlags, DCF_NO_ATTRS | DCF_DELETE | DCF_DELETE_FOLDER);
    form.masks.clear();
    EXPECT_FALSE(SelectsNothing(form));

    CDirCopy entry = Entry(values.m_dwFlags, values.m_listItems);
    EXPECT_TRUE(EditFileTypeForm(true, entry).masks.empty());
}

TEST(AttributeForm, MakesTheWordAnew)
{
    const struct {
        const char* what;
        std::uint32_t before;
        std::uint32_t after;
    } cases[] = {
        {"new entry", DCF_NO_ATTRS, DCF_NO_ATTRS},
        {"nothing", 0, DCF_NO_ATTRS},
        {"no filter beside others", DCF_NO_ATTRS | DCF_SYNC | DCF_ATTR_HIDDEN, DCF_NO_ATTRS},
        {"others only", DCF_SUBFOLDERS, 0},
        {"and alone", DCF_ATTR_AND, DCF_ATTR_AND},
        {"or with all", DCF_ATTR_OR | DCF_ATTR_MASK | DCF_DELETE, DCF_ATTR_OR | DCF_ATTR_MASK},
        {"default entry", DCF_ATTR_READONLY, DCF_ATTR_READONLY},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(WordOf(OpenAttributeForm(c.before)), c.after) << c.what;
    }
    const AttributeForm form = ClickDontApply(OpenAttributeForm(DCF_NO_ATTRS), false);
    EXPECT_EQ(WordOf(form), DCF_ATTR_OR);
    EXPECT_EQ(WordOf(ClickDontApply(OpenAttributeForm(DCF_ATTR_AND | 3), true)), DCF_NO_ATTRS);
}

}  // namespace
}  // namespace quorbit
