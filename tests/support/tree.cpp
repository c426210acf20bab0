// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/tree.h"

#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>

namespace quorbit {

namespace {

constexpr std::size_t kLongContent = 200;

std::string ReadAll(int fd)
{
    std::string content;
    std::array<char, 65536> buffer{};
    for (ssize_t got = 0; (got = ::read(fd, buffer.data(), buffer.size())) > 0;) {
        content.append(buffer.data(), static_cast<std::size_t>(got));
    }
    ::close(fd);
    return content;
}

std::string Shortened(const std::string& content)
{
    if (content.size() <= kLongContent) {
        return content;
    }
    return "(" + std::to_string(content.size()) + " bytes, " +
           std::to_string(std::hash<std::string>{}(content)) + ")";
}

std::string Describe(int folder, const std::string& name, const struct stat& details)
{
    if (S_ISDIR(details.st_mode)) {
        return "/";
    }
    if (S_ISREG(details.st_mode)) {
        return "=" + Shortened(ReadAll(::openat(folder, name.c_str(), O_RDONLY | O_CLOEXEC)));
    }
    if (!S_ISLNK(details.st_mode)) {
        return S_ISFIFO(details.st_mode) ? "|" : "?";
    }
    std::string target(PATH_MAX, '\0');
    const ssize_t size = ::readlinkat(folder, name.c_str(), target.data(), target.size());
    return "->" + target.substr(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
}

std::string Details(const struct stat& details)
{
    std::array<char, 64> text{};
    (void)std::snprintf(text.data(), text.size(), " %04o %lld.%09ld", details.st_mode & 07777U,
                        static_cast<long long>(details.st_mtim.tv_sec), details.st_mtim.tv_nsec);
    return S_ISDIR(details.st_mode) ? std::string(text.data(), 5) : text.data();
}

// Closes `folder`.
void ReadInto(TreeLines& lines, int folder, const std::string& prefix, bool withDetails)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::fdopendir(folder), ::closedir);
    ASSERT_TRUE(stream) << prefix;
    while (const dirent* item = ::readdir(stream.get())) {
        const std::string name = item->d_name;
        struct stat details {};
        if (name == "." || name == ".." ||
            ::fstatat(folder, name.c_str(), &details, AT_SYMLINK_NOFOLLOW) != 0) {
            continue;
        }
        lines.push_back(prefix + name + Describe(folder, name, details) +
                        (withDetails ? Details(details) : ""));
        if (S_ISDIR(details.st_mode)) {
            ReadInto(lines, ::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC),
                     prefix + name + "/", withDetails);
        }
    }
}

TreeLines Read(const std::string& root, bool withDetails)
{
    TreeLines lines;
    ReadInto(lines, ::open(root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), "", withDetails);
    std::ranges::sort(lines);
    return lines;
}

}  // namespace

void WriteTree(const std::string& root, const TreeLines& items)
{
    for (const std::string& item : items) {
        const std::string path = root + "/" + item;
        const std::size_t arrow = path.find("->", root.size());
        const std::size_t equals = path.find('=', root.size());
        std::filesystem::create_directories(
            path.substr(0, path.rfind('/', std::min(arrow, equals))));
        if (arrow < equals) {
            EXPECT_EQ(::symlink(path.c_str() + arrow + 2, path.substr(0, arrow).c_str()), 0)
                << item;
        } else if (equals != std::string::npos) {
            WriteContent(path.substr(0, equals), path.substr(equals + 1));
        } else if (path.ends_with('|')) {
            EXPECT_EQ(::mkfifo(path.substr(0, path.size() - 1).c_str(), 0644), 0) << item;
        } else {
            EXPECT_TRUE(path.ends_with('/')) << item;
        }
    }
}

TreeLines ReadTree(const std::string& root)
{
    return Read(root, false);
}

TreeLines ReadTreeWithDetails(const std::string& root)
{
    return Read(root, true);
}

void SetModified(const std::string& path, std::int64_t seconds, std::uint32_t nanoseconds)
{
    const timespec times[2] = {{0, UTIME_OMIT}, {seconds, nanoseconds}};
    EXPECT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW), 0) << path;
}

void SetMode(const std::string& path, unsigned mode)
{
    EXPECT_EQ(::chmod(path.c_str(), mode), 0) << path;
}

unsigned ModeOf(const std::string& path)
{
    struct stat details {};
    EXPECT_EQ(::stat(path.c_str(), &details), 0) << path;
    return details.st_mode & 07777U;
}

std::string ContentOf(const std::string& path)
{
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    return fd < 0 ? "(none)" : ReadAll(fd);
}

void WriteContent(const std::string& path, const std::string& content)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << content;
    file.close();
    EXPECT_TRUE(file) << path;
}

}  // namespace quorbit
