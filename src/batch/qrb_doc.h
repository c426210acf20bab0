// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The document: the entries of one batch file in run order, and the file that they came from.

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "batch/batch_file.h"
#include "batch/dir_copy.h"

namespace quorbit {

class CQRBDoc {
public:
    std::array<std::uint32_t, 2> m_headerWords{};  // carried through the file unchanged; no meaning
    std::vector<CDirCopy> m_arrEntries;            // in run order
    std::string m_strFilePath;                     // absolute; empty for a new document

    // Replaces the contents by those of the file. On failure nothing changes.
    [[nodiscard]] BatchFileStatus OnOpenDocument(const std::string& path);
    // m_strFilePath becomes path even if the save fails; the file is replaced whole or left as it
    // was.
    [[nodiscard]] BatchFileStatus OnSaveDocument(const std::string& path);
    void DeleteContents();
};

}  // namespace quorbit
