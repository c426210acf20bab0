// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/passwd_home.h"

#include <pwd.h>
#include <unistd.h>

#include <array>

namespace quorbit {

std::string HomeFromPasswd()
{
    std::array<char, 16384> buffer;
    passwd entry = {};
    passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0 ||
        found == nullptr || found->pw_dir == nullptr || found->pw_dir[0] != '/') {
        return {};
    }
    return found->pw_dir;
}

}  // namespace quorbit
