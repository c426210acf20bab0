// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/run_log.h"

#include <utility>

#include "platform/path_text.h"

namespace quorbit {
namespace {

constexpr std::size_t kFull = 64 * 1024;  // bytes
constexpr auto kOldEnough = std::chrono::milliseconds(100);

}  // namespace

RunLog::RunLog(std::unique_ptr<LogOutput> output, Now now) : m_output(std::move(output)), m_now(now)
{
}

bool RunLog::Add(std::string_view label, std::string_view path)
{
    if (m_gathered.empty()) {
        m_oldest = m_now();
    }
    m_gathered.append(label);
    AppendPrintable(m_gathered, path);
    m_gathered.append("\r\n");
    return m_gathered.size() < kFull ? FlushIfDue() : Flush();
}

bool RunLog::FlushIfDue()
{
    if (m_gathered.empty() || m_now() - m_oldest < kOldEnough) {
        return true;
    }
    return Flush();
}

bool RunLog::Flush()
{
    if (m_gathered.empty()) {
        return true;
    }
    const Status written = m_output->Write(m_gathered);
    // Discard the lines even after an error. Otherwise a full disk would make the buffer grow, and
    // repeat lines that were partly written.
    m_gathered.clear();
    return written.Ok();
}

bool RunLog::Close()
{
    const bool flushed = Flush();
    return m_output->Close().Ok() && flushed;
}

}  // namespace quorbit
