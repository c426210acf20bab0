// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reading and writing batch files. The format stands in docs/batch-file-format.md.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "batch/batch.h"

namespace quorbit {

enum class BatchFileFault {
    Unreadable,   // the file cannot be opened or read, or it is no regular file
    EndOfFile,    // it ends in the middle of something, or a count or length is larger than what is
                  // left
    BadClass,     // an entry is of an unknown class
    BadSchema,    // an entry is of a later version of the class
    BadIndex,     // a tag refers to something that was never stored
    TooLarge,     // beyond the limits of this program
    NotWritable,  // saving failed; the old file stands
};

struct BatchFileError {
    BatchFileFault fault;
    std::uint64_t offset = 0;  // byte in the file; meaningless for Unreadable and NotWritable
    std::string reason;        // the system's text for Unreadable and NotWritable

    // One sentence for a person, naming the offset where there is one.
    [[nodiscard]] std::string Text() const;
};

// Done, or why not.
class [[nodiscard]] BatchFileStatus {
public:
    BatchFileStatus() = default;
    BatchFileStatus(BatchFileError error)
        : m_error(std::move(error)) {}  // NOLINT(google-explicit-constructor)
    [[nodiscard]] bool Ok() const { return !m_error; }
    explicit operator bool() const { return Ok(); }
    // Only when not Ok().
    [[nodiscard]] const BatchFileError& GetError() const { return *m_error; }

private:
    std::optional<BatchFileError> m_error;
};

// Parses the bytes of a file. Trusts nothing: a count or length that cannot be true fails before
// anything is allocated by it. On failure `batch` is untouched. No bytes at all are an empty batch,
// and leave the header words as they are. Leaves the path alone.
BatchFileStatus ParseBatchFile(std::string_view bytes, Batch& batch);
// The bytes that stand for a batch.
[[nodiscard]] std::string FormatBatchFile(const Batch& batch);

// Reads a file whole, its path included, or changes nothing.
BatchFileStatus ReadBatchFile(const std::string& path, Batch& batch);
// Replaces the file whole or leaves it as it was.
BatchFileStatus WriteBatchFile(const std::string& path, const Batch& batch);

}  // namespace quorbit
