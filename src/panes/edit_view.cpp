// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/edit_view.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <algorithm>
#include <iterator>
#include <utility>

namespace quorbit {

CQRBEditView::CQRBEditView(const PaneServices& services, QWidget* parent)
    : CListViewEx(services.setActive, QStringLiteral("Entries"), parent),
      m_services(services),
      m_model(services.marks.deletes, services.marks.others)
{
    SetModel(m_model);
    SetKeepsSelection(false);
    Report().header()->setSectionsClickable(false);
    ReadColumnWidths(*m_services.pProfile, Setting::EditHeader0);
}

CQRBEditView::~CQRBEditView() = default;

void CQRBEditView::FillEntries()
{
    std::vector<EntryRow> rows;
    rows.reserve(m_services.pDoc->m_arrEntries.size());
    std::transform(m_services.pDoc->m_arrEntries.begin(), m_services.pDoc->m_arrEntries.end(),
                   std::back_inserter(rows), MakeEntryRow);
    const int before = m_model.rowCount();
    const int after = static_cast<int>(rows.size());
    const int same = m_model.SameRows(rows);
    const int current = CurrentRow();
    const int top = Report().TopRow().row();
    m_model.SetRows(std::move(rows));
    if (after == before + 1 && same == before) {
        SetCurrentRow(before);
    } else if (after == before && same >= before - 1 && after > 0) {
        Report().PutOnTop(m_model.index(std::max(top, 0), 0));
        SetCurrentRow(std::max(current, 0));
    } else {
        Report().scrollToTop();
    }
}

void CQRBEditView::OnUpdate(CView*, int nHint, const HintObject*)
{
    if (nHint == HINT_REFRESH_ENTRIES) {
        FillEntries();
    } else if (nHint == HINT_DELETE && HasFocus()) {
        DeleteSelected();
    }
}

void CQRBEditView::DeleteSelected()
{
    std::vector<std::uint32_t> ids;
    for (const int row : SelectedRows()) {
        ids.push_back(m_model.RowAt(row).nId);
    }
    const PromptAnswer answer =
        m_services.pPrompts->Ask("Are you sure you want to delete this entry?", "Warning.",
                                 PromptIcon::Exclamation, PromptButtons::YesNo);
    if (answer != PromptAnswer::Yes) {
        return;
    }
    for (const std::uint32_t nId : ids) {
        m_services.pDoc->DeleteEntry(nId);
        m_model.Remove(nId);
    }
}

bool CQRBEditView::OnCommand(int nId)
{
    CommandState state;
    if (!OnUpdateCommand(nId, state)) {
        return false;
    }
    if (state.enabled) {
        m_services.pDoc->EditEntry(m_model.RowAt(SelectedRows().front()).nId);
    }
    return true;
}

bool CQRBEditView::OnUpdateCommand(int nId, CommandState& state)
{
    if (nId != CMD_EDIT_ENTRY || !HasFocus()) {
        return false;
    }
    state.enabled = SelectedRows().size() == 1;
    return true;
}

void CQRBEditView::OnRowOpened(int row)
{
    m_services.pDoc->EditEntry(m_model.RowAt(row).nId);
}

void CQRBEditView::OnContextMenu(int, const QPoint& position, Qt::KeyboardModifiers)
{
    const auto selected = SelectedRows().size();
    QMenu& menu = NewPopupMenu();
    const auto add = [&](const char* text, int nId, bool enabled) {
        QAction* action =
            menu.addAction(QLatin1String(text), this, [this, nId] { m_services.postCommand(nId); });
        action->setData(nId);  // the menu looks up the icon by this command
        action->setEnabled(enabled);
    };
    add("&Edit", CMD_EDIT_ENTRY, selected == 1);
    add("&Delete", CMD_DELETE, selected > 0);
    add("&Add WSH or Dos Batch File", CMD_NEW_SCRIPT_ENTRY, true);
    menu.popup(position);
}

void CQRBEditView::SaveLayout() const
{
    if (m_services.isFrameMinimised && m_services.isFrameMinimised()) {
        return;
    }
    std::vector<std::pair<Setting, std::int32_t>> values = ColumnWidths(Setting::EditHeader0);
    values.emplace_back(Setting::EditViewSizeX, width());
    values.emplace_back(Setting::EditViewSizeY, height());
    m_services.pProfile->WriteProfileInts(values);
}

}  // namespace quorbit
