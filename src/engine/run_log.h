// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The log file of one run, as a stream of lines. run_report.h writes the lines.

#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "platform/coarse_clock.h"
#include "platform/log_output.h"

namespace quorbit {

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

}  // namespace quorbit
