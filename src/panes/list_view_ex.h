// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Base class of the entry list and the file list: a report view and, for derived classes that use
// it, an icon view, with one model and one selection. Derived classes handle mouse, menu and focus
// in virtual functions. Row numbers are rows of the model. User interface thread only.

#pragma once

#include <QAbstractItemModel>
#include <QItemSelectionModel>
#include <QListView>
#include <QPersistentModelIndex>
#include <QStackedWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "batch/profile.h"
#include "document/view.h"
#include "panes/drag_gesture.h"
#include "panes/focus_frame.h"
#include "panes/grid_delegate.h"
#include "panes/report_view.h"

class QLabel;
class QMenu;

namespace quorbit {

// Values as stored in the profile (Setting::ViewStyle).
enum class ListStyle : int {
    Icon = 0,
    Report = 1,
    SmallIcon = 2,
    List = 3,
};

class CListViewEx : public QStackedWidget, public CView {
public:
    ~CListViewEx() override;

    // Selects whole rows or only the first cell in the report. Returns true if this was a change.
    bool SetFullRow(bool bFull);
    [[nodiscard]] bool GetFullRow() const { return m_report->FullRow(); }
    [[nodiscard]] ListStyle Style() const { return m_style; }
    void SetStyle(ListStyle style);

    // Returns all selected rows in row order.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    // The row with the keyboard cursor, or -1 if there is none.
    [[nodiscard]] int CurrentRow() const;
    // Returns the row at a position in the viewport of ActiveView(), or -1 if there is none.
    [[nodiscard]] int RowAt(const QPoint& position) const;

    // The view of the current style.
    [[nodiscard]] QAbstractItemView& ActiveView() const;
    [[nodiscard]] ReportView& Report() const { return *m_report; }
    // The last context menu, or null. Owned by the list.
    [[nodiscard]] QMenu* PopupMenu() const { return m_pPopupMenu.get(); }
    [[nodiscard]] bool HasFocus() const { return m_bFocus; }

protected:
    // setActive is called with this object when the list gets the focus; may be empty. `name` is
    // the accessible name for screen readers.
    CListViewEx(std::function<void(CView*)> setActive, const QString& name, QWidget* parent);

    // Must be called once. `model` is not owned and must outlive this object.
    void SetModel(QAbstractItemModel& model);
    // Reads the column widths (pixels) from the settings starting at `first`. The default widths
    // assume digits 5 pixels wide: they are scaled to the font and are at least as wide as the
    // title.
    void ReadColumnWidths(const Profile& profile, Setting first);
    // Returns the current widths (pixels), with the settings to store them in, without those that
    // still are the default.
    [[nodiscard]] std::vector<std::pair<Setting, std::int32_t>> ColumnWidths(Setting first) const;
    // Moves the keyboard cursor to a row and scrolls to it, without selecting it.
    void SetCurrentRow(int row);
    // Selects only this row, with the keyboard cursor, and scrolls to it.
    void SelectRow(int row);
    void SetKeepsSelection(bool keeps) { m_report->SetKeepsSelection(keeps); }
    // Shows a text in place of rows; an empty text hides it.
    void SetNotice(const QString& text);
    // Replaces the last context menu with a new, empty one.
    QMenu& NewPopupMenu();

    // Called when the left button is pressed on a row, before the view changes the selection.
    // Return true to keep the view from handling the press.
    virtual bool OnRowPressed(int row, Qt::KeyboardModifiers modifiers);
    // Called on a double click, and on Enter if exactly one row is selected.
    virtual void OnRowOpened(int row) = 0;
    // Called on Backspace and Alt+Up.
    virtual void OnParentKey() {}
    // `row` is -1 outside the rows. `position` is in screen coordinates.
    virtual void OnContextMenu(int row, const QPoint& position,
                               Qt::KeyboardModifiers modifiers) = 0;
    // Called when a drag of a row with the left or the right button starts. The view itself starts
    // no drags.
    virtual void OnBeginDrag(int row, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void SetUp(QAbstractItemView& view, const QString& name);
    void SetUpIcons();
    void ArrangeIcons();
    void OnFocusChanged(const QWidget* now);
    void PlaceNotice();
    void OnMenuKey();
    bool OnKeyPress(const QKeyEvent& event);
    bool OnToolTip(const QHelpEvent& event);
    bool OnViewportEvent(QEvent& event);
    bool OnMousePress(const QMouseEvent& event);
    bool OnMouseMove(const QMouseEvent& event);
    bool OnDoubleClick(const QMouseEvent& event);
    bool OnMouseRelease(const QMouseEvent& event);

    std::function<void(CView*)> m_setActive;
    ReportView* m_report;  // owned by this widget, like the next three
    QListView* m_icons;
    QLabel* m_notice;
    FocusFrame* m_focusFrame;
    GridDelegate m_gridDelegate;
    QAbstractItemModel* m_pModel = nullptr;
    QItemSelectionModel* m_selection = nullptr;  // of the report, shared with the icon view
    std::vector<int> m_standardWidths;           // of columns; 0 if another width is stored
    std::unique_ptr<QMenu> m_pPopupMenu;
    ListStyle m_style = ListStyle::Report;
    bool m_bFocus = false;
    QMetaObject::Connection m_focusConnection;

    DragGesture m_gesture;
    QPersistentModelIndex m_pressedIndex;  // position of the last press
    bool m_bTakenOver = false;             // the view gets no mouse events until the release
};

}  // namespace quorbit
