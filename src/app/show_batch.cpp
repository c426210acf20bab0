// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/show_batch.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "platform/path_text.h"

namespace quorbit {
namespace {

struct FlagName {
    std::uint32_t flag;
    std::string_view name;
};
constexpr std::array kFlagNames{
    FlagName{DCF_ATTR_READONLY, "DCF_ATTR_READONLY"},
    FlagName{DCF_ATTR_SYSTEM, "DCF_ATTR_SYSTEM"},
    FlagName{DCF_ATTR_HIDDEN, "DCF_ATTR_HIDDEN"},
    FlagName{DCF_ATTR_ARCHIVE, "DCF_ATTR_ARCHIVE"},
    FlagName{DCF_SUBFOLDERS, "DCF_SUBFOLDERS"},
    FlagName{DCF_SYNC, "DCF_SYNC"},
    FlagName{DCF_ALL_TYPES, "DCF_ALL_TYPES"},
    FlagName{DCF_EXCLUDE, "DCF_EXCLUDE"},
    FlagName{DCF_PRESERVE_TREE, "DCF_PRESERVE_TREE"},
    FlagName{DCF_ATTR_AND, "DCF_ATTR_AND"},
    FlagName{DCF_ATTR_OR, "DCF_ATTR_OR"},
    FlagName{DCF_DELETE, "DCF_DELETE"},
    FlagName{DCF_DELETE_FOLDER, "DCF_DELETE_FOLDER"},
    FlagName{DCF_FOLDER_ITEMS, "DCF_FOLDER_ITEMS"},
    FlagName{DCF_NO_ATTRS, "DCF_NO_ATTRS"},
    FlagName{DCF_SCRIPT_WSH, "DCF_SCRIPT_WSH"},
    FlagName{DCF_SCRIPT_DOS, "DCF_SCRIPT_DOS"},
    FlagName{DCF_INCREMENTAL, "DCF_INCREMENTAL"},
    FlagName{DCF_OVERWRITE_RO, "DCF_OVERWRITE_RO"},
};

constexpr std::string_view kIndent = "                ";

std::string Hex(std::uint32_t value)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(value));
    return text.data();
}

std::string KindName(std::uint32_t kind)
{
    if (kind == DCK_TYPES) {
        return "DCK_TYPES";
    }
    return kind == DCK_NAMES ? "DCK_NAMES" : "unknown (" + std::to_string(kind) + ")";
}

// Returns a line with a label and its value in columns.
std::string Field(std::string_view label, std::string_view value)
{
    std::string line = "  " + std::string(label) + ":";
    line.resize(kIndent.size(), ' ');
    return line + std::string(value) + "\n";
}

std::string List(std::string_view label, const std::vector<std::string>& items)
{
    if (items.empty()) {
        return Field(label, "(none)");
    }
    std::string text = Field(label, Printable(items.front()));
    for (std::size_t i = 1; i < items.size(); ++i) {
        text += std::string(kIndent) + Printable(items[i]) + "\n";
    }
    return text;
}

std::string ShowEntry(std::size_t number, const CDirCopy& entry)
{
    const auto orNone = [](const std::string& text) {
        return text.empty() ? "(none)" : Printable(text);
    };
    return "Entry " + std::to_string(number) + "\n" + Field("Source", orNone(entry.m_strSource)) +
           Field("Destination", orNone(entry.m_strDest)) +
           Field("Flags", Hex(entry.m_dwFlags) + "  " + FlagNames(entry.m_dwFlags)) +
           Field("Kind", KindName(entry.m_nKind)) + Field("Id", std::to_string(entry.m_nId)) +
           List("Items", entry.m_listItems) + List("Folder types", entry.m_listFolderTypes);
}

}  // namespace

std::string FlagNames(std::uint32_t dwFlags)
{
    std::string text;
    const auto add = [&](std::string_view name) {
        if (!text.empty()) {
            text += ' ';
        }
        text += name;
    };
    for (const FlagName& flag : kFlagNames) {
        if (dwFlags & flag.flag) {
            add(flag.name);
        }
        dwFlags &= ~flag.flag;
    }
    if (dwFlags != 0) {
        add(Hex(dwFlags));
    }
    return text.empty() ? "(none)" : text;
}

std::string ShowEntries(const std::vector<CDirCopy>& entries)
{
    if (entries.empty()) {
        return "The Batch File is empty.\n";
    }
    std::string text;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i > 0) {
            text += "\n";
        }
        text += ShowEntry(i + 1, entries[i]);
    }
    return text;
}

}  // namespace quorbit
