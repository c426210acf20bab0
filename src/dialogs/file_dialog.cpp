// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/file_dialog.h"

#include <utility>

#include "dialogs/file_entry_window.h"

namespace quorbit {

FileEntryForm CFileDlg::MakeForm(const PaneAnswers& panes, bool bFiles, bool bDelete)
{
    std::string source;
    std::vector<std::string> names;
    if (panes.tree) {
        source = panes.tree->currentPath;
        if (!panes.tree->destPath.empty()) {
            m_strDest = panes.tree->destPath;
        }
        if (!bDelete) {
            names = panes.tree->dropNames.empty() ? NamesOfDropText(panes.tree->dropText)
                                                  : panes.tree->dropNames;
        }
    }
    if (bDelete && panes.list) {
        names = panes.list->selectedNames;
    }
    return NewFileEntryForm(bFiles, bDelete, std::move(source), m_strDest, std::move(names));
}

bool CFileDlg::DoModal(const PaneAnswers& panes, bool bFiles, const CDirCopy* entry, bool bDelete,
                       EntryValues& values)
{
    FileEntryForm form = MakeForm(panes, bFiles, bDelete);
    if (entry != nullptr) {
        form = EditFileEntryForm(bFiles, bDelete, *entry);
    }
    FileEntryWindow window(m_services, std::move(form));
    const bool ok = window.exec() == QDialog::Accepted;
    if (ok) {
        m_strDest = bDelete ? m_strDest : window.Form().dest;
        values = ValuesOf(window.Form());
    } else if (window.PickedDest()) {
        m_strDest = *window.PickedDest();
    }
    return ok;
}

}  // namespace quorbit
