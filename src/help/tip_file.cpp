// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/tip_file.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/standard_folders.h"
#include "platform/system_facts.h"

namespace quorbit {
namespace {

constexpr const char* kFileName = "tips.txt";
constexpr std::size_t kMostCharacters = 999;
constexpr std::size_t kMostBytes = 4 * kMostCharacters;  // also limits invalid UTF-8

bool IsTip(const std::string& line)
{
    constexpr std::string_view kNoTip = " \t\n;";
    return !line.empty() && kNoTip.find(line.front()) == std::string_view::npos;
}

// Returns true for a continuation byte of UTF-8.
bool IsContinuation(int byte)
{
    return (byte & 0xC0) == 0x80;
}

// Formats a time as asctime(3) does: "Thu Nov  5 09:07:00 2026".
std::string TimeText(const QDateTime& time)
{
    const QLocale c = QLocale::c();
    const QString day = QString::number(time.date().day()).rightJustified(2);
    return (c.toString(time, QStringLiteral("ddd MMM ")) + day +
            c.toString(time, QStringLiteral(" hh:mm:ss yyyy")))
        .toStdString();
}

bool IsFile(const std::string& path)
{
    return KindOfPath(path) == PathKind::File;
}

}  // namespace

std::string FindTips(const std::string& programPath)
{
    if (IsFile(kFileName)) {
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
    return IsFile(beside) ? beside : std::string();
}

TipFile::TipFile(std::unique_ptr<QFile> file, std::string timeStamp)
    : m_file(std::move(file)), m_timeStamp(std::move(timeStamp))
{
}

std::optional<TipFile> TipFile::Open(const std::string& path)
{
    auto file = std::make_unique<QFile>(QFile::decodeName(path.c_str()));
    // Check the type first: opening a FIFO would block until it has a writer.
    if (!IsFile(path) || !file->open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    std::string timeStamp = TimeText(QFileInfo(*file).lastModified());
    return TipFile(std::move(file), std::move(timeStamp));
}

std::int64_t TipFile::Position() const
{
    return m_file->pos();
}

bool TipFile::Seek(std::int64_t position)
{
    return m_file->seek(position);
}

std::string TipFile::ReadLine()
{
    std::string line;
    std::size_t characters = 0;
    char byte = 0;
    while (m_file->getChar(&byte)) {
        const bool starts = !IsContinuation(byte) || line.empty();
        if ((starts && characters == kMostCharacters) || line.size() == kMostBytes) {
            m_file->ungetChar(byte);
            break;
        }
        characters += starts ? 1 : 0;
        if (byte == '\n') {
            if (line.ends_with('\r')) {
                line.pop_back();
            }
            return line + '\n';
        }
        line += byte;
    }
    return line;
}

bool TipFile::Next(std::optional<std::string>& tip)
{
    // Read the rest of the file, then the whole file once.
    bool wentRound = false;
    while (true) {
        std::string line = ReadLine();
        if (m_file->error() != QFileDevice::NoError) {
            m_file->unsetError();
            return false;
        }
        if (IsTip(line)) {
            tip = std::move(line);
            return true;
        }
        if (!line.empty()) {
            continue;
        }
        if (wentRound) {
            tip.reset();
            return true;
        }
        wentRound = true;
        if (!Seek(0)) {
            return false;
        }
    }
}

}  // namespace quorbit
