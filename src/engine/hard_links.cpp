// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/hard_links.h"

#include <utility>

namespace quorbit {

HardLinks::Copy HardLinks::Find(FileSystem& files, const FindData& source) const
{
    const auto found = m_known.find({source.device, source.inode});
    if (found == m_known.end()) {
        return {};
    }
    const Known& known = found->second;
    auto folder = files.OpenFolder(known.folderPath);
    if (!folder) {
        return {};
    }
    Copy copy{std::move(*folder), {nullptr, known.item}};
    copy.file.folder = copy.folder.get();
    return copy;
}

bool HardLinks::Add(FileSystem& files, const FindData& source, const Folder& folder,
                    const std::string& folderPath, const std::string& name)
{
    const Key key{source.device, source.inode};
    if (const auto found = m_known.find(key); found != m_known.end()) {
        if (--found->second.namesLeft == 0) {
            m_known.erase(found);
        }
        return true;
    }
    if (m_known.size() >= kMost) {
        return std::exchange(m_bFull, true);
    }
    auto copy = files.Probe(folder, name);
    if (copy) {
        m_known[key] = {folderPath, std::move(*copy), source.links - 1};
    }
    return true;
}

}  // namespace quorbit
