// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// FileSystem for Linux.

#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "platform/path_text.h"
#include "platform/posix/content_copier.h"
#include "platform/posix/file_fetcher.h"
#include "platform/posix/posix_folder.h"
#include "platform/posix/posix_volume.h"
#include "platform/posix/protected_folders.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

class PosixFileSystem final : public FileSystem {
public:
    explicit PosixFileSystem(DriveMap drives = {});

    Result<std::unique_ptr<Folder>> OpenFolder(const std::string& path) override;
    Result<std::unique_ptr<Folder>> OpenSubfolder(const Folder& parent,
                                                  const std::string& name) override;
    bool StillThere(const Folder& folder) override;
    bool IsMountPoint(const Folder& folder) override;
    [[nodiscard]] bool HasOneCaseRule(const Folder& folder) const override;
    bool IsProtected(const Folder& folder) override;

    Result<std::unique_ptr<Listing>> List(const Folder& folder) override;
    Status ReadDetails(const Folder& folder, FindData& item) override;
    Status ReadAttributes(const Folder& folder, FindData& item) override;
    Result<FindData> Probe(const Folder& folder, const std::string& name) override;
    Status SetAttributes(const Folder& folder, const std::string& name,
                         std::uint32_t attributes) override;

    Result<std::unique_ptr<SourceFile>> OpenSource(const Folder& folder, const FindData& item,
                                                   ReadAhead readAhead) override;
    void FetchAhead(const Folder& folder, const FindData& item) override;
    [[nodiscard]] std::size_t FetchedInVain() const override { return m_fetcher.InVain(); }
    Status CopyFile(SourceFile& source, const Folder& destination, const std::string& name,
                    const CopyOptions& options) override;

    Result<std::unique_ptr<PreparedCopy>> Prepare(SourceFile& source, const Folder& folder,
                                                  CopyProgress* progress) override;
    Status MakeDurable(std::span<PreparedCopy* const> copies) override;
    [[nodiscard]] bool SyncsTogether(const Folder& folder) const override;
    [[nodiscard]] bool NamesCopies(const Folder& folder) const override;
    [[nodiscard]] bool MayStageIn(const Folder& parent, const Folder& destination) const override;
    Result<std::unique_ptr<Folder>> CreateStagingFolder(const Folder& parent) override;
    Status Place(PreparedCopy& copy, const Folder& destination, const std::string& name,
                 const CopyOptions& options) override;

    [[nodiscard]] std::vector<std::string> TakeNotKept() override
    {
        return std::exchange(m_notKept, {});
    }

    Status DeleteFile(const Folder& folder, const std::string& name) override;
    Status RemoveFolder(const Folder& parent, const std::string& name) override;
    Status CreateFolder(const Folder& parent, const std::string& name, const Folder* like) override;
    Status CopyFolderTime(const Folder& from, const Folder& to) override;
    Status Link(const Folder& folder, const std::string& name, const std::string& newName) override;
    Status Rename(const Folder& folder, const std::string& name,
                  const std::string& newName) override;

    void SweepLeftovers(const Folder& folder) override;
    Status SyncWritten() override;

private:
    Result<std::unique_ptr<Folder>> MakeFolder(UniqueFd descriptor);
    void MarkWritten(const PosixFolder& folder);

    DriveMap m_drives;
    VolumeTable m_volumes;
    ProtectedFolders m_protected;
    ContentCopier m_copier;
    FileFetcher m_fetcher;
    std::vector<std::string> m_notKept;           // see TakeNotKept
    std::map<std::uint64_t, UniqueFd> m_written;  // by device: an open folder for syncfs(2)
};

}  // namespace quorbit
