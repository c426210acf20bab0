// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The text log of one run, as a stream of lines. What the lines say stands in docs/run-log.md.

#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "platform/coarse_clock.h"
#include "platform/log_output.h"

namespace quorbit {

struct CRunContext;

// Gathers lines and writes them when 100 ms have passed since the first of them, when 64 KB are
// full, and when told to. A write for every line would cost a run over small files a tenth of its
// speed. Worker thread only.
class RunLog {
public:
    using Now = std::chrono::steady_clock::time_point (*)();
    explicit RunLog(std::unique_ptr<LogOutput> output, Now now = CoarseNow);

    // Adds the text and CR LF. False if gathered lines were due and could not be written; they are
    // lost then, and the log goes on with what follows.
    [[nodiscard]] bool Add(std::string_view text) { return Add(text, {}); }
    // The same for a label and a path, which is made printable.
    [[nodiscard]] bool Add(std::string_view label, std::string_view path);
    // Writes what is gathered if its 100 ms are over. False as for Add.
    [[nodiscard]] bool FlushIfDue();
    // Writes what is gathered. False as for Add.
    [[nodiscard]] bool Flush();
    // Writes what is gathered and closes the file. False if something of the log may be lost.
    [[nodiscard]] bool Close();

private:
    std::unique_ptr<LogOutput> m_output;
    Now m_now;
    std::string m_gathered;
    std::chrono::steady_clock::time_point m_oldest;
};

// One line into the log of the run. A failure is told to whoever watches; the run goes on.
void WriteLogLine(CRunContext& ctx, std::string_view line);
// The same for a label and a path, which is made printable.
void WriteLogPath(CRunContext& ctx, std::string_view label, std::string_view path);
// Brings all lines to the file: for an error, before a prompt and before anything that may take
// long.
void FlushLog(CRunContext& ctx);
// For work that may go on for long without a line.
void FlushLogIfDue(CRunContext& ctx);

// Closes the log for good.
void CloseLog(CRunContext& ctx);

// The lines at the beginning and at the end of a log.
void WriteLogHead(CRunContext& ctx);
void WriteLogFooter(CRunContext& ctx, std::string_view elapsed, std::string_view total);

// Where the log of a document lies: the name of the document with ".log" in the folder of the
// installation. A document whose name has no dot, or that has no name, has the log ".log".
[[nodiscard]] std::string MakeLogPath(std::string_view installPath, std::string_view documentPath);

}  // namespace quorbit
