// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fixture with a temporary folder and short helpers to create and check files in it.

#pragma once

#include <gtest/gtest.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {

class FolderTest : public testing::Test {
protected:
    [[nodiscard]] std::string Path(const std::string& name = "") const
    {
        return m_folder.Path() + (name.empty() ? "" : "/" + name);
    }
    void Write(const TreeLines& items) const { WriteTree(Path(), items); }
    [[nodiscard]] TreeLines Tree(const std::string& name = "") const
    {
        return ReadTree(Path(name));
    }

    TempFolder m_folder;
};

// Returns the error kind of a failed Status or Result; fails the test if it succeeded.
template <class T>
ErrorKind KindOf(const T& result)
{
    EXPECT_FALSE(result.Ok());
    return result.Ok() ? ErrorKind::Other : result.GetError().Kind();
}

// Sets an extended attribute. Returns false if the file system does not support it.
inline bool SetAttribute(const std::string& path, const char* name, std::string_view value)
{
    return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}
// Returns an extended attribute of the item, not of a link's target, or "(none)" if it has none.
inline std::string AttributeOf(const std::string& path, const char* name)
{
    std::string value(5000, '\0');
    const ssize_t size = ::lgetxattr(path.c_str(), name, value.data(), value.size());
    return size < 0 ? "(none)" : value.substr(0, static_cast<std::size_t>(size));
}

// Forks a child that repeats `work` until its own interval timer kills it after the given
// microseconds (less than a million, the limit of tv_usec).
template <class Work>
void KillWhileItWorks(int microseconds, Work work)
{
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const itimerval timer{{}, {0, std::max(1, microseconds)}};  // 0 would disarm it
        (void)::setitimer(ITIMER_REAL, &timer, nullptr);
        while (work()) {
        }
        ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
}

}  // namespace quorbit
