// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A destination folder, which may not exist yet. The top folder is given by its path, the others by
// parent and name. Worker thread only.

#pragma once

#include <memory>
#include <string>

#include "engine/placed_items.h"
#include "platform/file_system.h"

namespace quorbit {

class TargetFolder {
public:
    // The destination of an entry. path may lack the trailing separator. `files` is not owned and
    // must outlive this object.
    TargetFolder(FileSystem& files, const std::string& path);
    // A subfolder. The parent is not owned and must outlive this object.
    TargetFolder(TargetFolder& parent, std::string name);
    TargetFolder(const TargetFolder&) = delete;
    TargetFolder& operator=(const TargetFolder&) = delete;

    // With a trailing separator; empty if the entry has no destination.
    [[nodiscard]] const std::string& Path() const { return m_strPath; }
    // True for the root of a volume and for an empty path: it has no parent in which it could be
    // created.
    [[nodiscard]] bool IsTop() const;
    // The parent folder, which must be created first if it is missing.
    [[nodiscard]] TargetFolder& Parent();

    // Opens the folder unless it is open and still exists. Returns false if it cannot be opened.
    bool Stands();
    // Opens the folder if it exists, without changing anything on the disk. It need not be tried
    // where it is known that the folder does not exist. Steps that create folders may still wait.
    void OpenIfThere();
    // The folder, or the nearest parent that is open, for copies to be placed here later; null if
    // none is open.
    [[nodiscard]] std::shared_ptr<const Folder> Staging() const;
    // The top folder, or null if it is not open.
    [[nodiscard]] std::shared_ptr<const Folder> Top() const
    {
        return m_pParent ? m_pParent->Top() : m_handle;
    }
    // The error of the last attempt to open the folder. NotAFolder if its name is a file or a link.
    // Only if Stands() returned false.
    [[nodiscard]] const Error& WhyNotOpen() const { return m_whyNotOpen; }
    // Nothing more is placed in this folder and its subfolders. Call it after the reason was
    // reported, so that an unusable folder is one error and not one for each of its files.
    void GiveUp() { m_bGivenUp = true; }
    [[nodiscard]] bool IsGivenUp() const
    {
        return m_bGivenUp || (m_pParent && m_pParent->IsGivenUp());
    }
    // The open folder, or null if it is not open. Owned by this object.
    [[nodiscard]] const Folder* Handle() const { return m_handle.get(); }
    // The same, shared by this object.
    [[nodiscard]] const std::shared_ptr<const Folder>& Shared() const { return m_handle; }
    // Returns true if the folder exists and has this identity. Opens it if necessary.
    [[nodiscard]] bool Is(const FolderIdentity& folder);
    // True if this object created the folder, which therefore contains only what was put there
    // since. False again after the folder was reopened because it had been removed.
    [[nodiscard]] bool IsNew() const { return m_bNew; }
    // True if this run changed the folder, so that its time is no longer its own.
    [[nodiscard]] bool IsChanged() const { return m_bChanged; }
    void MarkChanged() { m_bChanged = true; }
    // Finds out once whether the folder, which is open, ignores case. name: an item in it.
    void LearnCase(const std::string& name);
    // The items whose source names are known.
    [[nodiscard]] PlacedItems& Placed() { return m_placed; }
    // Creates the folder in its parent. Returns Missing if the parent does not exist. `like`: see
    // FileSystem::CreateFolder.
    Status Create(const Folder* like);

private:
    void Open();
    void Keep(Result<std::unique_ptr<Folder>> opened);
    [[nodiscard]] bool MayHaveLeftovers() const;

    FileSystem* m_pFiles;
    std::string m_strPath;
    std::string m_strName;
    TargetFolder* m_pParent = nullptr;  // not owned; null for the top folder
    std::unique_ptr<TargetFolder>
        m_parentByPath;  // parent of the top folder; null until it is used
    std::shared_ptr<const Folder> m_handle;
    Error m_whyNotOpen{ErrorKind::Missing};
    bool m_bGivenUp = false;
    bool m_bSwept = false;
    bool m_bKnownMissing = false;  // so the next attempt to open it is not made
    bool m_bNew = false;
    bool m_bChanged = false;
    PlacedItems m_placed;
};

}  // namespace quorbit
