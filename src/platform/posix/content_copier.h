// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Copies the content of an open file into an empty one.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/file_system.h"
#include "platform/posix/posix_volume.h"

namespace quorbit {

struct ContentJob {
    int from = -1;                // open for reading
    int to = -1;                  // open for writing, empty
    std::uint64_t size = 0;       // bytes, when the source was opened
    std::uint64_t allocated = 0;  // bytes on the disk, less than the size for a file with holes
    TransferFacts& facts;         // about the two file systems; learns
    CopyProgress* progress = nullptr;  // may be null
};

class ContentCopier {
public:
    // Copies what is there to its end, also if the source grows or shrinks meanwhile; never longer
    // than a source that grows for ever. Holes stay holes. Leaves the source's file offset
    // anywhere.
    Status Copy(const ContentJob& job);

private:
    static bool Clone(const ContentJob& job);
    Result<std::uint64_t> CopyExtents(const ContentJob& job);
    Result<std::uint64_t> CopyRange(const ContentJob& job, std::uint64_t offset, std::uint64_t end);
    Result<std::uint64_t> Stream(const ContentJob& job, std::uint64_t offset, std::uint64_t end);
    Status StreamToEnd(const ContentJob& job, std::uint64_t offset);
    std::byte* Buffer();

    std::unique_ptr<std::byte[]> m_buffer;
};

}  // namespace quorbit
