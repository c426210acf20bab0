// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/item_id_list.h"

namespace quorbit {

std::size_t ItemIdSize(ItemIdView id)
{
    if (id.size() < 2) {
        return 0;
    }
    const std::size_t size = id[0] + (std::size_t{id[1]} << 8U);
    return size >= 2 && size <= id.size() ? size : 0;
}

}  // namespace quorbit
