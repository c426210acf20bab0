// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The content of a batch file, and the work of one run. A plain value.

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "batch/dir_copy.h"

namespace quorbit {

struct Batch {
    // The header words of the file. They have no meaning and are preserved unchanged.
    std::array<std::uint32_t, 2> m_headerWords{};
    std::vector<CDirCopy> m_arrEntries{};  // in processing order
    // The absolute path of the file that was read or written last; empty for a new batch.
    // Determines the name of the log of a run.
    std::string m_strFilePath{};
};

}  // namespace quorbit
