// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/computer_folder.h"

#include <vector>

#include "platform/shell/file_folder.h"
#include "platform/shell/list_enumerator.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {

std::unique_ptr<ShellEnumerator> ComputerFolder::EnumObjects(std::uint32_t flags,
                                                             std::stop_token) const
{
    return std::make_unique<ListEnumerator>([context = Context(), flags] {
        std::vector<ItemIdList> ids;
        if ((flags & SHCONTF_FOLDERS) != 0) {
            for (const ShellVolume& volume : context->Volumes(context->Mounts())) {
                ids.push_back(MakeVolumeId(volume));
            }
        }
        return ids;
    });
}

std::string ComputerFolder::ParsingNameOf(const ItemIdContent& item) const
{
    return item.kind == ShellItemKind::Volume ? std::string(item.name) : std::string();
}

std::shared_ptr<const ShellFolder> ComputerFolder::Bind(const ItemIdContent& item) const
{
    return item.kind == ShellItemKind::Volume
               ? std::make_shared<const FileFolder>(Context(), std::string(item.name))
               : nullptr;
}

}  // namespace quorbit
