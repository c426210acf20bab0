// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/entry_texts.h"

#include <algorithm>
#include <utility>

#include "platform/path_text.h"

namespace quorbit {

namespace {

bool IsFromWindows(const CDirCopy& entry)
{
    if (entry.m_strSource != kMyComputer) {
        return IsWindowsPath(entry.m_strSource);
    }
    return std::ranges::all_of(entry.m_listItems, IsWindowsPath);
}

// Calls convert(std::string&) for each text that is in the code page, until it returns a failure.
// `Entry` may be const.
template <typename Entry, typename Convert>
Status ForEachText(Entry& entry, Convert convert)
{
    // Before any text changes.
    const bool listsToo = IsFromWindows(entry);
    for (auto* path : {&entry.m_strSource, &entry.m_strDest}) {
        if (IsWindowsPath(*path)) {
            if (Status converted = convert(*path); !converted) {
                return converted;
            }
        }
    }
    if (!listsToo) {
        return {};
    }
    for (auto* list : {&entry.m_listItems, &entry.m_listFolderTypes}) {
        for (auto& text : *list) {
            if (Status converted = convert(text); !converted) {
                return converted;
            }
        }
    }
    return {};
}

}  // namespace

void DecodeTexts(CDirCopy& entry, CodePage& codePage)
{
    (void)ForEachText(entry, [&](std::string& text) {
        text = codePage.Decode(text);
        return Status();
    });
}

Status EncodeTexts(CDirCopy& entry, CodePage& codePage)
{
    return ForEachText(entry, [&](std::string& text) -> Status {
        auto bytes = codePage.Encode(text);
        if (!bytes) {
            return bytes.GetError();
        }
        text = std::move(*bytes);
        return {};
    });
}

Status CheckTexts(const CDirCopy& entry)
{
    return ForEachText(entry, [](const std::string& text) -> Status {
        if (HasUnconverted(text)) {
            return Error(ErrorKind::NotSupported,
                         "A text of the entry is not in the code page of the settings");
        }
        return {};
    });
}

}  // namespace quorbit
