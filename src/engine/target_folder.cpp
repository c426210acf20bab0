// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/target_folder.h"

#include <utility>

#include "platform/path_text.h"

namespace quorbit {

TargetFolder::TargetFolder(FileSystem& files, const std::string& path)
    : m_pFiles(&files), m_strPath(WithSeparator(path)), m_strName(SplitLast(path).second)
{
}

TargetFolder::TargetFolder(TargetFolder& parent, std::string name)
    : m_pFiles(parent.m_pFiles),
      m_strPath(parent.m_strPath + name + SeparatorOf(parent.m_strPath)),
      m_strName(std::move(name)),
      m_pParent(&parent)
{
}

bool TargetFolder::IsTop() const
{
    return m_strPath.empty() || IsRoot(m_strPath);
}

TargetFolder& TargetFolder::Parent()
{
    if (m_pParent) {
        return *m_pParent;
    }
    if (!m_parentByPath) {
        m_parentByPath = std::make_unique<TargetFolder>(*m_pFiles, ParentFolder(m_strPath));
    }
    return *m_parentByPath;
}

bool TargetFolder::Stands()
{
    if (m_handle && m_pFiles->StillThere(*m_handle)) {
        return true;
    }
    m_handle.reset();
    m_bNew = false;
    if (std::exchange(m_bKnownMissing, false)) {
        m_whyNotOpen = Error(ErrorKind::Missing);
        return false;
    }
    Open();
    return m_handle != nullptr;
}

void TargetFolder::OpenIfThere()
{
    if (m_handle || m_strPath.empty() || IsGivenUp()) {
        return;
    }
    if (!m_pParent || (m_pParent->m_handle && !m_pParent->m_bNew)) {
        Open();
        m_bKnownMissing = !m_handle && m_whyNotOpen.Kind() == ErrorKind::Missing;
    } else {
        m_bKnownMissing = true;
    }
}

std::shared_ptr<const Folder> TargetFolder::Staging() const
{
    return m_handle || !m_pParent ? m_handle : m_pParent->Staging();
}

void TargetFolder::Open()
{
    if (m_pParent) {
        if (!m_pParent->m_handle) {
            m_pParent->Open();
        }
        if (!m_pParent->m_handle) {
            m_whyNotOpen = m_pParent->m_whyNotOpen;
            return;
        }
        Keep(m_pFiles->OpenSubfolder(*m_pParent->m_handle, m_strName));
    } else {
        Keep(m_pFiles->OpenFolder(m_strPath));
    }
    if (m_handle && !m_bSwept) {
        m_bSwept = true;
        if (MayHaveLeftovers()) {
            m_pFiles->SweepLeftovers(*m_handle);
        }
    }
}

// False if everything unfinished is in staging folders in the top folder; see StagingFolders.
bool TargetFolder::MayHaveLeftovers() const
{
    const auto top = Top();
    return !m_pParent || !top || !m_pFiles->MayStageIn(*top, *m_handle);
}

void TargetFolder::LearnCase(const std::string& name)
{
    if (m_placed.KnowsCase()) {
        return;
    }
    const bool asParent = m_pParent && m_pParent->m_handle && m_pParent->m_placed.KnowsCase() &&
                          m_pFiles->HasOneCaseRule(*m_handle) &&
                          m_pParent->m_handle->Identity().device == m_handle->Identity().device;
    if (asParent) {
        m_placed.LearnCaseFrom(m_pParent->m_placed);
    } else {
        m_placed.LearnCase(*m_pFiles, *m_handle, name);
    }
}

void TargetFolder::Keep(Result<std::unique_ptr<Folder>> opened)
{
    if (opened) {
        m_handle = std::move(*opened);
    } else {
        m_whyNotOpen = opened.GetError();
    }
}

bool TargetFolder::Is(const FolderIdentity& folder)
{
    if (!m_handle && !m_strPath.empty()) {
        Open();
    }
    return m_handle && m_handle->Identity() == folder;
}

Status TargetFolder::Create(const Folder* like)
{
    TargetFolder& parent = Parent();
    if (!parent.Stands()) {
        return Error(ErrorKind::Missing);
    }
    const Status created = m_pFiles->CreateFolder(*parent.m_handle, m_strName, like);
    if (created) {
        m_bSwept = true;  // a new folder contains no leftovers
        m_bKnownMissing = false;
        Open();
        m_bNew = m_handle != nullptr;
        m_bChanged = true;
        parent.m_bChanged = true;
    }
    return created;
}

}  // namespace quorbit
