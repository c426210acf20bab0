// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/path_text.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>

#include "platform/case_folding.h"
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

// Names cannot contain a slash, so accept it as a separator in Windows paths too.
constexpr bool IsSeparator(char c, bool windows)
{
    return c == '/' || (windows && c == '\\');
}

std::string_view WithoutClosingSeparators(std::string_view text, bool windows)
{
    while (!text.empty() && IsSeparator(text.back(), windows)) {
        text.remove_suffix(1);
    }
    return text;
}

// Removes the leading separators and the first name from the text. Returns the name, which is empty
// at the end of the text.
std::string_view TakeName(std::string_view& text, bool windows)
{
    const auto separates = [windows](char c) { return IsSeparator(c, windows); };
    const auto start = std::find_if_not(text.begin(), text.end(), separates);
    const auto end = std::find_if(start, text.end(), separates);
    const std::string_view name(start, end);
    text = std::string_view(end, text.end());
    return name;
}

// Returns the part of a path that is not a name in a parent folder: "C:" or "\\server\share". Empty
// for all other paths.
std::string_view RootOf(std::string_view path)
{
    if (IsDrivePath(path)) {
        return path.substr(0, 2);
    }
    if (!IsSharePath(path)) {
        return {};
    }
    std::string_view rest = path;
    (void)TakeName(rest, true);
    (void)TakeName(rest, true);
    return path.substr(0, path.size() - rest.size());
}

std::string_view BelowRoot(std::string_view path)
{
    return path.substr(RootOf(path).size());
}

// Splits a path without its root into names. Skips "."; ".." removes the name before it, but not
// the root.
std::vector<std::string_view> Components(std::string_view text, bool windows)
{
    std::vector<std::string_view> parts;
    for (auto part = TakeName(text, windows); !part.empty(); part = TakeName(text, windows)) {
        if (part != "..") {
            if (part != ".") {
                parts.push_back(part);
            }
        } else if (!parts.empty()) {
            parts.pop_back();
        }
    }
    return parts;
}

// Returns the rest of a path that starts with the names of `prefix`, or nullopt.
std::optional<std::string_view> AfterPrefix(std::string_view path, std::string_view prefix)
{
    for (auto name = TakeName(prefix, true); !name.empty(); name = TakeName(prefix, true)) {
        if (!EqualNoCase(TakeName(path, true), name)) {
            return std::nullopt;
        }
    }
    return path;
}

struct Mapping {
    std::string_view folder;
    std::string_view rest;  // of the path
};

std::optional<Mapping> FindDrive(std::string_view path, const DriveMap& drives)
{
    const auto drive = drives.find({UpperLetter(path[0]), ':'});
    if (drive == drives.end()) {
        return std::nullopt;
    }
    return Mapping{drive->second, BelowRoot(path)};
}

// Of several prefixes that match, the longest wins.
std::optional<Mapping> FindShare(std::string_view path, const DriveMap& drives)
{
    std::optional<Mapping> longest;
    for (const auto& [prefix, folder] : drives) {
        if (!IsSharePath(prefix)) {
            continue;
        }
        const auto rest = AfterPrefix(path, prefix);
        if (rest && (!longest || rest->size() < longest->rest.size())) {
            longest = Mapping{folder, *rest};
        }
    }
    return longest;
}

// Appends the names of text to base, which has no trailing separator. The result has one if text
// has one, or if it is the root.
std::string AppendNames(std::string base, std::string_view text)
{
    for (const std::string_view name : Components(text, false)) {
        base += '/';
        base += name;
    }
    if (base.empty() || text.ends_with('/')) {
        base += '/';
    }
    return base;
}

