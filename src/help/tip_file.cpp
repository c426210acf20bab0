// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/tip_file.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <ctime>
#include <string_view>
#include <utility>

#include "platform/posix/errno_error.h"
#include "platform/posix/file_io.h"
#include "platform/standard_folders.h"

namespace quorbit {
namespace {

constexpr const char* kFileName = "tips.txt";
constexpr std::size_t kMostCharacters = 999;
constexpr std::size_t kMostBytes = 4 * kMostCharacters;

bool IsTip(const std::string& line)
{
    constexpr std::string_view kNoTip = " \t\n;";
    return !line.empty() && kNoTip.find(line.front()) == std::string_view::npos;
}

// A byte that goes on with a character of UTF-8.
bool IsContinuation(int byte)
{
    return (byte & 0xC0) == 0x80;
}

std::string TimeText(std::time_t time)
{
    constexpr std::size_t kRoom = 64;  // ctime_r(3) asks for 26
    std::array<char, kRoom> text{};
    if (::ctime_r(&time, text.data()) == nullptr) {
        return {};
    }
    std::string result = text.data();
    result.erase(result.find_last_not_of(" \n") + 1);
    return result;
}

Error FaultOf(int code)
{
    return ErrorFromErrno(code != 0 ? code : EIO);
}

}  // namespace

std::string FindTips(const std::string& programPath)
{
    if (OpenRegularFile(kFileName)) {
        return kFileName;
    }
    if (std::string installed = FindDataFile(kFileName); !installed.empty()) {
        return installed;
    }
    const std::size_t end = programPath.rfind('/');
    if (end == std::string::npos) {
        return {};
    }
    std::string beside = programPath.substr(0, end) + "/../share/quorbit/" + kFileName;
    return OpenRegularFile(beside) ? beside : std::string();
}

TipFile::TipFile(FilePtr file, std::string timeStamp)
    : m_file(std::move(file)), m_timeStamp(std::move(timeStamp))
{
}

Result<TipFile> TipFile::Open(const std::string& path)
{
    Result<UniqueFd> opened = OpenRegularFile(path);
    if (!opened) {
        return opened.GetError();
    }
    struct stat details {};
    if (::fstat(opened->Get(), &details) != 0) {
        return FaultOf(errno);
    }
    FilePtr file(::fdopen(opened->Get(), "r"));
    if (!file) {
        return FaultOf(errno);
    }
    (void)opened->Release();
    return TipFile(std::move(file), TimeText(details.st_mtime));
}

long TipFile::Position() const
{
    return std::ftell(m_file.get());
}

Status TipFile::Seek(long position)
{
    if (std::fseek(m_file.get(), position, SEEK_SET) != 0) {
        return FaultOf(errno);
    }
    return {};
}

std::string TipFile::ReadLine()
{
    std::string line;
    std::size_t characters = 0;
    while (true) {
        const int byte = std::getc(m_file.get());
        if (byte == EOF) {
            return line;
        }
        const bool starts = !IsContinuation(byte) || line.empty();
        if ((starts && characters == kMostCharacters) || line.size() == kMostBytes) {
            (void)std::ungetc(byte, m_file.get());
            return line;
        }
        characters += starts ? 1 : 0;
        if (byte == '\n') {
            if (line.ends_with('\r')) {
                line.pop_back();
            }
            return line + '\n';
        }
        line += static_cast<char>(byte);
    }
}

Result<std::optional<std::string>> TipFile::Next()
{
    // The rest of the file, then once the whole of it.
    bool wentRound = false;
    while (true) {
        errno = 0;
        std::string line = ReadLine();
        if (std::ferror(m_file.get()) != 0) {
            const Error fault = FaultOf(errno);
            std::clearerr(m_file.get());
            return fault;
        }
        if (IsTip(line)) {
            return std::optional(std::move(line));
        }
        if (!line.empty()) {
            continue;
        }
        if (wentRound) {
            return std::optional<std::string>();
        }
        wentRound = true;
        if (const Status sought = Seek(0); !sought) {
            return sought.GetError();
        }
    }
}

}  // namespace quorbit
