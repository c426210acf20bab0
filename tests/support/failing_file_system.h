// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fault injection: a file system that counts its calls, fails chosen ones and runs an action before
// chosen ones, so that a test can change the disk during a walk. Forwards all other calls to the
// wrapped file system.

#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_system.h"

namespace quorbit {

enum class FileSystemCall {
    OpenFolder,
    OpenSubfolder,
    StillThere,    // failing: false
    IsMountPoint,  // failing: true
    IsProtected,   // failing: true
    List,
    Next,  // of a listing
    ReadDetails,
    ReadAttributes,
    Probe,
    SetAttributes,
    OpenSource,
    CopyFile,
    CreateStagingFolder,
    Prepare,
    MakeDurable,
    Place,
    DeleteFile,
    RemoveFolder,
    CreateFolder,
    CopyFolderTime,
    Link,
    Rename,
    SweepLeftovers,  // failing: does nothing
    SyncWritten,
};

class FailingFileSystem final : public FileSystem {
    using Call = FileSystemCall;
    using Name = const std::string&;

public:
    // `inner` is not owned and must outlive this object.
    explicit FailingFileSystem(FileSystem& inner) : m_inner(inner) {}
    ~FailingFileSystem() override;

    // Calls of each kind are numbered from 1, starting at the construction of this object.
    void FailAt(Call call, int number, const Error& error)
    {
        m_failures.insert_or_assign({call, number}, error);
    }
    // Fails every further call of this kind, unless FailAt() sets another error for it.
    void FailAlways(Call call, const Error& error) { FailAt(call, kAlways, error); }
    void RunBefore(Call call, int number, std::function<void()> action)
    {
        m_actions[{call, number}] = std::move(action);
    }
    // Every call from this one on fails, as if the machine had lost its power. The destructor then
    // empties the files below `folder` that got their names before their content was written to the
    // disk. They keep their times.
    void CutPowerAt(Call call, int number, const std::string& folder)
    {
        m_lostBelow = folder;
        RunBefore(call, number, [this] { m_bPowerIsCut = true; });
    }
    // From now on, behaves like a file system that ignores the case of names.
    void IgnoreCase() { m_bIgnoresCase = true; }
    // From now on, copies are made ready in staging folders.
    void UseStaging() { m_bUsesStaging = true; }
    [[nodiscard]] int Count(Call call) const
    {
        return m_counts.contains(call) ? m_counts.at(call) : 0;
    }

    // Counts a call, runs its action and returns its failure, if any. Also called by the listings
    // that this object returns.
    [[nodiscard]] Status Enter(Call call);

