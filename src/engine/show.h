// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The one door through which the engine reaches the screen and the log. Worker thread only.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/run_context.h"

namespace quorbit {

// Shows what is being done and logs it, after an empty line.
void ShowAction(CRunContext& ctx, std::string_view text);
void ShowCurrentFile(CRunContext& ctx, std::string_view path, bool bLog, bool bShow);
void ShowDestFile(CRunContext& ctx, std::string_view path, bool bLog, bool bShow);
void ShowFileSize(CRunContext& ctx, std::uint64_t bytes, bool bLog, bool bShow);

// "4 KB": from the low 32 bits of the size in bytes.
[[nodiscard]] std::string FileSizeText(std::uint64_t bytes);

// Adds to a counter of the context and shows it.
void Raise(CRunContext& ctx, std::int32_t CRunContext::*counter, RunCounter which);
// A unit is done: takes it off the files left, unless the count was given up.
void TakeOffUnit(CRunContext& ctx);

}  // namespace quorbit
