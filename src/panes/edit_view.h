// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The pane that shows the entries of the document, one row each, in document order. It holds copies
// for display only; rows are matched to entries by their numbers. User interface thread only.

#pragma once

#include <cstdint>
#include <vector>

#include "panes/entry_list_model.h"
#include "panes/list_view_ex.h"
#include "panes/pane_services.h"

namespace quorbit {

class CQRBEditView : public CListViewEx {
public:
    // Reads the column widths of the profile. Shows no rows until it is told to refresh. Does not
    // add itself to the document.
    explicit CQRBEditView(const PaneServices& services, QWidget* parent = nullptr);
    ~CQRBEditView() override;

    // Rows for all entries of the document, in the place of those that are there. Nothing is
    // selected then; an entry that has been added is brought into sight, and otherwise the list
    // stays where it is as long as it is still the same one.
    virtual void FillEntries();
    // Writes size and column widths to the profile, unless the frame is minimised.
    void SaveLayout() const;
    [[nodiscard]] const EntryListModel& Model() const { return m_model; }

    [[nodiscard]] ViewKind Kind() const override { return ViewKind::EntryList; }
    void OnUpdate(CView* sender, int nHint, const HintObject* object) override;
    // Takes the Edit command while it has the focus.
    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

protected:
    void OnRowDoubleClicked(int row) override;
    void OnContextMenu(int row, const QPoint& position, Qt::KeyboardModifiers modifiers) override;

private:
    void DeleteSelected();

    PaneServices m_services;
    EntryListModel m_model;
};

}  // namespace quorbit
