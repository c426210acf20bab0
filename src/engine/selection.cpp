// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/selection.h"

#include <algorithm>

#include "batch/dir_copy.h"
#include "platform/case_folding.h"
#include "platform/find_data.h"
#include "platform/utf8.h"

namespace quorbit {
namespace {

// Returns what a name must end in: the mask without its first character, which may be longer than a
// byte.
std::string_view SuffixOf(std::string_view mask)
{
    if (mask.empty()) {
        return mask;
    }
    const std::size_t first = FirstCharacter(mask).length;
    return mask.substr(std::max<std::size_t>(first, 1));
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
        } else if (item == kEveryFile) {
            return true;
        } else if (EndsWithNoCase(fileName, SuffixOf(item))) {
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