    Result<std::unique_ptr<Folder>> OpenFolder(Name path) override
    {
        return Through(Call::OpenFolder, &FileSystem::OpenFolder, path);
    }
    Result<std::unique_ptr<Folder>> OpenSubfolder(const Folder& parent, Name name) override
    {
        return Through(Call::OpenSubfolder, &FileSystem::OpenSubfolder, parent,
                       Existing(parent, name));
    }
    bool StillThere(const Folder& folder) override
    {
        return Enter(Call::StillThere) && m_inner.StillThere(folder);
    }
    bool IsMountPoint(const Folder& folder) override
    {
        return !Enter(Call::IsMountPoint) || m_inner.IsMountPoint(folder);
    }
    bool IsProtected(const Folder& folder) override
    {
        return !Enter(Call::IsProtected) || m_inner.IsProtected(folder);
    }
    Result<std::unique_ptr<Listing>> List(const Folder& folder) override;
    Status ReadDetails(const Folder& folder, FindData& item) override
    {
        return Through(Call::ReadDetails, &FileSystem::ReadDetails, folder, item);
    }
    Status ReadAttributes(const Folder& folder, FindData& item) override
    {
        return Through(Call::ReadAttributes, &FileSystem::ReadAttributes, folder, item);
    }
    Result<FindData> Probe(const Folder& folder, Name name) override
    {
        return Through(Call::Probe, &FileSystem::Probe, folder, Existing(folder, name));
    }
    Status SetAttributes(const Folder& folder, Name name, std::uint32_t attributes) override
    {
        return Through(Call::SetAttributes, &FileSystem::SetAttributes, folder, name, attributes);
    }
    Result<std::unique_ptr<SourceFile>> OpenSource(const Folder& folder, const FindData& item,
                                                   ReadAhead readAhead) override
    {
        return Through(Call::OpenSource, &FileSystem::OpenSource, folder, item, readAhead);
    }
    // Hints; they do not fail and are not counted.
    void FetchAhead(const Folder& folder, const FindData& item) override
    {
        m_inner.FetchAhead(folder, item);
    }
    [[nodiscard]] std::size_t FetchedInVain() const override { return m_inner.FetchedInVain(); }
    Status CopyFile(SourceFile& source, const Folder& destination, Name name,
                    const CopyOptions& options) override;
    Result<std::unique_ptr<PreparedCopy>> Prepare(SourceFile& source, const Folder& folder,
                                                  CopyProgress* progress) override;
    Status MakeDurable(std::span<PreparedCopy* const> copies) override;
    [[nodiscard]] bool SyncsTogether(const Folder& folder) const override
    {
        return m_inner.SyncsTogether(folder);
    }
    // Even where copies are made ready without a name, if UseStaging() was called.
    [[nodiscard]] bool NamesCopies(const Folder& folder) const override
    {
        return m_bUsesStaging || m_inner.NamesCopies(folder);
    }
    [[nodiscard]] bool MayStageIn(const Folder& parent, const Folder& destination) const override
    {
        return m_inner.MayStageIn(parent, destination);
    }
    [[nodiscard]] bool HasOneCaseRule(const Folder& folder) const override
    {
        return m_inner.HasOneCaseRule(folder);
    }
    Result<std::unique_ptr<Folder>> CreateStagingFolder(const Folder& parent) override
    {
        return Through(Call::CreateStagingFolder, &FileSystem::CreateStagingFolder, parent);
    }
    Status Place(PreparedCopy& copy, const Folder& destination, Name name,
                 const CopyOptions& options) override;
    [[nodiscard]] std::vector<std::string> TakeNotKept() override { return m_inner.TakeNotKept(); }
    Status DeleteFile(const Folder& folder, Name name) override
    {
        return Through(Call::DeleteFile, &FileSystem::DeleteFile, folder, name);
    }
    Status RemoveFolder(const Folder& parent, Name name) override
    {
        return Through(Call::RemoveFolder, &FileSystem::RemoveFolder, parent, name);
    }
    Status CreateFolder(const Folder& parent, Name name, const Folder* like) override
    {
        return Through(Call::CreateFolder, &FileSystem::CreateFolder, parent,
                       Existing(parent, name), like);
    }
    Status CopyFolderTime(const Folder& from, const Folder& to) override
    {
        return Through(Call::CopyFolderTime, &FileSystem::CopyFolderTime, from, to);
    }
    Status Link(const Folder& folder, Name name, Name newName) override
    {
        return Through(Call::Link, &FileSystem::Link, folder, name, newName);
    }
    Status Rename(const Folder& folder, Name name, Name newName) override
    {
        return Through(Call::Rename, &FileSystem::Rename, folder, name, newName);
    }
    void SweepLeftovers(const Folder& folder) override
    {
        if (Enter(Call::SweepLeftovers)) {
            m_inner.SweepLeftovers(folder);
        }
    }
    Status SyncWritten() override;

private:
    // Forwards the call, or returns its failure instead.
    template <class Value, class... Parameters, class... Arguments>
    Value Through(Call call, Value (FileSystem::*function)(Parameters...), Arguments&&... arguments)
    {
        const Status entered = Enter(call);
        if (entered) {
            return (m_inner.*function)(std::forward<Arguments>(arguments)...);
        }
        if constexpr (std::is_same_v<Value, Status>) {
            return entered;
        } else {
            return entered.GetError();
        }
    }

    using Moment = std::pair<Call, int>;
    static constexpr int kAlways = 0;

    // Returns the name of the item that a file system that ignores case would find.
    [[nodiscard]] std::string Existing(const Folder& folder, Name name);

    // Remembers an item whose content is not on the disk.
    void MarkUnwritten(const Folder& folder, Name name);

    FileSystem& m_inner;
    std::atomic<bool> m_bPowerIsCut = false;
    std::string m_lostBelow;
    std::set<std::uint64_t> m_unwritten;  // inodes
    bool m_bIgnoresCase = false;
    bool m_bUsesStaging = false;
    std::mutex m_mutex;  // of the counts
    std::map<Call, int> m_counts;
    std::map<Moment, Error> m_failures;
    std::map<Moment, std::function<void()>> m_actions;
};

}  // namespace quorbit
