// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Common base class of the folders of the namespace; implements everything that needs only the ids.
// Immutable; any thread.

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/shell/item_id_content.h"
#include "platform/shell/shell_context.h"
#include "platform/shell/shell_folder.h"

namespace quorbit {

class SystemFolder : public ShellFolder {
public:
    explicit SystemFolder(std::shared_ptr<const ShellContext> context);

    Result<std::uint32_t> GetAttributesOf(ItemIdView id, std::uint32_t mask) const final;
    Result<std::string> GetDisplayNameOf(ItemIdView id, std::uint32_t flags) const final;
    Result<std::shared_ptr<const ShellFolder>> BindToObject(ItemIdView id) const final;
    Result<int> CompareIDs(ItemIdView first, ItemIdView second) const final;
    Result<ItemIdList> ParseDisplayName(std::string_view name) const override;

protected:
    [[nodiscard]] const std::shared_ptr<const ShellContext>& Context() const { return m_context; }

private:
    // Returns the parsing name of an item of this folder; empty if it has none.
    [[nodiscard]] virtual std::string ParsingNameOf(const ItemIdContent& item) const = 0;
    // Returns the folder for an item of this folder; null if it has no parsing name.
    [[nodiscard]] virtual std::shared_ptr<const ShellFolder> Bind(
        const ItemIdContent& item) const = 0;

    std::shared_ptr<const ShellContext> m_context;
};

}  // namespace quorbit
