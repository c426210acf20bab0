// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/file_list_columns.h"

#include <array>
#include <cstdio>
#include <ctime>

#include "platform/find_data.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {
namespace {

// The size is 0 only if the details are unknown (see SizeInKb).
bool HasDetails(const ShellListItem& item)
{
    return item.m_dwSizeKB != 0;
}

bool IsPlainFile(const ShellListItem& item)
{
    return (item.m_dwAttributes & (SFGAO_FILESYSTEM | SFGAO_FOLDER)) == SFGAO_FILESYSTEM;
}

}  // namespace

std::uint64_t SizeInKb(std::uint64_t bytes)
{
    return bytes / 1024 + 1;
}

std::string SizeText(std::uint64_t kb)
{
    return std::to_string(kb) + "KB";
}

std::string AttributeLetters(std::uint32_t word)
{
    std::string letters;
    const auto add = [&](std::uint32_t bit, char letter) {
        if ((word & bit) != 0) {
            letters += letter;
        }
    };
    add(kAttributeReadOnly, 'R');
    add(kAttributeHidden, 'H');
    add(kAttributeSystem, 'S');
    add(kAttributeArchive, 'A');
    return letters;
}

std::string TimeText(std::int64_t seconds)
{
    const auto time = static_cast<std::time_t>(seconds);
    std::tm local = {};
    if (::localtime_r(&time, &local) == nullptr) {
        return {};
    }
    std::array<char, 64> text{};
    const int hour = local.tm_hour % 12 == 0 ? 12 : local.tm_hour % 12;
    const int year = (local.tm_year % 100 + 100) % 100;
    std::snprintf(text.data(), text.size(), "%02d/%02d/%02d %02d:%02d %s", local.tm_mon + 1,
                  local.tm_mday, year, hour, local.tm_min, local.tm_hour < 12 ? "AM" : "PM");
    return text.data();
}

bool IsFolderRow(const ShellListItem& item)
{
    return (item.m_dwAttributes & SFGAO_FOLDER) != 0;
}

std::string CellText(const ShellListItem& item, int column)
{
    switch (column) {
        case kFileName:
            return item.m_szName;
        case kFileSize:
            if (!IsPlainFile(item)) {
                return "0 bytes";
            }
            return HasDetails(item) ? SizeText(item.m_dwSizeKB) : std::string();
        case kFileType:
            return item.m_szType;
        case kFileModified:
            return HasDetails(item) ? TimeText(item.m_tModified) : std::string();
        case kFileAttributes:
            return item.m_szAttributes;
        default:
            return {};
    }
}

bool StandsAbove(const ShellListItem& first, const ShellListItem& second, int column)
{
    if (IsFolderRow(first) != IsFolderRow(second)) {
        return IsFolderRow(first);
    }
    switch (column) {
        case kFileName:
            return first.m_szName < second.m_szName;
        case kFileSize:
            return first.m_dwSizeKB < second.m_dwSizeKB;
        case kFileType:
            return first.m_szType < second.m_szType;
        case kFileModified:
            return first.m_tModified < second.m_tModified;
        case kFileAttributes:
            return first.m_szAttributes < second.m_szAttributes;
        default:
            return false;
    }
}

}  // namespace quorbit
