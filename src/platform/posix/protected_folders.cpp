// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/protected_folders.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

#include "platform/posix/passwd_home.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

namespace {

constexpr int kOpenFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

bool Identify(int fd, FolderIdentity& identity)
{
    struct stat details = {};
    if (fd < 0 || ::fstat(fd, &details) != 0) {
        return false;
    }
    identity = {details.st_dev, details.st_ino};
    return true;
}

}  // namespace

bool ProtectedFolders::Contains(const FolderIdentity& identity)
{
    if (!m_bFound) {
        m_bFound = true;
        Find();
    }
    return std::ranges::find(m_identities, identity) != m_identities.end();
}

void ProtectedFolders::Find()
{
    AddWithParents("/");
    // Read only once. No thread of the program changes the environment.
    if (const char* home = std::getenv("HOME"); home != nullptr) {  // NOLINT(concurrency-mt-unsafe)
        AddWithParents(home);
    }
    AddWithParents(HomeFromPasswd().c_str());
}

// Adds a folder and its parents in both ways: by removing components of the path, which may contain
// links, and by following ".." from the real folder.
void ProtectedFolders::AddWithParents(const char* home)
{
    if (home[0] != '/') {
        return;
    }
    FolderIdentity identity;
    for (std::string path = home; !path.empty(); path.resize(path.find_last_of('/'))) {
        const UniqueFd folder(::open(path.c_str(), kOpenFlags));
        if (Identify(folder.Get(), identity)) {
            m_identities.push_back(identity);
        }
    }
    UniqueFd folder(::open(home, kOpenFlags));
    FolderIdentity last;
    while (Identify(folder.Get(), identity) && identity != last) {
        m_identities.push_back(identity);
        last = identity;
        folder = UniqueFd(::openat(folder.Get(), "..", kOpenFlags));
    }
}

}  // namespace quorbit
