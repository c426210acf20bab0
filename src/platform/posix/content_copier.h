// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Copies the content of an open file into an empty one: by reflink, copy_file_range(2), or read and
// write. One thread at a time.

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
    std::uint64_t size = 0;       // bytes, as of opening the source
    std::uint64_t allocated = 0;  // bytes on the disk; less than the size if the file has holes
    TransferFacts& facts;         // what the two file systems support; updated by the copy
    CopyProgress* progress = nullptr;  // not owned; may be null
};

class ContentCopier {
public:
    // Copies to the end of the source, even if it grows or shrinks during the copy. The size is
    // read again only once, so a file that grows for ever does not keep the copy running. Holes are
    // kept. The file offset of the source is undefined afterwards.
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
