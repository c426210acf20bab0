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

// --- Actions and files

// Shows an action and logs it after an empty line.
void ShowAction(CRunContext& ctx, std::string_view text);
// Shows the path of a script and clears what the surface shows about the last file.
void ShowScript(CRunContext& ctx, std::string_view path);
// These log the value if bLog is set, and show it if bShow is set.
void ShowCurrentFile(CRunContext& ctx, std::string_view path, bool bLog, bool bShow);
void ShowDestFile(CRunContext& ctx, std::string_view path, bool bLog, bool bShow);
void ShowFileSize(CRunContext& ctx, std::uint64_t bytes, bool bLog, bool bShow);
// Returns a text such as "4 KB", computed from the low 32 bits of the size. See docs/run-log.md for
// the rounding.
[[nodiscard]] std::string FileSizeText(std::uint64_t bytes);

// --- Progress

// Starts a phase. After Closed the context may no longer exist.
void EnterPhase(CRunContext& ctx, RunPhase phase);
// Shows the total: a number, or a word if it is unknown.
void ShowTotal(CRunContext& ctx, std::string_view total);
// Reports the bytes copied since the last call.
void ShowBytes(CRunContext& ctx, std::uint64_t bytes);
// Increments a counter of the context and shows it.
void Raise(CRunContext& ctx, std::int32_t CRunContext::*counter, RunCounter which);
// Adds one unit to the files left. Count pass only.
void AddUnit(CRunContext& ctx);
// Returns true if the user gave up counting, and sets the files left to 0.
[[nodiscard]] bool CountGivenUp(CRunContext& ctx);
// Removes a finished unit from the files left, unless the user gave up counting.
void TakeOffUnit(CRunContext& ctx);

// --- Errors and questions

// Logs, counts and shows an error. Writes the log line to the file immediately. `text` has no line
// end; a line end in logText is logged in addition to that of the line.
void ReportError(CRunContext& ctx, std::string_view logText, std::string_view text);
// Asks a Yes/No question and returns true for Yes. Flushes the log before it blocks.
[[nodiscard]] bool Ask(CRunContext& ctx, std::string_view text, std::string_view caption);
// Shows a message box with OK. An empty caption stands for the name of the application.
void Tell(CRunContext& ctx, std::string_view text, std::string_view caption, PromptIcon icon);

// --- Log

// Starts the first line of a log; the path of the document follows.
inline constexpr const char* kDocumentLabel = "Quorbit   File name: ";

// Logs one line. Shows a message if writing fails; the run continues.
void WriteLogLine(CRunContext& ctx, std::string_view line);
// Log the first and the last lines.
void WriteLogHead(CRunContext& ctx);
void WriteLogFooter(CRunContext& ctx, std::string_view elapsed, std::string_view total);
// Logs why the process pass was stopped.
void WriteLogStop(CRunContext& ctx);
// Writes all lines to the file. Call it before an operation that may take long.
void FlushLog(CRunContext& ctx);
// Writes lines that are due. Call it during work that logs nothing for long.
void FlushLogIfDue(CRunContext& ctx);
// Closes the log. Later lines are discarded.
void CloseLog(CRunContext& ctx);

}  // namespace quorbit
