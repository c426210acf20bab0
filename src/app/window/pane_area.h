// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The contents of the main window: drive tree and file list side by side above the entry list, with
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
    // Creates the panes with the sizes stored in the profile and adds them to the document as
    // views.
    explicit PaneArea(const PaneServices& services, QWidget* parent = nullptr);
    // Removes the views from the document.
    ~PaneArea() override;

    // Stores the layout of the panes in the profile.
    void SaveLayout() const;
    // Moves the focus to the next or previous pane, cyclically; to the first one if no pane has the
    // focus.
    void MoveFocus(bool forward);

private:
    void SetSizes(const Profile& profile);

    CQRBDoc& m_doc;
    QSplitter* m_pTopSplitter;  // owned by this widget, like the panes
    CFileView* m_pFileView;
    CDriveView* m_pDriveView;
    CQRBEditView* m_pEditView;
};

}  // namespace quorbit
