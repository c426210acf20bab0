// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/path_text.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <vector>

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

constexpr bool IsContinuation(unsigned char c)
{
    return (c & 0xC0) == 0x80;
}

// The length of a multi-byte sequence, and the range of its second byte that excludes overlong
// forms, surrogates and code points above U+10FFFF (RFC 3629, section 4).
struct LeadByte {
    std::size_t length;
    unsigned char low;
    unsigned char high;
};

constexpr LeadByte Lead(unsigned char c)
{
    if (c >= 0xC2 && c <= 0xDF) {
        return {2, 0x80, 0xBF};
    }
    if (c >= 0xE0 && c <= 0xEF) {
        return {3, static_cast<unsigned char>(c == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(c == 0xED ? 0x9F : 0xBF)};
    }
    if (c >= 0xF0 && c <= 0xF4) {
        return {4, static_cast<unsigned char>(c == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(c == 0xF4 ? 0x8F : 0xBF)};
    }
    return {0, 0, 0};
}

// Returns the size in bytes of the printable character at the start of the text, or 0 if its first
// byte must be escaped. Not printable: ASCII and C1 controls, invalid UTF-8.
std::size_t PrintableLength(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80) {
        return first >= 0x20 && first != 0x7F ? 1 : 0;
    }
    const LeadByte lead = Lead(first);
    if (lead.length == 0 || text.size() < lead.length) {
        return 0;
    }
    const auto second = static_cast<unsigned char>(text[1]);
    const bool c1Control = first == 0xC2 && second < 0xA0;
    if (second < lead.low || second > lead.high || c1Control) {
        return 0;
    }
    for (std::size_t i = 2; i < lead.length; ++i) {
        if (!IsContinuation(static_cast<unsigned char>(text[i]))) {
            return 0;
        }
    }
    return lead.length;
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
        const std::size_t length = PrintableLength(text.substr(done));
        if (length == 0) {
            break;
        }
        done += length;
    }
    return done;
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
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    while (true) {
        const std::size_t run = PrintableRun(text);
        out += text.substr(0, run);
        if (run == text.size()) {
            return;
        }
        const auto byte = static_cast<unsigned char>(text[run]);
        out += "\\x";
        out += kHexDigits[byte >> 4];
        out += kHexDigits[byte & 0x0F];
        text.remove_prefix(run + 1);
    }
}

}  // namespace quorbit
