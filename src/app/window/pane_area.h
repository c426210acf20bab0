// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The inside of the main window: tree and list of files beside each other, the entries below, with
// splitters between them. User interface thread only.

#pragma once

#include <QSplitter>

#include "panes/drive_view.h"
#include "panes/edit_view.h"
#include "panes/file_view.h"
#include "panes/pane_services.h"

namespace quorbit {

class PaneArea : public QSplitter {
public:
    // Makes the panes with the sizes of the profile and adds them to the document as its views.
    explicit PaneArea(const PaneServices& services, QWidget* parent = nullptr);
    // Takes them off the document.
    ~PaneArea() override;

    // Writes what the panes remember to the profile.
    void SaveLayout() const;
    // Moves the focus to the pane behind or before the one that has it.
    void MoveFocus(bool forward);

private:
    void SetSizes(const Profile& profile);

    CQRBDoc& m_doc;
    QSplitter* m_pTopSplitter;  // owned by this widget, as the next ones
    CFileView* m_pFileView;
    CDriveView* m_pDriveView;
    CQRBEditView* m_pEditView;
};

}  // namespace quorbit
