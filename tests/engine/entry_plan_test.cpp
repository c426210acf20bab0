// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/entry_plan.h"

#include <gtest/gtest.h>

namespace quorbit {
namespace {

using Steps = std::vector<std::string>;

// Describes a step as "walk SOURCE to TARGET by NAME, made, one unit". Omits parts that do not
// apply.
std::string TextOf(const PlanStep& step)
{
    const char* const kinds[] = {"walk ", "delete ", "run "};
    std::string text = kinds[static_cast<std::size_t>(step.kind)] + step.source;
    text += step.target.empty() ? "" : " to " + step.target;
    text += step.targetName.empty() ? "" : " by " + step.targetName;
    text += step.makesTarget ? ", made" : "";
    return text + (step.oneUnit ? ", one unit" : "");
}

CDirCopy MakeEntry(std::uint32_t flags, std::uint32_t kind, const char* source, const char* dest,
                   std::vector<std::string> items, std::vector<std::string> folderTypes = {})
{
    CDirCopy entry(source, dest, flags, kind, 0);
    entry.m_listItems = std::move(items);
    entry.m_listFolderTypes = std::move(folderTypes);
    return entry;
}

TEST(EntryPlan, HasOneStepForASource)
{
    constexpr std::uint32_t kFolder = DCF_DELETE | DCF_DELETE_FOLDER;
    const struct {
        std::uint32_t flags;
        std::uint32_t kind;
        const char* source;
        const char* dest;
        const char* step;
        bool oneUnit;
    } cases[] = {{0, DCK_TYPES, "/a", "/b", "walk /a/ to /b/, made", false},
                 {0, DCK_NAMES, "/a/", "C:\\b", "walk /a/ to C:\\b\\", false},
                 {DCF_DELETE, DCK_TYPES, "/a", "/b", "walk /a/", false},
                 {kFolder, DCK_TYPES, "/a", "/b", "delete /a/, one unit", true},
                 {DCF_DELETE_FOLDER, DCK_TYPES, "/a", "/b", "delete /a/, one unit", true},
                 // Listed files are deleted one by one.
                 {kFolder, DCK_NAMES, "/a", "/b", "walk /a/", false},
                 {DCF_SCRIPT_DOS, DCK_NAMES, "/a.sh", "/b", "run /a.sh, one unit", false},
                 {DCF_SCRIPT_WSH | kFolder, DCK_TYPES, "/a.js", "", "run /a.js, one unit", true},
                 // An empty path must not become the root or the current folder.
                 {0, DCK_TYPES, "", "", "walk , made", false},
                 {kFolder, DCK_TYPES, "", "", "delete , one unit", true}};
    for (const auto& c : cases) {
        const EntryPlan plan = PlanOf(MakeEntry(c.flags, c.kind, c.source, c.dest, {"x"}));
        ASSERT_EQ(plan.steps.size(), 1U) << c.step;
        EXPECT_EQ(TextOf(plan.steps[0]), c.step);
        EXPECT_EQ(plan.oneUnit, c.oneUnit) << c.step;
        EXPECT_EQ(plan.rules.list, Steps{"x"});
        EXPECT_EQ(plan.rules.nKind, c.kind);
    }
}

TEST(EntryPlan, HasOneStepForEachFolderOfAList)
{
    constexpr std::uint32_t kFolders = DCF_FOLDER_ITEMS;
    constexpr std::uint32_t kWhole = DCF_FOLDER_ITEMS | DCF_DELETE | DCF_DELETE_FOLDER;
    const struct {
        CDirCopy entry;
        Steps steps;
        bool oneUnit;
    } cases[] = {
        {MakeEntry(kFolders, DCK_NAMES, "/s", "/d", {"a", "b/c"}),
         {"walk /s/a/ to /d/a/ by a, made", "walk /s/b/c/ to /d/b/c/, made"},
         false},
        {MakeEntry(kFolders, DCK_NAMES, "C:\\s", "D:\\d\\", {"a", "b\\c", "e/f"}),
         {"walk C:\\s\\a\\ to D:\\d\\a\\ by a, made", "walk C:\\s\\b\\c\\ to D:\\d\\b\\c\\, made",
          "walk C:\\s\\e/f\\ to D:\\d\\e/f\\ by e/f, made"},
         false},
        {MakeEntry(kFolders, DCK_NAMES, "My Computer", "/d", {"C:\\", "/mnt/e"}),
         {"walk C:\\ to /d/C/ by C, made", "walk /mnt/e/ to /d/mnt-e/ by mnt-e, made"},
         false},
        {MakeEntry(kFolders | DCF_DELETE, DCK_NAMES, "/s", "/d", {"a"}), {"walk /s/a/"}, false},
        {MakeEntry(kWhole, DCK_NAMES, "/s", "", {"a", "b"}),
         {"delete /s/a/, one unit", "delete /s/b/, one unit"},
         false},
        // An empty item must not mean the source itself, and an item without a source must not be
        // relative to the current folder.
        {MakeEntry(kWhole, DCK_NAMES, "/s", "", {""}), {"delete , one unit"}, false},
        {MakeEntry(kWhole, DCK_NAMES, "", "", {"a"}), {"delete , one unit"}, false},
        {MakeEntry(kFolders, DCK_NAMES, "/s", "", {"a", "b/c"}),
         {"walk /s/a/ to a/ by a, made", "walk /s/b/c/ to b/c/ by b/c, made"},
         false},
        {MakeEntry(kFolders, DCK_NAMES, "/s", "/d", {}), {}, false},
        // Entries whose count differs from the number of steps.
        {MakeEntry(kWhole, DCK_TYPES, "/s", "", {"a", "b"}),
         {"delete /s/a/, one unit", "delete /s/b/, one unit"},
         true},
        {MakeEntry(kWhole, DCK_TYPES, "/s", "", {}), {}, true},
        {MakeEntry(kFolders | DCF_SCRIPT_DOS, DCK_NAMES, "/s", "/d", {"a"}),
         {"walk /s/a/ to /d/a/ by a, made, one unit"},
         false}};
    for (const auto& c : cases) {
        const EntryPlan plan = PlanOf(c.entry);
        Steps steps;
        for (const PlanStep& step : plan.steps) {
            steps.push_back(TextOf(step));
        }
        EXPECT_EQ(steps, c.steps);
        EXPECT_EQ(plan.oneUnit, c.oneUnit);
    }
}

TEST(EntryPlan, FolderTypesMakeAFolderListOfMasks)
{
    const EntryPlan plan =
        PlanOf(MakeEntry(DCF_ATTR_AND | DCF_ATTR_HIDDEN, DCK_NAMES, "/s", "/d", {"a"}, {"*.txt"}));
    EXPECT_EQ(TextOf(plan.steps.at(0)), "walk /s/a/ to /d/a/ by a, made");
    EXPECT_EQ(plan.rules.list, Steps{"*.txt"});
    EXPECT_EQ(plan.rules.nKind, static_cast<std::uint32_t>(DCK_TYPES));
    EXPECT_EQ(plan.rules.nMask, static_cast<std::uint32_t>(DCF_ATTR_HIDDEN));
    // Without folder types the list is empty, but the items are still folders.
    EXPECT_EQ(PlanOf(MakeEntry(DCF_FOLDER_ITEMS, DCK_NAMES, "/s", "/d", {"a"})).rules.list,
              Steps{});
}

}  // namespace
}  // namespace quorbit
