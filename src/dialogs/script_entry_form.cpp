// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/script_entry_form.h"

namespace quorbit {

ScriptEntryForm OpenScriptEntryForm(const CDirCopy* entry)
{
    ScriptEntryForm form;
    if (entry == nullptr) {
        return form;
    }
    form.file = entry->m_strSource;
    if ((entry->m_dwFlags & DCF_SCRIPT_WSH) != 0) {
        form.type = ScriptType::ShellHost;
    } else if ((entry->m_dwFlags & DCF_SCRIPT_DOS) != 0) {
        form.type = ScriptType::DosBatch;
    }
    return form;
}

EntryValues ValuesOf(const ScriptEntryForm& form)
{
    EntryValues values;
    values.m_strSource = form.file;
    switch (form.type) {
        case ScriptType::None:
            break;
        case ScriptType::ShellHost:
            values.m_dwFlags = DCF_SCRIPT_WSH;
            break;
        case ScriptType::DosBatch:
            values.m_dwFlags = DCF_SCRIPT_DOS;
            break;
    }
    return values;
}

}  // namespace quorbit
