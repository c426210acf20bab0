// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/run_snapshot.h"

#include <utility>

namespace quorbit {

void RunSnapshot::SetText(RunText which, std::string_view text)
{
    const std::lock_guard lock(m_mutex);
    Text& kept = m_texts[static_cast<std::size_t>(which)];
    kept.text.assign(text);
    kept.bChanged = true;
    m_bChanged = true;
}

bool RunSnapshot::Take(RunValues& values)
{
    const std::lock_guard lock(m_mutex);
    if (!std::exchange(m_bChanged, false)) {
        return false;
    }
    values.figures = m_figures;
    for (std::size_t i = 0; i < m_texts.size(); ++i) {
        if (std::exchange(m_texts[i].bChanged, false)) {
            values.texts[i] = m_texts[i].text;
        }
    }
    return true;
}

}  // namespace quorbit
