// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/folder_items.h"

#include <utility>

#include "engine/run_flags.h"
#include "platform/path_text.h"

namespace quorbit {

Result<FolderItems> FolderItems::List(FileSystem& files, const Folder& folder)
{
    auto listing = files.List(folder);
    if (!listing) {
        return listing.GetError();
    }
    return FolderItems(files, folder, std::move(*listing));
}

FolderItems::FolderItems(FileSystem& files, const Folder& folder, std::unique_ptr<Listing> listing)
    : m_pFiles(&files), m_pFolder(&folder), m_listing(std::move(listing))
{
}

Result<bool> FolderItems::Next(FindData& item)
{
    if (g_bStopRun) {
        return false;
    }
    auto more = m_listing->Next(item);
    if (!more || !*more) {
        return more;
    }
    if (g_bStopRun) {  // requested while the file system was slow to answer
        return false;
    }
    // On failure the kind stays unknown. The item is then processed as a file, which fails and is
    // reported.
    if (item.kind == ItemKind::Unknown) {
        (void)m_pFiles->ReadDetails(*m_pFolder, item);
    }
    return more;
}

std::string SubfolderPath(const std::string& folder, const std::string& name)
{
    return folder + name + SeparatorOf(folder);
}

}  // namespace quorbit
