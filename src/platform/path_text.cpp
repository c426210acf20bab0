// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/path_text.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <vector>

#include "platform/utf8.h"

namespace quorbit {

namespace {

constexpr bool IsAsciiLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

constexpr char UpperLetter(char c)
{
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

// Names cannot contain a slash, so accept it as a separator in drive paths too.
constexpr bool IsSeparator(char c, bool drive)
{
    return c == '/' || (drive && c == '\\');
}

// Returns a drive path without "C:", and any other path unchanged.
std::string_view AfterDrive(std::string_view path)
{
    return IsDrivePath(path) ? path.substr(2) : path;
}

std::string_view WithoutClosingSeparators(std::string_view text, bool drive)
{
    while (!text.empty() && IsSeparator(text.back(), drive)) {
        text.remove_suffix(1);
    }
    return text;
}

// Splits a path without its drive into components. Skips empty ones and "."; ".." removes the
// component before it, but not the root.
std::vector<std::string_view> Components(std::string_view text, bool drive)
{
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const auto end = std::find_if(text.begin(), text.end(),
                                      [drive](char c) { return IsSeparator(c, drive); });
        const auto length = static_cast<std::size_t>(end - text.begin());
        const std::string_view part = text.substr(0, length);
        text.remove_prefix(std::min(length + 1, text.size()));
        if (part == "..") {
            if (!parts.empty()) {
                parts.pop_back();
            }
        } else if (!part.empty() && part != ".") {
            parts.push_back(part);
        }
    }
    return parts;
}

// Appends the resolved components of text to base, which has no trailing separator. The result has
// one if text has one, or if it is the root.
std::string AppendResolved(std::string base, std::string_view text, bool drive)
{
    for (const std::string_view part : Components(text, drive)) {
        base += '/';
        base += part;
    }
    if (base.empty() || (!text.empty() && IsSeparator(text.back(), drive))) {
        base += '/';
    }
    return base;
}

// Returns true for characters that must not reach a log or a terminal: they end a line or change
// how the rest of it is displayed.
constexpr bool IsEscaped(char32_t code)
{
    const bool control = code < 0x20 || (code >= 0x7F && code < 0xA0);
    const bool separator = code == 0x2028 || code == 0x2029;
    const bool direction = code == 0x061C || code == 0x200E || code == 0x200F ||
                           (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    return control || separator || direction;
}

bool IsPlain(char c)
{
    return c >= 0x20 && c < 0x7F;
}

// Returns the number of bytes at the start of the text that need no escape.
std::size_t PrintableRun(std::string_view text)
{
    std::size_t done = 0;
    while (done < text.size()) {
        if (IsPlain(text[done])) {  // fast path: nearly all bytes of nearly all paths
            ++done;
            continue;
        }
        const Utf8Character next = FirstCharacter(text.substr(done));
        if (next.length == 0 || IsEscaped(next.code)) {
            break;
        }
        done += next.length;
    }
    return done;
}

void AppendEscaped(std::string& out, std::string_view bytes)
{
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        out += "\\x";
        out += kHexDigits[byte >> 4];
        out += kHexDigits[byte & 0x0F];
    }
}

}  // namespace

bool IsDrivePath(std::string_view path)
{
    return path.size() >= 2 && IsAsciiLetter(path[0]) && path[1] == ':';
}

char SeparatorOf(std::string_view path)
{
    return IsDrivePath(path) ? '\\' : '/';
}

bool EndsInSeparator(std::string_view path)
{
    return !path.empty() && IsSeparator(path.back(), IsDrivePath(path));
}

std::string WithSeparator(std::string path)
{
    if (!path.empty() && !EndsInSeparator(path)) {
        path += SeparatorOf(path);
    }
    return path;
}

bool IsRoot(std::string_view path)
{
    return !path.empty() && WithoutClosingSeparators(AfterDrive(path), IsDrivePath(path)).empty();
}

std::pair<std::string, std::string> SplitLast(std::string_view path)
{
    const bool drive = IsDrivePath(path);
    const std::string_view prefix = path.substr(0, drive ? 2 : 0);
    const std::string_view rest = WithoutClosingSeparators(AfterDrive(path), drive);
    std::size_t start = rest.size();
    while (start > 0 && !IsSeparator(rest[start - 1], drive)) {
        --start;
    }
    std::string parent(prefix);
    parent += WithoutClosingSeparators(rest.substr(0, start), drive);
    return {std::move(parent), std::string(rest.substr(start))};
}

std::string ParentFolder(std::string_view path)
{
    std::string parent = SplitLast(path).first;
    if (!parent.empty()) {
        return parent;
    }
    return std::string(1, path.starts_with('/') ? '/' : '.');
}

std::string VolumeName(std::string_view path)
{
    if (IsDrivePath(path)) {
        return std::string(path.substr(0, 1));
    }
    std::string name;
    for (const std::string_view part : Components(path, false)) {
        name += name.empty() ? "" : "-";
        name += part;
    }
    return name.empty() ? "root" : name;
}

std::string ToNative(std::string_view path, const DriveMap& drives)
{
    if (!IsDrivePath(path)) {
        return std::string(path);
    }
    const auto drive = drives.find(UpperLetter(path[0]));
    if (drive == drives.end() || drive->second.empty() || drive->second.front() != '/') {
        return {};
    }
    // Resolve ".." as text: on a mapped drive it must not leave the mapped folder.
    return AppendResolved(std::string(WithoutClosingSeparators(drive->second, false)),
                          AfterDrive(path), true);
}

std::string MakeAbsolute(std::string_view path)
{
    if (path.empty() || IsDrivePath(path)) {
        return std::string(path);
    }
    if (path.front() == '/') {
        return AppendResolved({}, path, false);
    }
    std::error_code failed;
    const std::string current = std::filesystem::current_path(failed).string();
    if (failed) {
        return std::string(path);
    }
    return AppendResolved({}, current + '/' + std::string(path), false);
}

std::string Printable(std::string_view text)
{
    std::string result;
    AppendPrintable(result, text);
    return result;
}

void AppendPrintable(std::string& out, std::string_view text)
{
    while (true) {
        const std::size_t run = PrintableRun(text);
        out += text.substr(0, run);
        if (run == text.size()) {
            return;
        }
        text.remove_prefix(run);
        const std::size_t length = std::max<std::size_t>(FirstCharacter(text).length, 1);
        AppendEscaped(out, text.substr(0, length));
        text.remove_prefix(length);
    }
}

}  // namespace quorbit
