// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// One entry of a batch: the source, the destination, the selection and the operation. A plain
// value; an edit in a document replaces the entry.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorbit {

// Bits of m_dwFlags, as stored in batch files (docs/batch-file-format.md). Bits 0 to 3 are the
// attribute mask of the entry; their values differ from kAttribute... in platform/find_data.h.
enum : std::uint32_t {
    DCF_ATTR_READONLY = 0x00000001,
    DCF_ATTR_SYSTEM = 0x00000002,
    DCF_ATTR_HIDDEN = 0x00000004,
    DCF_ATTR_ARCHIVE = 0x00000008,
    DCF_SUBFOLDERS = 0x00000010,     // include subfolders
    DCF_SYNC = 0x00000020,           // replace a file only if the source is newer
    DCF_ALL_TYPES = 0x00000040,      // select every file; ignore the lists
    DCF_EXCLUDE = 0x00000080,        // select everything except what is listed
    DCF_PRESERVE_TREE = 0x00000100,  // recreate subfolders at the destination; otherwise all files
                                     // go into one folder
    DCF_ATTR_AND = 0x00000200,       // the four attributes of a file must equal the mask
    DCF_ATTR_OR = 0x00000400,        // a file must have at least one attribute of the mask
    DCF_DELETE = 0x00000800,         // delete the selected files; nothing is copied
    DCF_DELETE_FOLDER = 0x00001000,  // with DCF_DELETE: delete the folder recursively
    DCF_FOLDER_ITEMS = 0x00002000,   // m_listItems names folders
    DCF_NO_ATTRS = 0x00004000,       // no attribute filter
    DCF_SCRIPT_WSH =
        0x00008000,  // m_strSource is a script, run by the interpreter for its extension
    DCF_SCRIPT_DOS = 0x00010000,    // m_strSource is a script, run by the shell
    DCF_INCREMENTAL = 0x00020000,   // like DCF_SYNC, but keep the replaced file as a numbered
                                    // version; overrides DCF_SYNC
    DCF_OVERWRITE_RO = 0x00040000,  // replace read-only files at the destination
    DCF_ATTR_MASK = 0x0000000F,
};

// Values of m_nKind.
enum : std::uint32_t {
    DCK_TYPES = 0,  // m_listItems contains file type masks
    DCK_NAMES = 1,  // m_listItems contains complete names
};

// The mask in a list of file types that selects every file.
constexpr const char* kEveryFile = "*.*";

struct CDirCopy {
    std::vector<std::string> m_listItems;  // masks, file names, folder names or drive roots,
                                           // depending on the type of the entry
    std::vector<std::string>
        m_listFolderTypes;              // masks for the files in the folders of m_listItems
    std::string m_strSource;            // source folder, kMyComputer, or the path of a script
    std::string m_strDest;              // destination folder; empty in a script entry
    std::uint32_t m_dwFlags = 0;        // DCF_... bits
    std::uint32_t m_nKind = DCK_TYPES;  // DCK_TYPES or DCK_NAMES
    std::uint32_t m_nId = 0;            // unique within its document, never shown

    CDirCopy() = default;
    CDirCopy(std::string source, std::string dest, std::uint32_t flags, std::uint32_t kind,
             std::uint32_t id)
        : m_strSource(std::move(source)),
          m_strDest(std::move(dest)),
          m_dwFlags(flags),
          m_nKind(kind),
          m_nId(id)
    {
    }

    [[nodiscard]] bool IsScript() const
    {
        return (m_dwFlags & (DCF_SCRIPT_WSH | DCF_SCRIPT_DOS)) != 0;
    }

    bool operator==(const CDirCopy&) const = default;
};

// The source of a folder entry whose items are drive roots.
inline constexpr const char* kMyComputer = "My Computer";

}  // namespace quorbit
