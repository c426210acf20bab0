// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Renames without replacing, and exchanges names. Any thread.

#pragma once

#include <string>

#include "platform/error.h"

namespace quorbit {

// A name in an open folder. Owns nothing.
struct NamedItem {
    int folder = -1;
    const std::string& name;
};

// Renames an item. AlreadyExists if the new name is taken. Atomic on file systems that support
// RENAME_NOREPLACE (renameat2(2)); on others another process can take the name between check and
// rename.
Status RenameNew(const NamedItem& from, const NamedItem& to);

// Exchanges two existing items in one step (RENAME_EXCHANGE). NotSupported if the file system
// cannot do that.
Status ExchangeNames(const NamedItem& one, const NamedItem& other);

}  // namespace quorbit
