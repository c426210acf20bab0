// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/selection.h"

#include <algorithm>

#include "batch/dir_copy.h"
#include "platform/find_data.h"

namespace quorbit {
namespace {

// ASCII letters only, because the encoding of file names is unknown.
char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EqualNoCase(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return Lower(x) == Lower(y); });
}

bool EndsWithSuffixOf(std::string_view mask, std::string_view fileName)
{
    const std::string_view suffix = mask.empty() ? mask : mask.substr(1);
    // Strictly longer: "*.txt" does not select a file named ".txt".
    return fileName.size() > suffix.size() &&
           EqualNoCase(fileName.substr(fileName.size() - suffix.size()), suffix);
}

}  // namespace

bool MatchFileType(const std::vector<std::string>& list, std::string_view fileName,
                   std::uint32_t nKind, std::uint32_t dwFlags)
{
    if (dwFlags & DCF_DELETE_FOLDER) {
        return true;
    }
    const bool hit = (dwFlags & DCF_EXCLUDE) == 0;
    for (const std::string& item : list) {
        if (nKind != DCK_TYPES) {
            if (EqualNoCase(item, fileName)) {
                return hit;
            }
        } else if (item == "*.*") {
            return true;
        } else if (EndsWithSuffixOf(item, fileName)) {
            return hit;
        }
    }
    return !hit;
}

bool MatchAttributes(std::uint32_t attributes, std::uint32_t dwFlags, std::uint32_t nMask)
{
    if (dwFlags & DCF_NO_ATTRS) {
        return true;
    }
    std::uint32_t bits = 0;
    if (attributes & kAttributeReadOnly) {
        bits |= DCF_ATTR_READONLY;
    }
    if (attributes & kAttributeSystem) {
        bits |= DCF_ATTR_SYSTEM;
    }
    if (attributes & kAttributeHidden) {
        bits |= DCF_ATTR_HIDDEN;
    }
    if (attributes & kAttributeArchive) {
        bits |= DCF_ATTR_ARCHIVE;
    }
    if (dwFlags & DCF_ATTR_AND) {
        return bits == nMask;
    }
    if (dwFlags & DCF_ATTR_OR) {
        return (bits & nMask) != 0;
    }
    return false;
}

}  // namespace quorbit
