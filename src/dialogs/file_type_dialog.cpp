// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/file_type_dialog.h"

#include <utility>

#include "dialogs/file_type_window.h"
#include "document/qrb_doc.h"

namespace quorbit {

void CFileTypeDlg::ReadPanes(const CQRBDoc& doc, bool bDelete)
{
    const auto* drives = dynamic_cast<DrivePane*>(doc.GetView(ViewKind::DriveTree));
    if (drives == nullptr) {
        return;
    }
    if (bDelete) {
        if (std::string path = drives->GetDeletePath(); !path.empty()) {
            m_strSource = std::move(path);
        }
        return;
    }
    m_strSource = drives->GetSourcePath();
    if (m_strSource.empty()) {
        m_strSource = drives->CurrentPath();
    }
    if (std::string dest = drives->GetDestPath(); !dest.empty()) {
        m_strDest = std::move(dest);
    }
}

bool CFileTypeDlg::DoModal(CQRBDoc& doc, const CDirCopy* entry, bool bDelete, EntryValues& values)
{
    ReadPanes(doc, bDelete);
    FileTypeWindow window(m_services, entry != nullptr
                                          ? EditFileTypeForm(bDelete, *entry)
                                          : NewFileTypeForm(bDelete, m_strSource, m_strDest));
    const bool ok = window.exec() == QDialog::Accepted;
    if (ok) {
        m_strSource = window.Form().source;
        m_strDest = window.Form().dest;
        values = ValuesOf(window.Form());
    } else {
        m_strSource = window.PickedSource().value_or(m_strSource);
        m_strDest = window.PickedDest().value_or(m_strDest);
    }
    return ok;
}

}  // namespace quorbit
