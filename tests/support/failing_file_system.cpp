// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/failing_file_system.h"

namespace quorbit {

namespace {

class FailingListing final : public Listing {
public:
    FailingListing(FailingFileSystem& owner, std::unique_ptr<Listing> inner)
        : m_owner(owner), m_inner(std::move(inner))
    {
    }

    Result<bool> Next(FindData& item) override
    {
        const Status entered = m_owner.Enter(FileSystemCall::Next);
        return entered ? m_inner->Next(item) : Result<bool>(entered.GetError());
    }

private:
    FailingFileSystem& m_owner;
    std::unique_ptr<Listing> m_inner;
};

}  // namespace

int FailingFileSystem::Count(FileSystemCall call) const
{
    const auto position = m_counts.find(call);
    return position == m_counts.end() ? 0 : position->second;
}

Status FailingFileSystem::Enter(FileSystemCall call)
{
    const Moment moment{call, ++m_counts[call]};
    if (const auto action = m_actions.find(moment); action != m_actions.end()) {
        action->second();
    }
    if (const auto failure = m_failures.find(moment); failure != m_failures.end()) {
        return failure->second;
    }
    const auto always = m_alwaysFailing.find(call);
    return always == m_alwaysFailing.end() ? Status() : Status(always->second);
}

Result<std::unique_ptr<Folder>> FailingFileSystem::OpenFolder(const std::string& path)
{
    const Status entered = Enter(FileSystemCall::OpenFolder);
    if (!entered) {
        return entered.GetError();
    }
    return m_inner.OpenFolder(path);
}

Result<std::unique_ptr<Folder>> FailingFileSystem::OpenSubfolder(const Folder& parent,
                                                                 const std::string& name)
{
    const Status entered = Enter(FileSystemCall::OpenSubfolder);
    if (!entered) {
        return entered.GetError();
    }
    return m_inner.OpenSubfolder(parent, name);
}

bool FailingFileSystem::StillThere(const Folder& folder)
{
    return Enter(FileSystemCall::StillThere) && m_inner.StillThere(folder);
}

bool FailingFileSystem::IsProtected(const Folder& folder)
{
    return !Enter(FileSystemCall::IsProtected) || m_inner.IsProtected(folder);
}

Result<std::unique_ptr<Listing>> FailingFileSystem::List(const Folder& folder)
{
    if (Status entered = Enter(FileSystemCall::List); !entered) {
        return entered.GetError();
    }
    Result<std::unique_ptr<Listing>> listing = m_inner.List(folder);
    if (!listing) {
        return listing;
    }
    return std::unique_ptr<Listing>(std::make_unique<FailingListing>(*this, std::move(*listing)));
}

Status FailingFileSystem::ReadDetails(const Folder& folder, FindData& item)
{
    const Status entered = Enter(FileSystemCall::ReadDetails);
    return entered ? m_inner.ReadDetails(folder, item) : entered;
}

Status FailingFileSystem::ReadAttributes(const Folder& folder, FindData& item)
{
    const Status entered = Enter(FileSystemCall::ReadAttributes);
    return entered ? m_inner.ReadAttributes(folder, item) : entered;
}

Result<FindData> FailingFileSystem::Probe(const Folder& folder, const std::string& name)
{
    const Status entered = Enter(FileSystemCall::Probe);
    return entered ? m_inner.Probe(folder, name) : Result<FindData>(entered.GetError());
}

Status FailingFileSystem::SetAttributes(const Folder& folder, const std::string& name,
                                        std::uint32_t attributes)
{
    const Status entered = Enter(FileSystemCall::SetAttributes);
    return entered ? m_inner.SetAttributes(folder, name, attributes) : entered;
}

Result<std::unique_ptr<SourceFile>> FailingFileSystem::OpenSource(const Folder& folder,
                                                                  const FindData& item,
                                                                  ReadAhead readAhead)
{
    const Status entered = Enter(FileSystemCall::OpenSource);
    if (!entered) {
        return entered.GetError();
    }
    return m_inner.OpenSource(folder, item, readAhead);
}

Status FailingFileSystem::CopyFile(SourceFile& source, const Folder& destination,
                                   const std::string& name, const CopyOptions& options)
{
    const Status entered = Enter(FileSystemCall::CopyFile);
    return entered ? m_inner.CopyFile(source, destination, name, options) : entered;
}

Status FailingFileSystem::DeleteFile(const Folder& folder, const std::string& name)
{
    const Status entered = Enter(FileSystemCall::DeleteFile);
    return entered ? m_inner.DeleteFile(folder, name) : entered;
}

Status FailingFileSystem::RemoveFolder(const Folder& parent, const std::string& name)
{
    const Status entered = Enter(FileSystemCall::RemoveFolder);
    return entered ? m_inner.RemoveFolder(parent, name) : entered;
}

Status FailingFileSystem::CreateFolder(const Folder& parent, const std::string& name,
                                       const Folder* like)
{
    const Status entered = Enter(FileSystemCall::CreateFolder);
    return entered ? m_inner.CreateFolder(parent, name, like) : entered;
}

Status FailingFileSystem::Link(const Folder& folder, const std::string& name,
                               const std::string& newName)
{
    const Status entered = Enter(FileSystemCall::Link);
    return entered ? m_inner.Link(folder, name, newName) : entered;
}

Status FailingFileSystem::Rename(const Folder& folder, const std::string& name,
                                 const std::string& newName)
{
    const Status entered = Enter(FileSystemCall::Rename);
    return entered ? m_inner.Rename(folder, name, newName) : entered;
}

void FailingFileSystem::SweepLeftovers(const Folder& folder)
{
    if (Enter(FileSystemCall::SweepLeftovers)) {
        m_inner.SweepLeftovers(folder);
    }
}

Status FailingFileSystem::SyncWritten()
{
    const Status entered = Enter(FileSystemCall::SyncWritten);
    return entered ? m_inner.SyncWritten() : entered;
}

}  // namespace quorbit
