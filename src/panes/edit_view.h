// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The entry list: shows the entries of the document, one row each, in document order. Rows are
// copies for display, matched to entries by their numbers. User interface thread only.

#pragma once

#include <cstdint>
#include <vector>

#include "panes/entry_list_model.h"
#include "panes/list_view_ex.h"
#include "panes/pane_services.h"

namespace quorbit {

class CQRBEditView : public CListViewEx {
public:
    // Reads the column widths from the profile. The list is empty until the first
    // HINT_REFRESH_ENTRIES. Does not add the view to the document.
    explicit CQRBEditView(const PaneServices& services, QWidget* parent = nullptr);
    ~CQRBEditView() override;

    // Replaces the rows with those of the document and clears the selection. Scrolls to a newly
    // added entry, keeps the scroll position if at most one row has changed, and otherwise scrolls
    // to the top.
    virtual void FillEntries();
    // Saves the size and the column widths to the profile, unless the frame is minimised.
    void SaveLayout() const;
    [[nodiscard]] const EntryListModel& Model() const { return m_model; }

    [[nodiscard]] ViewKind Kind() const override { return ViewKind::EntryList; }
    void OnUpdate(CView* sender, int nHint, const HintObject* object) override;
    // Handles the Edit command while the list has the focus.
    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

protected:
    void OnRowOpened(int row) override;
    void OnContextMenu(int row, const QPoint& position, Qt::KeyboardModifiers modifiers) override;

private:
    void DeleteSelected();

    PaneServices m_services;
    EntryListModel m_model;
};

}  // namespace quorbit
