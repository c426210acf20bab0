// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A temporary folder that is deleted at the end of the test, even if it contains read-only folders
// or paths longer than PATH_MAX. Links are not followed.

#pragma once

#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

namespace quorbit {

class TempFolder {
public:
    // Creates the folder in the temporary folder of the system: TMPDIR, or /tmp by default.
    TempFolder() : TempFolder(std::filesystem::temp_directory_path().string()) {}
    explicit TempFolder(const std::string& under) : m_strPath(under + "/quorbit-test-XXXXXX")
    {
        if (::mkdtemp(m_strPath.data()) == nullptr) {
            ADD_FAILURE() << "no temporary folder in " << under;
        }
    }
    ~TempFolder() { Remove(AT_FDCWD, m_strPath.c_str()); }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // Without a trailing separator.
    [[nodiscard]] const std::string& Path() const { return m_strPath; }

private:
    static void Remove(int parent, const char* name)
    {
        if (::unlinkat(parent, name, 0) == 0) {
            return;
        }
        const int fd = ::openat(parent, name, O_PATH | O_NOFOLLOW | O_DIRECTORY | O_CLOEXEC);
        if (fd >= 0) {
            (void)::fchmodat(parent, name, 0700, 0);
            Empty(::openat(fd, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
            ::close(fd);
        }
        (void)::unlinkat(parent, name, AT_REMOVEDIR);
    }

    static void Empty(int folder)
    {
        const std::unique_ptr<DIR, int (*)(DIR*)> stream(::fdopendir(folder), ::closedir);
        while (const dirent* item = stream ? ::readdir(stream.get()) : nullptr) {
            const std::string name = item->d_name;
            if (name != "." && name != "..") {
                Remove(folder, name.c_str());
            }
        }
    }

    std::string m_strPath;
};

}  // namespace quorbit
