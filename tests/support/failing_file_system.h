// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A file system that counts its calls, makes chosen ones fail, and runs an action of the test
// before chosen ones, so that the disk can change while a walk is under way. Everything else goes
// through to the file system beneath.

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/file_system.h"

namespace quorbit {

enum class FileSystemCall {
    OpenFolder,
    OpenSubfolder,
    StillThere,   // failing: false
    IsProtected,  // failing: true
    List,
    Next,  // of a listing
    ReadDetails,
    ReadAttributes,
    Probe,
    SetAttributes,
    OpenSource,
    CopyFile,
    DeleteFile,
    RemoveFolder,
    CreateFolder,
    Link,
    Rename,
    SweepLeftovers,  // failing: does nothing
    SyncWritten,
};

class FailingFileSystem final : public FileSystem {
public:
    // The file system beneath must outlive this object.
    explicit FailingFileSystem(FileSystem& inner) : m_inner(inner) {}

    // Calls of a kind are numbered from 1, since this object was made.
    void FailAt(FileSystemCall call, int number, const Error& error)
    {
        m_failures.insert_or_assign({call, number}, error);
    }
    // Every call of the kind from now on.
    void FailAlways(FileSystemCall call, const Error& error)
    {
        m_alwaysFailing.insert_or_assign(call, error);
    }
    void RunBefore(FileSystemCall call, int number, std::function<void()> action)
    {
        m_actions[{call, number}] = std::move(action);
    }
    [[nodiscard]] int Count(FileSystemCall call) const;

    // For the listings that it gives out, too: counts, acts, and tells whether the call is to fail.
    [[nodiscard]] Status Enter(FileSystemCall call);

    Result<std::unique_ptr<Folder>> OpenFolder(const std::string& path) override;
    Result<std::unique_ptr<Folder>> OpenSubfolder(const Folder& parent,
                                                  const std::string& name) override;
    bool StillThere(const Folder& folder) override;
    bool IsProtected(const Folder& folder) override;
    Result<std::unique_ptr<Listing>> List(const Folder& folder) override;
    Status ReadDetails(const Folder& folder, FindData& item) override;
    Status ReadAttributes(const Folder& folder, FindData& item) override;
    Result<FindData> Probe(const Folder& folder, const std::string& name) override;
    Status SetAttributes(const Folder& folder, const std::string& name,
                         std::uint32_t attributes) override;
    Result<std::unique_ptr<SourceFile>> OpenSource(const Folder& folder, const FindData& item,
                                                   ReadAhead readAhead) override;
    Status CopyFile(SourceFile& source, const Folder& destination, const std::string& name,
                    const CopyOptions& options) override;
    Status DeleteFile(const Folder& folder, const std::string& name) override;
    Status RemoveFolder(const Folder& parent, const std::string& name) override;
    Status CreateFolder(const Folder& parent, const std::string& name, const Folder* like) override;
    Status Link(const Folder& folder, const std::string& name, const std::string& newName) override;
    Status Rename(const Folder& folder, const std::string& name,
                  const std::string& newName) override;
    void SweepLeftovers(const Folder& folder) override;
    Status SyncWritten() override;

private:
    using Moment = std::pair<FileSystemCall, int>;

    FileSystem& m_inner;
    std::map<FileSystemCall, int> m_counts;
    std::map<Moment, Error> m_failures;
    std::map<FileSystemCall, Error> m_alwaysFailing;
    std::map<Moment, std::function<void()>> m_actions;
};

}  // namespace quorbit
