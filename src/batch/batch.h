// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A batch: what a batch file holds, and what a run carries out. A plain value.

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "batch/dir_copy.h"

namespace quorbit {

struct Batch {
    // From the head of the file, carried through unchanged; they have no meaning here.
    std::array<std::uint32_t, 2> m_headerWords{};
    std::vector<CDirCopy> m_arrEntries{};  // in run order
    // The file that the batch came from or went to, absolute; empty for a new batch. It names the
    // log of a run.
    std::string m_strFilePath{};
};

}  // namespace quorbit
