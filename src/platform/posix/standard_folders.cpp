// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/standard_folders.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/path_text.h"
#include "platform/posix/file_io.h"
#include "platform/posix/passwd_home.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr std::string_view kProgramFolder = "quorbit";

bool IsAbsolute(std::string_view path)
{
    return path.starts_with('/');
}

std::string Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

}  // namespace

std::string HomeFolder()
{
    std::string home = Environment("HOME");
    return IsAbsolute(home) ? home : HomeFromPasswd();
}

std::string RelativeFolderVariable()
{
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME"}) {
        const std::string value = Environment(name);
        if (!value.empty() && !IsAbsolute(value)) {
            return std::string(name) + "=" + value;
        }
    }
    return {};
}

namespace {

// XDG Base Directory Specification 0.8: "If an implementation encounters a relative path in any of
// these variables it should consider the path invalid and ignore it."
std::string UserFolder(const char* variable, std::string_view belowHome)
{
    std::string base = Environment(variable);
    if (IsAbsolute(base)) {
        return base;
    }
    const std::string home = HomeFolder();
    return home.empty() ? home : WithSeparator(home).append(belowHome);
}

std::string ProgramFolderIn(std::string_view base)
{
    return base.empty() ? std::string() : WithSeparator(std::string(base)).append(kProgramFolder);
}

}  // namespace

std::string ConfigFolder()
{
    return ProgramFolderIn(UserFolder("XDG_CONFIG_HOME", ".config"));
}

std::string StateFolder()
{
    return ProgramFolderIn(UserFolder("XDG_STATE_HOME", ".local/state"));
}

std::string SharedDataFolder()
{
    return UserFolder("XDG_DATA_HOME", ".local/share");
}

std::vector<std::string> SystemDataFolders()
{
    std::vector<std::string> folders;
    std::string list = Environment("XDG_DATA_DIRS");
    if (list.empty()) {
        list = "/usr/local/share:/usr/share";
    }
    std::string_view rest = list;
    while (!rest.empty()) {
        const std::string_view base = rest.substr(0, rest.find(':'));
        rest.remove_prefix(base.size() < rest.size() ? base.size() + 1 : rest.size());
        if (IsAbsolute(base)) {
            folders.emplace_back(base);
        }
    }
    return folders;
}

std::string FindDataFile(const std::string& name)
{
    std::vector<std::string> folders = SystemDataFolders();
    if (std::string own = SharedDataFolder(); !own.empty()) {
        folders.insert(folders.begin(), std::move(own));
    }
    for (const std::string& folder : folders) {
        std::string path = WithSeparator(ProgramFolderIn(folder)) + name;
        if (OpenRegularFile(path)) {
            return path;
        }
    }
    return {};
}

Status CreateFolders(const std::string& path)
{
    if (!IsAbsolute(path) || path.find('\0') != std::string::npos) {
        return ErrorFromErrno(EINVAL);
    }
    std::size_t end = 0;
    while (end < path.size()) {
        end = std::min(path.find('/', end + 1), path.size());
        const std::string folder = path.substr(0, end);
        struct stat details {};
        if (::stat(folder.c_str(), &details) == 0) {
            if (!S_ISDIR(details.st_mode)) {
                return ErrorFromErrno(ENOTDIR);
            }
        } else if (errno != ENOENT) {
            return LastError();
        } else if (::mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
            return LastError();
        }
    }
    return {};
}

}  // namespace quorbit
