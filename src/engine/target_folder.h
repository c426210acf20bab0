// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A folder at the destination: named by text where an entry begins, by its parent and its name
// below that. It may not exist yet. Worker thread only.

#pragma once

#include <memory>
#include <string>

#include "platform/file_system.h"

namespace quorbit {

class TargetFolder {
public:
    // The destination of an entry. The path need not end in a separator.
    TargetFolder(FileSystem& files, const std::string& path);
    // A folder inside another one, which must outlive it.
    TargetFolder(TargetFolder& parent, std::string name);
    TargetFolder(const TargetFolder&) = delete;
    TargetFolder& operator=(const TargetFolder&) = delete;

    // With a closing separator; empty if the entry names no destination.
    [[nodiscard]] const std::string& Path() const { return m_strPath; }
    // A volume, or nothing at all: there is no parent to create it in.
    [[nodiscard]] bool IsTop() const;
    // The folder above, to be created first if it is missing.
    [[nodiscard]] TargetFolder& Parent();

    // Opens the folder if that is possible. False if it does not stand.
    bool Stands();
    // The open folder; null while it does not stand.
    [[nodiscard]] const Folder* Handle() const { return m_handle.get(); }
    // Whether it stands and is this very folder.
    [[nodiscard]] bool Is(const FolderIdentity& folder);
    // Whether this object has created the folder, so that it holds nothing but what was put into it
    // since. Forgotten once it was lost from sight.
    [[nodiscard]] bool IsNew() const { return m_bNew; }
    // Creates the folder in its parent, which must stand. See FileSystem::CreateFolder for `like`.
    Status Create(const Folder* like);

private:
    void Open();

    FileSystem* m_pFiles;
    std::string m_strPath;
    std::string m_strName;
    TargetFolder* m_pParent = nullptr;  // where this one was made from
    std::unique_ptr<TargetFolder>
        m_parentByPath;  // else the parent by text, made when it is asked for
    std::unique_ptr<Folder> m_handle;
    bool m_bSwept = false;
    bool m_bNew = false;
};

}  // namespace quorbit
