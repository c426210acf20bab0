// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/shell/file_enumerator.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/path_text.h"
#include "platform/posix/posix_folder.h"
#include "platform/posix/system_call.h"
#include "platform/shell/item_id_content.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {

namespace {

// On these file systems the link count of a folder without subfolders is 2 (its name and its own
// "."), and the ".." of each subfolder adds one. Other file systems report 1 or arbitrary counts.
bool LinksTellSubfolders(std::uint32_t type)
{
    constexpr std::uint32_t kXfs = 0x58465342;
    return type == EXT4_SUPER_MAGIC || type == kXfs || type == TMPFS_MAGIC;
}

// Returns the kernel's path of an open folder (proc(5)), without accessing the folder. Empty if it
// is longer than PATH_MAX.
std::string PathOfDescriptor(int descriptor)
{
    std::array<char, PATH_MAX> buffer{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = ::readlink(link.c_str(), buffer.data(), buffer.size());
    return length > 0 && static_cast<std::size_t>(length) < buffer.size()
               ? std::string(buffer.data(), static_cast<std::size_t>(length))
               : std::string();
}

// Returns the names in a folder that are mount points.
std::set<std::string> MountNamesIn(const std::string& folder, const std::vector<MountEntry>& mounts)
{
    const std::string prefix = WithSeparator(folder);
    std::set<std::string> names;
    for (const MountEntry& mount : mounts) {
        if (!prefix.empty() && mount.mountPoint.starts_with(prefix) &&
            mount.mountPoint.find('/', prefix.size()) == std::string::npos) {
            names.insert(mount.mountPoint.substr(prefix.size()));
        }
    }
    return names;
}

ShellItemKind KindOf(const FindData& item)
{
    switch (item.kind) {
        case ItemKind::Folder:
            return ShellItemKind::Folder;
        case ItemKind::Link:
            return ShellItemKind::Link;
        case ItemKind::Special:
            return ShellItemKind::Special;
        default:
            return ShellItemKind::File;
    }
}

}  // namespace

FileEnumerator::FileEnumerator(std::shared_ptr<const ShellContext> context, std::string path,
                               std::uint32_t flags, std::stop_token stop)
    : m_context(std::move(context)),
      m_strPath(std::move(path)),
      m_dwFlags(flags),
      m_stop(std::move(stop)),
      m_files(m_context->sources.drives)
{
}

Status FileEnumerator::Open()
{
    auto folder = m_files.OpenFolder(m_strPath);
    if (!folder) {
        return folder.GetError();
    }
    auto listing = m_files.List(**folder);
    if (!listing) {
        return listing.GetError();
    }
    m_folder = std::move(*folder);
    m_listing = std::move(*listing);
    const auto& posix = static_cast<const PosixFolder&>(*m_folder);
    m_bLinksTellSubfolders = LinksTellSubfolders(posix.Volume().type);
    m_mountNames = MountNamesIn(PathOfDescriptor(posix.Descriptor()), m_context->Mounts());
    return {};
}

Result<std::optional<ItemIdList>> FileEnumerator::Next()
{
    if (m_listing == nullptr) {
        if (Status opened = Open(); !opened) {
            return opened.GetError();
        }
    }
    while (!m_stop.stop_requested()) {
        const Result<bool> more = m_listing->Next(m_item);
        if (!more) {
            return more.GetError();
        }
        if (!*more) {
            break;
        }
        if (FindKind() && IsWanted()) {
            return std::optional(MakeId());
        }
    }
    return std::optional<ItemIdList>();
}

// Mount points are never accessed, since their server may not respond.
bool FileEnumerator::IsMountPoint() const
{
    return m_mountNames.contains(m_item.name);
}

// Returns false if the item was deleted in the meantime.
bool FileEnumerator::FindKind()
{
    if (m_item.kind != ItemKind::Unknown) {
        return true;
    }
    if (IsMountPoint()) {
        m_item.kind = ItemKind::Folder;
        return true;
    }
    const Status read = m_files.ReadDetails(*m_folder, m_item);
    return read.Ok() || read.GetError().Kind() != ErrorKind::Missing;
}

bool FileEnumerator::IsWanted()
{
    const bool isFolder = m_item.kind == ItemKind::Folder;
    if ((m_dwFlags & (isFolder ? SHCONTF_FOLDERS : SHCONTF_NONFOLDERS)) == 0) {
        return false;
    }
    return (m_dwFlags & SHCONTF_INCLUDEHIDDEN) != 0 || !IsHidden();
}

// If the attributes cannot be read, shows the item.
bool FileEnumerator::IsHidden()
{
    if (m_item.name.starts_with('.')) {
        return true;
    }
    return !IsMountPoint() && m_files.ReadAttributes(*m_folder, m_item).Ok() &&
           (m_item.attributes & kAttributeHidden) != 0;
}

bool FileEnumerator::MayHaveSubfolder() const
{
    if (!m_bLinksTellSubfolders || IsMountPoint()) {
        return true;
    }
    struct statx details = {};
    const int folder = static_cast<const PosixFolder&>(*m_folder).Descriptor();
    const int done = RetryInterrupted([&] {
        return ::statx(folder, m_item.name.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT,
                       STATX_NLINK, &details);
    });
    // If statx(2) fails, assume that there are subfolders, so that the tree can be expanded.
    return done != 0 || details.stx_nlink != 2;
}

ItemIdList FileEnumerator::MakeId() const
{
    const bool mayHave = m_item.kind == ItemKind::Folder && MayHaveSubfolder();
    return MakeItemId({KindOf(m_item), mayHave ? kHasSubfolder : std::uint8_t{0}, m_item.name, {}});
}

Result<FindData> FileEnumerator::ReadDetails()
{
    if (Status read = m_files.ReadDetails(*m_folder, m_item); !read) {
        return read.GetError();
    }
    if (Status read = m_files.ReadAttributes(*m_folder, m_item); !read) {
        return read.GetError();
    }
    return m_item;
}

}  // namespace quorbit
