// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/list_enumerator.h"

#include <utility>

namespace quorbit {

ListEnumerator::ListEnumerator(std::function<std::vector<ItemIdList>()> make,
                               std::unique_ptr<ShellEnumerator> rest)
    : m_make(std::move(make)), m_rest(std::move(rest))
{
}

Result<std::optional<ItemIdList>> ListEnumerator::Next()
{
    if (m_make) {
        m_ids = std::exchange(m_make, nullptr)();
    }
    while (m_nNext < m_ids.size()) {
        ItemIdList id = std::move(m_ids[m_nNext++]);
        if (!id.IsNull()) {
            return std::optional(std::move(id));
        }
    }
    m_bInRest = true;
    if (m_rest == nullptr) {
        return std::optional<ItemIdList>();
    }
    auto next = m_rest->Next();
    if (!next && next.GetError().Kind() == ErrorKind::Missing) {
        return std::optional<ItemIdList>();
    }
    return next;
}

Result<FindData> ListEnumerator::ReadDetails()
{
    if (!m_bInRest || m_rest == nullptr) {
        return Error(ErrorKind::NotSupported, "Not an item of a file system");
    }
    return m_rest->ReadDetails();
}

}  // namespace quorbit
