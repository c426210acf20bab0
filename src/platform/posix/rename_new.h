// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Renames without replacing.

#pragma once

#include <string>

#include "platform/error.h"

namespace quorbit {

// Renames an item within an open folder. AlreadyExists if the new name is taken. Atomic on file
// systems that support RENAME_NOREPLACE (renameat2(2)); on others another process can take the name
// between check and rename. Any thread.
Status RenameNew(int folder, const std::string& name, const std::string& newName);

}  // namespace quorbit
