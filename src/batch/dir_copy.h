// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// One entry of a batch: where files come from, where they go, which are meant and what is done to
// them. An entry is a plain value; it does not change while it stands in a document, an edit
// replaces it.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorbit {

// Bits of m_dwFlags. Bits 0 to 3 are the entry's own attribute mask, not the file system's
// attribute word.
enum : std::uint32_t {
    DCF_ATTR_READONLY = 0x00000001,
    DCF_ATTR_SYSTEM = 0x00000002,
    DCF_ATTR_HIDDEN = 0x00000004,
    DCF_ATTR_ARCHIVE = 0x00000008,
    DCF_SUBFOLDERS = 0x00000010,  // descend into sub folders
    DCF_SYNC = 0x00000020,        // replace only what is older than the source
    DCF_ALL_TYPES = 0x00000040,   // every file is selected, the lists are not consulted
    DCF_EXCLUDE = 0x00000080,     // select what is not listed
    DCF_PRESERVE_TREE =
        0x00000100,  // recreate sub folders at the destination; without it the tree lands flat
    DCF_ATTR_AND = 0x00000200,       // the four attributes must equal the mask
    DCF_ATTR_OR = 0x00000400,        // at least one attribute of the mask
    DCF_DELETE = 0x00000800,         // selected files are deleted, nothing is copied
    DCF_DELETE_FOLDER = 0x00001000,  // with DCF_DELETE: the folder goes as a whole
    DCF_FOLDER_ITEMS = 0x00002000,   // m_listItems names folders
    DCF_NO_ATTRS = 0x00004000,       // no attribute filter
    DCF_SCRIPT_WSH = 0x00008000,     // m_strSource is a script with an interpreter of its own
    DCF_SCRIPT_DOS = 0x00010000,     // m_strSource is a batch or shell script
    DCF_INCREMENTAL =
        0x00020000,  // as DCF_SYNC, keeping the replaced file under a number; wins over DCF_SYNC
    DCF_OVERWRITE_RO = 0x00040000,  // a read-only destination file may be replaced
    DCF_ATTR_MASK = 0x0000000F,
};

// Values of m_nKind.
enum : std::uint32_t {
    DCK_TYPES = 0,  // m_listItems holds file-type masks
    DCK_NAMES = 1,  // m_listItems holds whole names
};

struct CDirCopy {
    std::vector<std::string>
        m_listItems;  // masks, file names, folder names or drive roots, by variety
    std::vector<std::string> m_listFolderTypes;  // masks inside the folders that m_listItems names
    std::string m_strSource;            // source folder, "My Computer", or the path of a script
    std::string m_strDest;              // destination folder; empty in a script entry
    std::uint32_t m_dwFlags = 0;        // DCF_ bits
    std::uint32_t m_nKind = DCK_TYPES;  // DCK_ value
    std::uint32_t m_nId = 0;            // identity within its document, never shown

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

// The source of a folder entry whose items are whole volumes.
inline constexpr const char* kMyComputer = "My Computer";

}  // namespace quorbit
