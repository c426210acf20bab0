// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/file_type_dialog.h"

#include "dialogs/file_type_window.h"

namespace quorbit {

void CFileTypeDlg::ReadPanes(const PaneAnswers& panes, bool bDelete)
{
    if (!panes.tree) {
        return;
    }
    if (bDelete) {
        if (!panes.tree->deletePath.empty()) {
            m_strSource = panes.tree->deletePath;
        }
        return;
    }
    m_strSource = panes.tree->sourcePath.empty() ? panes.tree->currentPath : panes.tree->sourcePath;
    if (!panes.tree->destPath.empty()) {
        m_strDest = panes.tree->destPath;
    }
}

bool CFileTypeDlg::DoModal(const PaneAnswers& panes, const CDirCopy* entry, bool bDelete,
                           EntryValues& values)
{
    ReadPanes(panes, bDelete);
    FileTypeWindow window(m_services, entry != nullptr
                                          ? EditFileTypeForm(bDelete, *entry)
                                          : NewFileTypeForm(bDelete, m_strSource, m_strDest));
    const bool ok = window.exec() == QDialog::Accepted;
    if (ok) {
        m_strSource = window.Form().source;
        // A delete dialog does not show its destination, which is below the remembered one.
        m_strDest = bDelete ? m_strDest : window.Form().dest;
        values = ValuesOf(window.Form());
    } else {
        m_strSource = window.PickedSource().value_or(m_strSource);
        m_strDest = window.PickedDest().value_or(m_strDest);
    }
    return ok;
}

}  // namespace quorbit
