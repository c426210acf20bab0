// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/path_lookup.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/case_folding.h"

namespace quorbit {

namespace {

// Returns false if the answer is unknown.
bool IsMissing(const std::string& path)
{
    std::error_code failed;
    const auto status = std::filesystem::symlink_status(path, failed);
    return status.type() == std::filesystem::file_type::not_found;
}

// Returns the only name in the folder that differs from `name` in case alone.
std::optional<std::string> OnlyOtherName(const std::string& folder, const std::string& name)
{
    std::optional<std::string> found;
    std::error_code failed;
    std::filesystem::directory_iterator items(folder.empty() ? "/" : folder, failed);
    for (; !failed && items != std::filesystem::directory_iterator(); items.increment(failed)) {
        std::string other = items->path().filename().string();
        if (!EqualNoCase(other, name)) {
            continue;
        }
        if (found) {
            return std::nullopt;
        }
        found = std::move(other);
    }
    return failed ? std::nullopt : found;
}

}  // namespace

std::string FindNative(std::string_view path, const DriveMap& drives)
{
    std::string native = ToNative(path, drives);
    const auto mapped = MapPath(path, drives);
    if (!mapped || !IsMissing(native)) {
        return native;
    }
    std::string found = mapped->folder;
    for (const std::string& name : mapped->names) {
        const std::string exact = found + '/' + name;
        const auto other = IsMissing(exact) ? OnlyOtherName(found, name) : std::nullopt;
        found = other ? found + '/' + *other : exact;
    }
    return mapped->closed ? found + '/' : found;
}

}  // namespace quorbit
