// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/file_dialog.h"

#include <utility>

#include "dialogs/file_entry_window.h"
#include "document/qrb_doc.h"

namespace quorbit {

FileEntryForm CFileDlg::MakeForm(const CQRBDoc& doc, bool bFiles, bool bDelete)
{
    const auto* drives = dynamic_cast<DrivePane*>(doc.GetView(ViewKind::DriveTree));
    const auto* files = dynamic_cast<FilePane*>(doc.GetView(ViewKind::FileList));
    std::string source;
    std::vector<std::string> names;
    if (drives != nullptr) {
        source = drives->CurrentPath();
        if (std::string dest = drives->GetDestPath(); !dest.empty()) {
            m_strDest = std::move(dest);
        }
        if (!bDelete) {
            names = NamesOfDropText(drives->DropText());
        }
    }
    if (bDelete && files != nullptr) {
        names = files->GetSelectedNames();
    }
    return NewFileEntryForm(bFiles, bDelete, std::move(source), m_strDest, std::move(names));
}

bool CFileDlg::DoModal(CQRBDoc& doc, bool bFiles, const CDirCopy* entry, bool bDelete,
                       EntryValues& values)
{
    FileEntryForm form = MakeForm(doc, bFiles, bDelete);
    if (entry != nullptr) {
        form = EditFileEntryForm(bFiles, bDelete, *entry);
    }
    FileEntryWindow window(m_services, std::move(form));
    const bool ok = window.exec() == QDialog::Accepted;
    if (ok) {
        m_strDest = window.Form().dest;
        values = ValuesOf(window.Form());
    } else if (window.PickedDest()) {
        m_strDest = *window.PickedDest();
    }
    return ok;
}

}  // namespace quorbit
