// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/file_entry_form.h"

#include <algorithm>
#include <utility>

#include "platform/path_text.h"

namespace quorbit {
FileEntryForm NewFileEntryForm(bool bFiles, bool bDelete, std::string source, std::string dest,
                               std::vector<std::string> names)
{
    FileEntryForm form;
    form.bFiles = bFiles;
    form.bDelete = bDelete;
    form.source = std::move(source);
    form.dest = std::move(dest);
    form.names = std::move(names);
    return form;
}

FileEntryForm EditFileEntryForm(bool bFiles, bool bDelete, const CDirCopy& entry)
{
    FileEntryForm form;
    form.bFiles = bFiles && entry.m_listFolderTypes.empty();
    form.bDelete = bDelete;
    form.flags = entry.m_dwFlags;
    form.source = entry.m_strSource;
    form.dest = entry.m_strDest;
    form.names = entry.m_listItems;
    form.folderTypes = entry.m_listFolderTypes;
    form.checks = ChecksOfFlags(entry.m_dwFlags, bDelete);
    if (!form.bFiles && (entry.m_dwFlags & DCF_DELETE_FOLDER) != 0) {
        form.checks = ClickBox(form.checks, EntryBox::DeleteFolder, true);
    }
    return form;
}

std::vector<std::string> NamesOfDropText(const std::string& text)
{
    if (text.starts_with('D')) {
        const std::string path = text.substr(1);
        if (path.starts_with('/') || IsWindowsPath(path)) {
            return {};
        }
    }
    std::vector<std::string> names;
    std::size_t at = text.starts_with('F') ? 1 : 0;
    while (at < text.size()) {
        const std::size_t comma = std::min(text.find(',', at), text.size());
        names.push_back(text.substr(at, comma - at));
        at = comma + 2;
    }
    return names;
}

const char* TitleOf(const FileEntryForm& form)
{
    if (form.bDelete) {
        return form.bFiles ? "Delete File Property Setup" : "Delete Folder Property Setup";
    }
    return form.bFiles ? "Copy File Property Setup" : "Copy Folder Property Setup";
}

bool TakesEveryType(const FileEntryForm& form)
{
    return !form.bFiles && !form.bDelete && form.folderTypes.empty();
}

bool DeletesEveryFile(const FileEntryForm& form)
{
    const std::vector<std::string>& kept = form.bFiles ? form.names : form.folderTypes;
    const bool keepsNone = kept.empty() || (!form.bFiles && std::find(kept.begin(), kept.end(),
                                                                      kEveryFile) != kept.end());
    return form.bDelete && form.checks[EntryBox::AllBut] && keepsNone &&
           (form.bFiles || (!form.names.empty() && !form.checks[EntryBox::DeleteFolder]));
}

EntryValues ValuesOf(const FileEntryForm& form)
{
    EntryValues values;
    values.m_strSource = form.source;
    values.m_strDest = form.dest;
    values.m_listItems = form.names;
    values.m_listFolderTypes = form.folderTypes;
    if (TakesEveryType(form)) {
        values.m_listFolderTypes.emplace_back(kEveryFile);
    }
    std::uint32_t flags = form.flags;
    if (!form.bFiles) {
        flags |= DCF_FOLDER_ITEMS;
    }
    flags = form.bDelete ? flags | DCF_DELETE : flags & ~DCF_DELETE;
    flags =
        WithBox(flags, EntryBox::DeleteFolder, form.bDelete && form.checks[EntryBox::DeleteFolder]);
    for (const EntryBox box : {EntryBox::SubFolders, EntryBox::Sync, EntryBox::Incremental,
                               EntryBox::Preserve, EntryBox::AllBut, EntryBox::Overwrite}) {
        flags = WithBox(flags, box, form.checks[box]);
    }
    values.m_dwFlags = flags;
    return values;
}

bool IsMaskText(const std::string& text)
{
    return text.starts_with('*') || text.starts_with('?');
}

}  // namespace quorbit
