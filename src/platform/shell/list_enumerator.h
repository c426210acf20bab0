// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A walk over items that are known when it begins, then over those of another walk.

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "platform/shell/shell_folder.h"

namespace quorbit {

class ListEnumerator final : public ShellEnumerator {
public:
    // make: gives the ids, called at the first Next; null ids are passed over.
    // rest: may be null. One whose folder is not there counts as empty.
    explicit ListEnumerator(std::function<std::vector<ItemIdList>()> make,
                            std::unique_ptr<ShellEnumerator> rest = nullptr);

    Result<std::optional<ItemIdList>> Next() override;
    // Only an item of the rest has details.
    Result<FindData> ReadDetails() override;

private:
    std::function<std::vector<ItemIdList>()> m_make;  // empty once it has been called
    std::vector<ItemIdList> m_ids;
    std::size_t m_nNext = 0;
    bool m_bInRest = false;
    std::unique_ptr<ShellEnumerator> m_rest;
};

}  // namespace quorbit