// Returns where the last ".." of a path ends, or 0 if there is none.
std::size_t EndOfLastParent(std::string_view path)
{
    std::size_t end = 0;
    std::string_view rest = path;
    for (auto name = TakeName(rest, false); !name.empty(); name = TakeName(rest, false)) {
        if (name == "..") {
            end = path.size() - rest.size();
        }
    }
    return end;
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

bool IsSharePath(std::string_view path)
{
    return path.starts_with("\\\\");
}

bool IsWindowsPath(std::string_view path)
{
    return IsDrivePath(path) || path.starts_with('\\');
}

char SeparatorOf(std::string_view path)
{
    return IsWindowsPath(path) ? '\\' : '/';
}

bool EndsInSeparator(std::string_view path)
{
    return !path.empty() && IsSeparator(path.back(), IsWindowsPath(path));
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
    return !path.empty() && WithoutClosingSeparators(BelowRoot(path), IsWindowsPath(path)).empty();
}

std::pair<std::string, std::string> SplitLast(std::string_view path)
{
    const bool windows = IsWindowsPath(path);
    const std::string_view rest = WithoutClosingSeparators(BelowRoot(path), windows);
    std::size_t start = rest.size();
    while (start > 0 && !IsSeparator(rest[start - 1], windows)) {
        --start;
    }
    std::string parent(RootOf(path));
    parent += WithoutClosingSeparators(rest.substr(0, start), windows);
    return {std::move(parent), std::string(rest.substr(start))};
}

std::string ParentFolder(std::string_view path)
{
    std::string parent = SplitLast(path).first;
    if (!parent.empty()) {
        return parent;
    }
    const bool fromRoot = !path.empty() && IsSeparator(path.front(), true);
    return std::string(1, fromRoot ? path.front() : '.');
}

std::string VolumeName(std::string_view path)
{
    if (IsDrivePath(path)) {
        return std::string(path.substr(0, 1));
    }
    std::string name;
    for (const std::string_view part : Components(path, IsWindowsPath(path))) {
        name += name.empty() ? "" : "-";
        name += part;
    }
    return name.empty() ? "root" : name;
}

std::string DriveKey(std::string_view name)
{
    if (name.size() == 1 && IsAsciiLetter(name[0])) {
        return {UpperLetter(name[0]), ':'};
    }
    std::string_view rest = name;
    if (!IsSharePath(name) || TakeName(rest, true).empty() || !IsUtf8(name)) {
        return {};
    }
    return std::string(WithoutClosingSeparators(name, true));
}

std::optional<MappedPath> MapPath(std::string_view path, const DriveMap& drives)
{
    std::optional<Mapping> found;
    if (IsDrivePath(path)) {
        found = FindDrive(path, drives);
    } else if (IsSharePath(path)) {
        found = FindShare(path, drives);
    }
    if (!found || !found->folder.starts_with('/')) {
        return std::nullopt;
    }
    MappedPath mapped;
    mapped.folder = WithoutClosingSeparators(found->folder, false);
    // Resolve ".." as text: it must not leave the mapped folder.
    for (const std::string_view name : Components(found->rest, true)) {
        mapped.names.emplace_back(name);
    }
    mapped.closed = (!found->rest.empty() && IsSeparator(found->rest.back(), true)) ||
                    (mapped.folder.empty() && mapped.names.empty());
    return mapped;
}

std::string ToNative(std::string_view path, const DriveMap& drives)
{
    if (!IsWindowsPath(path)) {
        return std::string(path);
    }
    const auto mapped = MapPath(path, drives);
    if (!mapped) {
        return {};
    }
    std::string native = mapped->folder;
    for (const std::string& name : mapped->names) {
        native += '/' + name;
    }
    return mapped->closed ? native + '/' : native;
}

std::string MakeAbsolute(std::string_view path)
{
    if (path.empty() || IsDrivePath(path)) {
        return std::string(path);
    }
    std::error_code failed;
    std::string whole(path);
    if (path.front() != '/') {
        const std::string current = std::filesystem::current_path(failed).string();
        if (failed) {
            return whole;
        }
        whole = current + '/' + whole;
    }
    const std::size_t parentEnd = EndOfLastParent(whole);
    if (parentEnd == 0) {
        return AppendNames({}, whole);
    }
    const std::string folder = std::filesystem::canonical(whole.substr(0, parentEnd), failed);
    if (failed) {
        return whole;  // opening it then gives the reason
    }
    return AppendNames(folder == "/" ? std::string() : folder, whole.substr(parentEnd));
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
