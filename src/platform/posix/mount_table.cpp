// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/mount_table.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <system_error>

#include "platform/staged_file.h"

namespace quorbit {

namespace {

constexpr std::uint64_t kMostOfTable = std::uint64_t{64} * 1024 * 1024;

// Removes and returns the text before the next separator. Fields may be empty.
std::string_view TakeField(std::string_view& rest, char separator)
{
    const std::string_view field = rest.substr(0, rest.find(separator));
    rest.remove_prefix(std::min(field.size() + 1, rest.size()));
    return field;
}

bool ParseNumber(std::string_view text, std::uint32_t& number)
{
    const char* end = text.data() + text.size();
    const auto [stopped, failed] = std::from_chars(text.data(), end, number);
    return failed == std::errc() && stopped == end;
}

bool IsOctal(char c)
{
    return c >= '0' && c <= '7';
}

// Decodes the table's escapes: space, tab, line feed and backslash are written as a backslash and
// three octal digits.
std::string Unescape(std::string_view field)
{
    std::string text;
    text.reserve(field.size());
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && IsOctal(field[i + 1]) &&
            IsOctal(field[i + 2]) && IsOctal(field[i + 3])) {
            text += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 +
                                      (field[i + 3] - '0'));
            i += 3;
        } else {
            text += field[i];
        }
    }
    return text;
}

// Parses a line such as "36 35 98:0 /mnt1 /mnt2 rw,noatime master:1 - ext3 /dev/root
// rw,errors=continue". The number of optional fields before the hyphen varies.
std::optional<MountEntry> ParseLine(std::string_view line)
{
    MountEntry entry;
    const std::string_view id = TakeField(line, ' ');
    const std::string_view parent = TakeField(line, ' ');
    std::string_view minor = TakeField(line, ' ');
    const std::string_view major = TakeField(minor, ':');
    entry.root = Unescape(TakeField(line, ' '));
    entry.mountPoint = Unescape(TakeField(line, ' '));
    entry.options = TakeField(line, ' ');
    std::string_view optional = TakeField(line, ' ');
    while (optional != "-") {
        if (line.empty()) {
            return std::nullopt;
        }
        optional = TakeField(line, ' ');
    }
    entry.type = Unescape(TakeField(line, ' '));
    entry.source = Unescape(TakeField(line, ' '));
    entry.superOptions = Unescape(line);
    const bool good = ParseNumber(id, entry.id) && ParseNumber(parent, entry.parent) &&
                      ParseNumber(major, entry.major) && ParseNumber(minor, entry.minor) &&
                      entry.mountPoint.starts_with('/') && !entry.type.empty();
    return good ? std::optional(std::move(entry)) : std::nullopt;
}

using MountByPoint = std::map<std::string_view, const MountEntry*>;

// Returns the innermost mount above a path, not counting one at the path itself.
const MountEntry* MountAbove(const MountByPoint& visible, std::string_view path)
{
    while (path.size() > 1) {
        path = path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
        if (const auto found = visible.find(path); found != visible.end()) {
            return found->second;
        }
    }
    return nullptr;
}

// Returns the mount below all mounts stacked on the same mount point, or null if the table does not
// contain it.
const MountEntry* Ground(const std::map<std::uint32_t, const MountEntry*>& byId,
                         const MountEntry& top)
{
    const MountEntry* entry = &top;
    for (std::size_t steps = 0; steps < byId.size(); ++steps) {
        const auto parent = byId.find(entry->parent);
        if (parent == byId.end() || parent->second == entry) {
            return nullptr;
        }
        entry = parent->second;
        if (entry->mountPoint != top.mountPoint) {
            return entry;
        }
    }
    return nullptr;
}

}  // namespace

std::vector<MountEntry> ParseMountTable(std::string_view text)
{
    std::vector<MountEntry> mounts;
    while (!text.empty()) {
        if (auto entry = ParseLine(TakeField(text, '\n'))) {
            mounts.push_back(std::move(*entry));
        }
    }
    return mounts;
}

Result<std::vector<MountEntry>> ReadMountTable()
{
    const auto text = ReadWholeFile("/proc/self/mountinfo", kMostOfTable);
    if (!text) {
        return text.GetError();
    }
    return ParseMountTable(*text);
}

std::vector<MountEntry> VisibleMounts(const std::vector<MountEntry>& mounts)
{
    std::map<std::uint32_t, const MountEntry*> byId;
    MountByPoint top;  // a later line hides an earlier one
    for (const MountEntry& entry : mounts) {
        byId[entry.id] = &entry;
        top[entry.mountPoint] = &entry;
    }
    // A path sorts before all paths below it, so the mounts above an entry are decided before the
    // entry.
    MountByPoint visible;
    std::set<const MountEntry*> chosen;
    for (const auto& [point, entry] : top) {
        const MountEntry* above = MountAbove(visible, point);
        const MountEntry* ground = Ground(byId, *entry);
        if (above == nullptr || ground == nullptr || above == ground) {
            visible.emplace(point, entry);
            chosen.insert(entry);
        }
    }
    std::vector<MountEntry> result;
    for (const MountEntry& entry : mounts) {
        if (chosen.contains(&entry)) {
            result.push_back(entry);
        }
    }
    return result;
}

const MountEntry* MountOf(const std::vector<MountEntry>& visible, std::string_view path)
{
    const MountEntry* best = nullptr;
    for (const MountEntry& entry : visible) {
        if (IsAtOrBelow(path, entry.mountPoint) &&
            (best == nullptr || entry.mountPoint.size() > best->mountPoint.size())) {
            best = &entry;
        }
    }
    return best;
}

bool HasMountOption(std::string_view options, std::string_view option)
{
    while (!options.empty()) {
        if (TakeField(options, ',') == option) {
            return true;
        }
    }
    return false;
}

bool IsAtOrBelow(std::string_view path, std::string_view folder)
{
    return path.starts_with(folder) &&
           (path.size() == folder.size() || folder == "/" || path[folder.size()] == '/');
}

}  // namespace quorbit
