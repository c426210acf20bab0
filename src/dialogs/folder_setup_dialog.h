// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialog of the masks for the files in the folders of a folder entry. User interface thread
// only.

#pragma once

#include <QCheckBox>
#include <QDialog>
#include <string>
#include <vector>

#include "dialogs/dialog_services.h"
#include "dialogs/selection_lists.h"

namespace quorbit {

class CFolderSetupDlg final : public QDialog {
public:
    // Loads the masks to choose from. The objects in `services` must outlive the dialog.
    CFolderSetupDlg(const DialogServices& services, QWidget* parent);

    // OK replaces folderTypes, Cancel leaves it unchanged.
    void DoModal(std::vector<std::string>& folderTypes);

    void accept() override;

private:
    void LayOut();

    QCheckBox* m_allTypes;
    SelectionLists* m_lists;
};

}  // namespace quorbit
