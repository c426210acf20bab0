// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The data of a node in a tree of the shell namespace.

#pragma once

#include "platform/shell/item_id_list.h"
#include "platform/shell/shell_folder.h"

namespace quorbit {

struct ShellTreeItem {
    ShellFolderPtr m_pFolder;  // the folder that enumerated the node
    ItemIdList m_pidlItem;     // single id of the node in that folder
    ItemIdList m_pidlFull;     // absolute list of the node
};

}  // namespace quorbit
