// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialog of file entries, which name individual files or folders. User interface thread only.

#pragma once

#include <string>
#include <utility>

#include "dialogs/dialog_services.h"
#include "dialogs/file_entry_form.h"
#include "document/entry_dialogs.h"

namespace quorbit {

// Lives as long as its document. Remembers the destination between uses, except that of a delete
// entry.
class CFileDlg final : public FileDialog {
public:
    explicit CFileDlg(DialogServices services) : m_services(std::move(services)) {}

    bool DoModal(const PaneAnswers& panes, bool bFiles, const CDirCopy* entry, bool bDelete,
                 EntryValues& values) override;

private:
    [[nodiscard]] FileEntryForm MakeForm(const PaneAnswers& panes, bool bFiles, bool bDelete);

    DialogServices m_services;
    std::string m_strDest;
};

}  // namespace quorbit
