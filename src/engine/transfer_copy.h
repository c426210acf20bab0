// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes the copy of a transfer, or places the one that was made ready. Worker thread only.

#pragma once

#include <string_view>

#include "engine/transfer.h"

namespace quorbit {

// Shows the action and copies the file. Returns the error without reporting it. A small file is
// copied already, so if its copy is stale, the action is not shown.
[[nodiscard]] Status ShowAndCopy(const FileTransfer& transfer, std::string_view action);

// True if a copy failed because of a change of the destination: of the item, or because its folder
// was removed. The destination is then as it was.
[[nodiscard]] bool IsStale(const FileTransfer& transfer, const Status& copied);

// Reports a failed copy. An item that the destination cannot hold is only a warning: no later run
// could copy it, and links and pipes are common in home folders.
void ReportCopyError(const FileTransfer& transfer, RunOperation operation, const Error& error);

}  // namespace quorbit
