// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/log_owner.h"

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "engine/run_report.h"
#include "platform/path_text.h"
#include "platform/staged_file.h"

namespace quorbit {

std::string OwnerOfLog(const std::string& logPath)
{
    // A path of 4,096 bytes, each of them escaped.
    constexpr std::uint64_t kLongestLine = 32 * 1024;
    const auto start = ReadStartOfFile(logPath, kLongestLine);
    const std::string_view label = kDocumentLabel;
    if (!start || !start->starts_with(label)) {
        return {};
    }
    const std::size_t end = start->find("\r\n");
    return end == std::string::npos ? "" : start->substr(label.size(), end - label.size());
}

bool IsAnotherDocument(const std::string& owner, const std::string& documentPath)
{
    if (owner.empty() || owner == Printable(documentPath)) {
        return false;
    }
    std::error_code failed;
    return !std::filesystem::equivalent(owner, documentPath, failed);
}

}  // namespace quorbit
