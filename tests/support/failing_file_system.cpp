// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/failing_file_system.h"

#include <sys/stat.h>

#include <filesystem>

#include "platform/case_folding.h"

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

struct TrackedCopy final : public PreparedCopy {
    explicit TrackedCopy(std::unique_ptr<PreparedCopy> copy) : inner(std::move(copy)) {}
    std::unique_ptr<PreparedCopy> inner;
    bool durable = false;
};

}  // namespace

FailingFileSystem::~FailingFileSystem()
{
    if (!m_bPowerIsCut) {
        return;
    }
    for (const auto& item : std::filesystem::recursive_directory_iterator(m_lostBelow)) {
        struct stat details = {};
        if (::lstat(item.path().c_str(), &details) == 0 && S_ISREG(details.st_mode) &&
            m_unwritten.contains(details.st_ino)) {
            const auto time = item.last_write_time();
            std::filesystem::resize_file(item.path(), 0);
            std::filesystem::last_write_time(item.path(), time);
        }
    }
}

Status FailingFileSystem::Enter(FileSystemCall call)
{
    Moment moment{call, 0};
    {
        const std::lock_guard lock(m_mutex);
        moment.second = ++m_counts[call];
    }
    if (const auto action = m_actions.find(moment); action != m_actions.end()) {
        action->second();
    }
    if (m_bPowerIsCut) {
        return Error(ErrorKind::Other);
    }
    auto failure = m_failures.find(moment);
    if (failure == m_failures.end()) {
        failure = m_failures.find({call, kAlways});
    }
    return failure == m_failures.end() ? Status() : Status(failure->second);
}

Result<std::unique_ptr<Listing>> FailingFileSystem::List(const Folder& folder)
{
    auto listing = Through(Call::List, &FileSystem::List, folder);
    if (listing) {
        *listing = std::make_unique<FailingListing>(*this, std::move(*listing));
    }
    return listing;
}

Status FailingFileSystem::CopyFile(SourceFile& source, const Folder& destination, Name name,
                                   const CopyOptions& options)
{
    const std::string existing = Existing(destination, name);
    Status copied =
        Through(Call::CopyFile, &FileSystem::CopyFile, source, destination, existing, options);
    if (copied && !options.durable) {
        MarkUnwritten(destination, existing);
    }
    return copied;
}

Result<std::unique_ptr<PreparedCopy>> FailingFileSystem::Prepare(SourceFile& source,
                                                                 const Folder& folder,
                                                                 CopyProgress* progress)
{
    auto copy = Through(Call::Prepare, &FileSystem::Prepare, source, folder, progress);
    if (copy) {
        *copy = std::make_unique<TrackedCopy>(std::move(*copy));
    }
    return copy;
}

Status FailingFileSystem::MakeDurable(std::span<PreparedCopy* const> copies)
{
    std::vector<PreparedCopy*> inner;
    for (PreparedCopy* copy : copies) {
        inner.push_back(static_cast<TrackedCopy&>(*copy).inner.get());
    }
    Status durable = Through(Call::MakeDurable, &FileSystem::MakeDurable, inner);
    for (PreparedCopy* copy : copies) {
        static_cast<TrackedCopy&>(*copy).durable = durable.Ok();
    }
    return durable;
}

Status FailingFileSystem::Place(PreparedCopy& copy, const Folder& destination, Name name,
                                const CopyOptions& options)
{
    auto& tracked = static_cast<TrackedCopy&>(copy);
    const std::string existing = Existing(destination, name);
    Status placed =
        Through(Call::Place, &FileSystem::Place, *tracked.inner, destination, existing, options);
    if (placed && !tracked.durable) {
        MarkUnwritten(destination, existing);
    }
    return placed;
}

Status FailingFileSystem::SyncWritten()
{
    Status synced = Through(Call::SyncWritten, &FileSystem::SyncWritten);
    if (synced) {
        m_unwritten.clear();
    }
    return synced;
}

void FailingFileSystem::MarkUnwritten(const Folder& folder, Name name)
{
    if (const auto placed = m_inner.Probe(folder, name); placed && placed->kind == ItemKind::File) {
        m_unwritten.insert(placed->inode);
    }
}

std::string FailingFileSystem::Existing(const Folder& folder, Name name)
{
    if (!m_bIgnoresCase || m_inner.Probe(folder, name)) {
        return name;
    }
    const auto listing = m_inner.List(folder);
    FindData item;
    while (listing) {
        const auto more = (*listing)->Next(item);
        if (!more || !*more) {
            break;
        }
        if (EqualNoCase(item.name, name)) {
            return item.name;
        }
    }
    return name;
}

}  // namespace quorbit
