// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// bench_slowfs FOLDER MOUNTPOINT MICROSECONDS: mounts a folder with libfuse, and waits that long in
// each call, as for a server at that distance. The system keeps attributes and names for a second,
// as it does for network file systems. Runs until it is unmounted. See libfuse's fuse.h.

#define FUSE_USE_VERSION 31
#include <dirent.h>
#include <fcntl.h>
#include <fuse.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

int s_root = -1;  // descriptor of the folder
std::chrono::microseconds s_delay{};

void Wait()
{
    std::this_thread::sleep_for(s_delay);
}

const char* Relative(const char* path)
{
    return path[1] != '\0' ? path + 1 : ".";
}

// The result of a system call as libfuse expects it.
template <class Result>
int Value(Result result)
{
    return result < 0 ? -errno : static_cast<int>(result);
}

int Descriptor(const fuse_file_info* file)
{
    return static_cast<int>(file->fh);
}

int Keep(fuse_file_info* file, int descriptor)
{
    if (descriptor < 0) {
        return -errno;
    }
    file->fh = static_cast<std::uint64_t>(descriptor);
    return 0;
}

int ReadFolder(const char* path, void* buffer, fuse_fill_dir_t fill, off_t, fuse_file_info*,
               fuse_readdir_flags)
{
    Wait();
    const int descriptor = openat(s_root, Relative(path), O_RDONLY | O_DIRECTORY);
    DIR* const folder = descriptor < 0 ? nullptr : fdopendir(descriptor);
    if (folder == nullptr) {
        return -errno;
    }
    while (const dirent* item = readdir(folder)) {
        struct stat details = {};
        details.st_ino = item->d_ino;
        details.st_mode = DTTOIF(item->d_type);
        fill(buffer, item->d_name, &details, 0, fuse_fill_dir_flags{});
    }
    closedir(folder);
    return 0;
}

int Truncate(const char* path, off_t size, fuse_file_info* file)
{
    Wait();
    if (file != nullptr) {
        return Value(ftruncate(Descriptor(file), size));
    }
    const int descriptor = openat(s_root, Relative(path), O_WRONLY);
    const int result = descriptor < 0 ? -errno : Value(ftruncate(descriptor, size));
    close(descriptor);
    return result;
}

int ReadLink(const char* path, char* buffer, size_t size)
{
    Wait();
    const ssize_t length = readlinkat(s_root, Relative(path), buffer, size - 1);
    if (length < 0) {
        return -errno;
    }
    buffer[length] = '\0';
    return 0;
}

void* Begin(fuse_conn_info*, fuse_config* config)
{
    config->use_ino = 1;
    config->attr_timeout = 1;
    config->entry_timeout = 1;
    config->negative_timeout = 0;
    return nullptr;
}

void SetItemCalls(fuse_operations& calls)
{
    calls.getattr = [](const char* path, struct stat* details, fuse_file_info* file) {
        Wait();
        return Value(file != nullptr
                         ? fstat(Descriptor(file), details)
                         : fstatat(s_root, Relative(path), details, AT_SYMLINK_NOFOLLOW));
    };
    calls.readlink = ReadLink;
    calls.readdir = ReadFolder;
    calls.mkdir = [](const char* path, mode_t mode) {
        Wait();
        return Value(mkdirat(s_root, Relative(path), mode));
    };
    calls.mknod = [](const char* path, mode_t mode, dev_t device) {
        Wait();
        return Value(mknodat(s_root, Relative(path), mode, device));
    };
    calls.unlink = [](const char* path) {
        Wait();
        return Value(unlinkat(s_root, Relative(path), 0));
    };
    calls.rmdir = [](const char* path) {
        Wait();
        return Value(unlinkat(s_root, Relative(path), AT_REMOVEDIR));
    };
    calls.symlink = [](const char* target, const char* path) {
        Wait();
        return Value(symlinkat(target, s_root, Relative(path)));
    };
    calls.rename = [](const char* from, const char* to, unsigned flags) {
        Wait();
        return Value(renameat2(s_root, Relative(from), s_root, Relative(to), flags));
    };
    calls.link = [](const char* from, const char* to) {
        Wait();
        return Value(linkat(s_root, Relative(from), s_root, Relative(to), 0));
    };
}

void SetDetailCalls(fuse_operations& calls)
{
    calls.chmod = [](const char* path, mode_t mode, fuse_file_info* file) {
        Wait();
        return Value(file != nullptr ? fchmod(Descriptor(file), mode)
                                     : fchmodat(s_root, Relative(path), mode, 0));
    };
    calls.chown = [](const char* path, uid_t user, gid_t group, fuse_file_info*) {
        Wait();
        return Value(fchownat(s_root, Relative(path), user, group, AT_SYMLINK_NOFOLLOW));
    };
    calls.utimens = [](const char* path, const timespec* times, fuse_file_info* file) {
        Wait();
        return Value(file != nullptr
                         ? futimens(Descriptor(file), times)
                         : utimensat(s_root, Relative(path), times, AT_SYMLINK_NOFOLLOW));
    };
    calls.truncate = Truncate;
    calls.statfs = [](const char*, struct statvfs* details) {
        Wait();
        return Value(fstatvfs(s_root, details));
    };
}

void SetFileCalls(fuse_operations& calls)
{
    calls.open = [](const char* path, fuse_file_info* file) {
        Wait();
        return Keep(file, openat(s_root, Relative(path), file->flags & ~O_NOFOLLOW));
    };
    calls.create = [](const char* path, mode_t mode, fuse_file_info* file) {
        Wait();
        return Keep(file, openat(s_root, Relative(path), file->flags | O_CREAT, mode));
    };
    calls.read = [](const char*, char* buffer, size_t size, off_t offset, fuse_file_info* file) {
        Wait();
        return Value(pread(Descriptor(file), buffer, size, offset));
    };
    calls.write = [](const char*, const char* buffer, size_t size, off_t offset,
                     fuse_file_info* file) {
        Wait();
        return Value(pwrite(Descriptor(file), buffer, size, offset));
    };
    calls.flush = [](const char*, fuse_file_info*) {
        Wait();
        return 0;
    };
    calls.fsync = [](const char*, int, fuse_file_info* file) {
        Wait();
        return Value(fsync(Descriptor(file)));
    };
    calls.release = [](const char*, fuse_file_info* file) {
        close(Descriptor(file));
        return 0;
    };
    calls.init = Begin;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs("Usage: bench_slowfs FOLDER MOUNTPOINT MICROSECONDS\n", stderr);
        return 2;
    }
    s_root = open(argv[1], O_RDONLY | O_DIRECTORY);
    if (s_root < 0) {
        std::perror(argv[1]);
        return 1;
    }
    s_delay = std::chrono::microseconds(std::atol(argv[3]));
    fuse_operations calls = {};
    SetItemCalls(calls);
    SetDetailCalls(calls);
    SetFileCalls(calls);
    std::array<char*, 5> arguments = {argv[0], const_cast<char*>("-f"), const_cast<char*>("-o"),
                                      const_cast<char*>("max_idle_threads=32,default_permissions"),
                                      argv[2]};
    return fuse_main(static_cast<int>(arguments.size()), arguments.data(), &calls, nullptr);
}
