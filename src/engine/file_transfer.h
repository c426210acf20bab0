// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Copies, replaces or skips one selected file. Each operation shows and logs its action and raises
// one counter or none. Worker thread only.

#pragma once

#include "engine/transfer.h"

namespace quorbit {

// Copies, syncs, backs up or skips one file, depending on the rules. Uses what was made ready in
// `file`; if the destination has changed since, decides anew. Errors are reported.
void TransferFile(CRunContext& ctx, const SourceFolder& source, TargetFolder& dest,
                  PendingFile& file, const TransferRules& rules);

}  // namespace quorbit
