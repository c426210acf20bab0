// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/entry_plan.h"

#include <utility>

#include "platform/path_text.h"

namespace quorbit {
namespace {

constexpr std::uint32_t kScript = DCF_SCRIPT_WSH | DCF_SCRIPT_DOS;

bool IsFolderList(const CDirCopy& entry)
{
    return !entry.m_listFolderTypes.empty() || (entry.m_dwFlags & DCF_FOLDER_ITEMS) != 0;
}

// Folder types are always masks; m_nKind describes the folder names.
WalkRules RulesOf(const CDirCopy& entry)
{
    return {.list = IsFolderList(entry) ? entry.m_listFolderTypes : entry.m_listItems,
            .dwFlags = entry.m_dwFlags,
            .nMask = entry.m_dwFlags & DCF_ATTR_MASK,
            .nKind = entry.m_listFolderTypes.empty() ? entry.m_nKind
                                                     : static_cast<std::uint32_t>(DCK_TYPES)};
}

// The source folder of an item in a folder list, and its name at the destination.
struct ListedFolder {
    std::string source;  // with a trailing separator; empty if the entry names no folder
    std::string name;
};

ListedFolder ResolveListItem(const CDirCopy& entry, const std::string& item)
{
    if (entry.m_strSource == kMyComputer) {
        return {WithSeparator(item), VolumeName(item)};
    }
    // Without a source, the item would be relative to the current folder. Without an item, the
    // source itself would be copied or deleted.
    if (entry.m_strSource.empty() || item.empty()) {
        return {"", item};
    }
    return {WithSeparator(WithSeparator(entry.m_strSource) + item), item};
}

// Sets the target by its name in the destination, unless the name contains separators. Without a
// destination, always sets the name: the path would be relative to the current folder.
void SetListedTarget(PlanStep& step, const std::string& destination, const std::string& name)
{
    const char separator = SeparatorOf(destination);
    if (!name.empty() && (destination.empty() || name.find(separator) == std::string::npos)) {
        step.targetName = name;
    }
    step.target = name.empty() ? destination : WithSeparator(destination + name);
}

PlanStep StepOfListItem(const CDirCopy& entry, const EntryPlan& plan, const std::string& item)
{
    ListedFolder folder = ResolveListItem(entry, item);
    PlanStep step;
    step.source = std::move(folder.source);
    if (plan.rules.Has(DCF_DELETE_FOLDER)) {
        step.kind = StepKind::DeleteFolder;
        step.oneUnit = true;
        return step;
    }
    // A folder list with a script flag is walked, but each folder counts as one unit, like a
    // script.
    step.oneUnit = plan.rules.Has(kScript);
    if (!plan.rules.Deletes()) {
        SetListedTarget(step, plan.destination, folder.name);
        step.makesTarget = true;
    }
    return step;
}

PlanStep StepOfSource(const CDirCopy& entry, const EntryPlan& plan)
{
    const bool masks = plan.rules.nKind == DCK_TYPES;
    PlanStep step;
    if (plan.rules.Has(kScript)) {
        step.kind = StepKind::RunScript;
        step.source = entry.m_strSource;
        step.oneUnit = true;
        return step;
    }
    step.source = WithSeparator(entry.m_strSource);
    if (masks && plan.rules.Has(DCF_DELETE_FOLDER)) {
        step.kind = StepKind::DeleteFolder;
        step.oneUnit = true;
    } else if (!plan.rules.Deletes()) {
        step.target = plan.destination;
        step.makesTarget = masks;
    }
    return step;
}

}  // namespace

EntryPlan PlanOf(const CDirCopy& entry)
{
    const bool list = IsFolderList(entry);
    EntryPlan plan;
    plan.rules = RulesOf(entry);
    // This applies before all else in the count pass: even a folder list, or one without items, is
    // one unit.
    plan.oneUnit = entry.m_nKind == DCK_TYPES && plan.rules.Has(DCF_DELETE_FOLDER);
    if (!plan.rules.Deletes() && (list || !plan.rules.Has(kScript))) {
        plan.destination = WithSeparator(entry.m_strDest);
    }
    if (!list) {
        plan.steps.push_back(StepOfSource(entry, plan));
        return plan;
    }
    if (entry.m_strSource != kMyComputer) {
        plan.listSource = WithSeparator(entry.m_strSource);
    }
    for (const std::string& item : entry.m_listItems) {
        plan.steps.push_back(StepOfListItem(entry, plan, item));
    }
    return plan;
}

}  // namespace quorbit
