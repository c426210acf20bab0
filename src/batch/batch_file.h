// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads and writes batch files. The format is described in docs/batch-file-format.md. Any thread.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "batch/batch.h"
#include "platform/code_page.h"

namespace quorbit {

enum class BatchFileFault {
    Unreadable,   // the file cannot be opened or read, or is not a regular file
    EndOfFile,    // a field, count or length extends beyond the end of the file
    BadClass,     // the class of an entry is unknown
    BadSchema,    // the version of the class is unknown
    BadIndex,     // a tag refers to a class that is not in the file
    TooLarge,     // exceeds the limits of this program: 64 MiB or 1,000,000 strings
    NotWritable,  // saving failed; the old file is unchanged
};

struct BatchFileError {
    BatchFileFault fault;
    std::uint64_t offset = 0;  // bytes from the start; meaningless for Unreadable and NotWritable
    std::string reason;        // the error text of the system, for Unreadable and NotWritable only

    // Returns one sentence for the user, with the offset unless it is meaningless.
    [[nodiscard]] std::string Text() const;
};

// Success, or a BatchFileError.
class [[nodiscard]] BatchFileStatus {
public:
    BatchFileStatus() = default;
    BatchFileStatus(BatchFileError error)
        : m_error(std::move(error)) {}  // NOLINT(google-explicit-constructor)
    [[nodiscard]] bool Ok() const { return !m_error; }
    explicit operator bool() const { return Ok(); }
    // Requires !Ok().
    [[nodiscard]] const BatchFileError& GetError() const { return *m_error; }

private:
    std::optional<BatchFileError> m_error;
};

// Parses the content of a file. Strings stay the bytes of the file. Checks every count and length
// against the bytes left before it allocates memory. On failure `batch` is unchanged. Empty content
// is an empty batch and leaves the header words unchanged. Never changes the path.
BatchFileStatus ParseBatchFile(std::string_view bytes, Batch& batch);
// Returns the content of the file for a batch. Does not check the limits.
[[nodiscard]] std::string FormatBatchFile(const Batch& batch);

// Reads a file, converts the texts of Windows paths from the code page (see batch/entry_texts.h)
// and stores the path of the file in `batch`. On failure `batch` is unchanged.
BatchFileStatus ReadBatchFile(const std::string& path, Batch& batch,
                              std::int32_t codePage = kDefaultCodePage);
// Converts the texts of Windows paths to the code page and replaces the file atomically. On failure
// the old file is unchanged. Does not store the path.
BatchFileStatus WriteBatchFile(const std::string& path, const Batch& batch,
                               std::int32_t codePage = kDefaultCodePage);

}  // namespace quorbit
