// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What most tests of files need: a temporary folder, and short words for what they look at.

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

// Why a Status or a Result is none; a failure of the test if it is one.
template <class T>
ErrorKind KindOf(const T& result)
{
    EXPECT_FALSE(result.Ok());
    return result.Ok() ? ErrorKind::Other : result.GetError().Kind();
}

// False where the file system takes no such attribute.
inline bool SetAttribute(const std::string& path, const char* name, std::string_view value)
{
    return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}
// An extended attribute of the item itself; "(none)" if there is none.
inline std::string AttributeOf(const std::string& path, const char* name)
{
    std::string value(5000, '\0');
    const ssize_t size = ::lgetxattr(path.c_str(), name, value.data(), value.size());
    return size < 0 ? "(none)" : value.substr(0, static_cast<std::size_t>(size));
}

// Kills a child that does the work again and again, after so many microseconds (fewer than a
// million), by the timer of the child itself.
template <class Work>
void KillWhileItWorks(int microseconds, Work work)
{
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const itimerval timer{{}, {0, std::max(1, microseconds)}};  // 0 would stop it
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
