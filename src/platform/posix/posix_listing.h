// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Lists a folder with getdents64(2), which returns names as bytes and usually also the item type.

#pragma once

#include <cstddef>
#include <memory>

#include "platform/file_system.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

class PosixListing final : public Listing {
public:
    // descriptor: at the start of the folder; its offset must not be used elsewhere.
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
