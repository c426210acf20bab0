// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Enumerates a list of ids that is computed at the first Next, then the items of another
// enumerator.

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "platform/shell/shell_folder.h"

namespace quorbit {

class ListEnumerator final : public ShellEnumerator {
public:
    // make: returns the ids; called at the first Next. Null ids are skipped. rest: may be null. It
    // counts as empty if its folder does not exist.
    explicit ListEnumerator(std::function<std::vector<ItemIdList>()> make,
                            std::unique_ptr<ShellEnumerator> rest = nullptr);

    Result<std::optional<ItemIdList>> Next() override;
    // NotSupported unless the item is from `rest`.
    Result<FindData> ReadDetails() override;

private:
    std::function<std::vector<ItemIdList>()> m_make;  // empty after it was called
    std::vector<ItemIdList> m_ids;
    std::size_t m_nNext = 0;
    bool m_bInRest = false;
    std::unique_ptr<ShellEnumerator> m_rest;
};

}  // namespace quorbit
