// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// One reading of a folder by getdents64(2), which gives names as bytes and mostly also tells what
// they are.

#pragma once

#include <cstddef>
#include <memory>

#include "platform/file_system.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

class PosixListing final : public Listing {
public:
    // The descriptor stands at the folder's beginning, and nobody else reads from it.
    explicit PosixListing(std::shared_ptr<const UniqueFd> descriptor);

    Result<bool> Next(FindData& item) override;

private:
    Result<bool> Fill();

    std::shared_ptr<const UniqueFd> m_descriptor;
    std::unique_ptr<std::byte[]> m_buffer;
    std::size_t m_nPosition = 0;
    std::size_t m_nEnd = 0;
    bool m_bEnded = false;
};

}  // namespace quorbit
