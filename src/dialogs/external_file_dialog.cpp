// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/external_file_dialog.h"

#include "dialogs/script_entry_window.h"

namespace quorbit {

bool CExternalFile::DoModal(const CDirCopy* entry, EntryValues& values)
{
    ScriptEntryWindow window(m_services, OpenScriptEntryForm(entry));
    if (window.exec() != QDialog::Accepted) {
        return false;
    }
    values = ValuesOf(window.Form());
    return true;
}

}  // namespace quorbit
