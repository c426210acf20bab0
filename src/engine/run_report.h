// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reports a run to its surface and its log. Nothing else in the engine writes to either.
// docs/run-log.md describes the lines. Worker thread only.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/run_context.h"

namespace quorbit {

// --- what is being done

// Shows what is being done and logs it, after an empty line.
void ShowAction(CRunContext& ctx, std::string_view text);
void ShowCurrentFile(CRunContext& ctx, std::string_view path, bool bLog, bool bShow);
void ShowDestFile(CRunContext& ctx, std::string_view path, bool bLog, bool bShow);
void ShowFileSize(CRunContext& ctx, std::uint64_t bytes, bool bLog, bool bShow);
// "4 KB": from the low 32 bits of the size in bytes.
[[nodiscard]] std::string FileSizeText(std::uint64_t bytes);

// --- how far it has come

// Begins a phase. Closed is the last call for a context.
void EnterPhase(CRunContext& ctx, RunPhase phase);
// The total: a number, or a word where there is none.
void ShowTotal(CRunContext& ctx, std::string_view total);
// Bytes copied since the last call.
void ShowBytes(CRunContext& ctx, std::uint64_t bytes);
// Adds one to a counter of the context and shows it.
void Raise(CRunContext& ctx, std::int32_t CRunContext::*counter, RunCounter which);
// The count pass has found a unit.
void AddUnit(CRunContext& ctx);
// True if the count was given up: no figure stands then.
[[nodiscard]] bool CountGivenUp(CRunContext& ctx);
// A unit is done: takes it off the files left, unless the count was given up.
void TakeOffUnit(CRunContext& ctx);

// --- errors and questions

// Logs an error, counts it and shows it. The line of the log is brought to the file at once.
// text ends without a line end, logText as its line is to end before the line end of every line.
void ReportError(CRunContext& ctx, std::string_view logText, std::string_view text);
// Asks Yes or No; true for Yes. All lines before it are in the file while it waits.
[[nodiscard]] bool Ask(CRunContext& ctx, std::string_view text, std::string_view caption);
// A box with OK. An empty caption means the application's own.
void Tell(CRunContext& ctx, std::string_view text, std::string_view caption, PromptIcon icon);

// --- the log

// One line into the log of the run. A failure is told to the surface; the run goes on.
void WriteLogLine(CRunContext& ctx, std::string_view line);
// The lines at the beginning and at the end of a log.
void WriteLogHead(CRunContext& ctx);
void WriteLogFooter(CRunContext& ctx, std::string_view elapsed, std::string_view total);
// The line that says why the process pass was cut short.
void WriteLogStop(CRunContext& ctx);
// Brings all lines to the file: before anything that may take long.
void FlushLog(CRunContext& ctx);
// For work that may go on for long without a line.
void FlushLogIfDue(CRunContext& ctx);
// Closes the log for good.
void CloseLog(CRunContext& ctx);

}  // namespace quorbit
