// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Buffers the lines of a log file. run_report.h writes the lines.

#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "platform/coarse_clock.h"
#include "platform/log_output.h"

namespace quorbit {

// Writes the buffer 100 ms after its first line, at 64 KiB, and on request. One write per line
// would slow down a run over small files by a tenth. The age is checked only in calls. Worker
// thread only.
class RunLog {
public:
    using Now = std::chrono::steady_clock::time_point (*)();
    explicit RunLog(std::unique_ptr<LogOutput> output, Now now = CoarseNow);

    // Adds the text and CR LF. Returns false if buffered lines could not be written. Those lines
    // are lost; later lines are still written.
    [[nodiscard]] bool Add(std::string_view text) { return Add(text, {}); }
    // The same for a label and a path. The path is made printable (platform/path_text.h).
    [[nodiscard]] bool Add(std::string_view label, std::string_view path);
    // Writes the buffer if its first line is 100 ms old. Returns false like Add.
    [[nodiscard]] bool FlushIfDue();
    // Writes the buffer. Returns false like Add.
    [[nodiscard]] bool Flush();
    // Writes the buffer and closes the file. Returns false if lines may be lost.
    [[nodiscard]] bool Close();

private:
    std::unique_ptr<LogOutput> m_output;
    Now m_now;
    std::string m_gathered;
    std::chrono::steady_clock::time_point m_oldest;
};

}  // namespace quorbit
