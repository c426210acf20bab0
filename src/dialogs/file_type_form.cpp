// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/file_type_form.h"

#include <algorithm>
#include <utility>

#include "platform/path_text.h"

namespace quorbit {
namespace {

using enum EntryBox;

}  // namespace

FileTypeForm NewFileTypeForm(bool bDelete, std::string source, const std::string& dest)
{
    FileTypeForm form;
    form.bDelete = bDelete;
    form.dest = ComposeDestination(source, dest);
    form.source = std::move(source);
    return form;
}

FileTypeForm EditFileTypeForm(bool bDelete, const CDirCopy& entry)
{
    const bool deletesFolder = (entry.m_dwFlags & DCF_DELETE_FOLDER) != 0;
    FileTypeForm form;
    form.bDelete = bDelete;
    form.flags = entry.m_dwFlags;
    form.source = entry.m_strSource;
    form.dest = entry.m_strDest;
    form.checks = ChecksOfFlags(entry.m_dwFlags, bDelete);
    if (deletesFolder) {
        if (bDelete) {
            form.checks = ClickTypeBox(form.checks, DeleteFolder, true);
        }
        return form;
    }
    for (const std::string& mask : entry.m_listItems) {
        if (mask == kEveryFile) {
            form.checks = ClickTypeBox(form.checks, AllTypes, true);
            break;
        }
        form.masks.push_back(mask);
    }
    return form;
}

std::string ComposeDestination(const std::string& source, const std::string& dest)
{
    if (dest.empty() || source.size() < 2) {
        return dest;
    }
    // The first character is the root folder in a native path, and the drive letter in a drive
    // path.
    const bool native = source.front() == '/';
    std::size_t cut = source.rfind(SeparatorOf(source));
    bool hasSeparator = cut != std::string::npos && (cut > 0 || native);
    std::string tail = hasSeparator ? source.substr(cut + 1) : source.substr(1);
    if (hasSeparator && !EndsInSeparator(dest)) {
        tail.insert(tail.begin(), SeparatorOf(dest));
    }
    return dest + tail;
}

EntryChecks ClickTypeBox(const EntryChecks& checks, EntryBox box, bool on)
{
    EntryChecks after = ClickBox(checks, box, on);
    if (box == DeleteFolder && on) {
        after[AllTypes] = false;
        after[AllBut] = false;
    }
    if (box == AllTypes && on) {
        after[AllBut] = false;
    }
    return after;
}

EntryChecks EnabledTypeBoxes(const EntryChecks& checks)
{
    EntryChecks enabled = EnabledBoxes(checks);
    enabled[AllBut] = !checks[AllTypes] && !checks[DeleteFolder];
    enabled[AllTypes] = !checks[AllBut] && !checks[DeleteFolder];
    return enabled;
}

bool ListsEnabled(const EntryChecks& checks)
{
    return !checks[AllTypes] && !checks[DeleteFolder];
}

bool SelectsNothing(const FileTypeForm& form)
{
    const bool deletesFolder = form.bDelete && form.checks[DeleteFolder];
    return !deletesFolder && !form.checks[AllTypes] && !form.checks[AllBut] && form.masks.empty();
}

bool DeletesEveryFile(const FileTypeForm& form)
{
    const bool takesMasks = !form.checks[DeleteFolder] && !form.checks[AllTypes];
    const bool keepsNone = form.masks.empty() || std::find(form.masks.begin(), form.masks.end(),
                                                           kEveryFile) != form.masks.end();
    return form.bDelete && form.checks[AllBut] && takesMasks && keepsNone;
}

EntryValues ValuesOf(const FileTypeForm& form)
{
    const bool deletesFolder = form.bDelete && form.checks[DeleteFolder];
    EntryValues values;
    values.m_strSource = form.source;
    values.m_strDest = form.dest;
    if (deletesFolder || form.checks[AllTypes]) {
        values.m_listItems.emplace_back(kEveryFile);
    }
    if (!form.checks[AllTypes]) {
        values.m_listItems.insert(values.m_listItems.end(), form.masks.begin(), form.masks.end());
    }
    std::uint32_t flags = form.flags;
    flags = form.bDelete ? flags | DCF_DELETE : flags & ~DCF_DELETE;
    flags = WithBox(flags, DeleteFolder, deletesFolder);
    for (const EntryBox box :
         {SubFolders, Sync, Incremental, AllTypes, Preserve, AllBut, Overwrite}) {
        flags = WithBox(flags, box, form.checks[box]);
    }
    values.m_dwFlags = flags;
    return values;
}

}  // namespace quorbit
