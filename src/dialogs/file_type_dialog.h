// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialog of file type entries, which select files by masks. User interface thread only.

#pragma once

#include <string>
#include <utility>

#include "dialogs/dialog_services.h"
#include "dialogs/file_type_form.h"
#include "document/entry_dialogs.h"

namespace quorbit {

// Lives as long as its document. Remembers both folders between uses; the destination of a delete
// entry, which no run uses, is not remembered.
class CFileTypeDlg final : public FileTypeDialog {
public:
    explicit CFileTypeDlg(DialogServices services) : m_services(std::move(services)) {}

    bool DoModal(const PaneAnswers& panes, const CDirCopy* entry, bool bDelete,
                 EntryValues& values) override;

private:
    void ReadPanes(const PaneAnswers& panes, bool bDelete);

    DialogServices m_services;
    std::string m_strDest;
    std::string m_strSource;
};

}  // namespace quorbit
