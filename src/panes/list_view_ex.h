// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The base of the two lists: a report whose whole rows are selected and highlighted, or, if the
// derived class wants it, icons; one selection for all styles. User interface thread only.
//
// A derived class is told of mouse, menu and focus by the virtual functions. Rows that something
// hangs on are rows of the model.

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
#include "panes/grid_delegate.h"
#include "panes/report_view.h"

class QLabel;
class QMenu;

namespace quorbit {

// The values are those of the stored setting.
enum class ListStyle : int {
    Icon = 0,
    Report = 1,
    SmallIcon = 2,
    List = 3,
};

class CListViewEx : public QStackedWidget, public CView {
public:
    ~CListViewEx() override;

    // Whole rows in the report, or the first cell alone. Whether that changed anything.
    bool SetFullRow(bool bFull);
    [[nodiscard]] bool GetFullRow() const { return m_report->FullRow(); }
    [[nodiscard]] ListStyle Style() const { return m_style; }
    void SetStyle(ListStyle style);

    // In row order; however many.
    [[nodiscard]] std::vector<int> SelectedRows() const;
    // The row that the list's keys start from; -1 if there is none.
    [[nodiscard]] int CurrentRow() const;
    // Row at a position of Viewport(); -1 if there is none.
    [[nodiscard]] int RowAt(const QPoint& position) const;

    // What the rows are drawn on at the moment.
    [[nodiscard]] QAbstractItemView& ActiveView() const;
    [[nodiscard]] ReportView& Report() const { return *m_report; }
    // The last context menu; null if there was none. Owned by the list.
    [[nodiscard]] QMenu* PopupMenu() const { return m_pPopupMenu.get(); }
    [[nodiscard]] bool HasFocus() const { return m_bFocus; }

protected:
    // setActive: called with this when the list gets the focus; may be empty. name: for those who
    // hear the screen.
    CListViewEx(std::function<void(CView*)> setActive, const QString& name, QWidget* parent);

    // Once, with a model that outlives the use of this list.
    void SetModel(QAbstractItemModel& model);
    // Column widths of the profile, pixels, under settings from first on. Where none is stored, or
    // just the default, that is for digits 5 pixels wide and grows with the font; a title fits.
    void ReadColumnWidths(const Profile& profile, Setting first);
    // The widths as they are, to be stored.
    [[nodiscard]] std::vector<std::pair<Setting, std::int32_t>> ColumnWidths(Setting first) const;
    // Where the keys start from; selects nothing. Scrolls there.
    void SetCurrentRow(int row);
    void SetKeepsSelection(bool keeps) { m_report->SetKeepsSelection(keeps); }
    // A line in the place of rows; empty for none.
    void SetNotice(const QString& text);
    // Makes a new context menu in the place of the last one.
    QMenu& NewPopupMenu();

    // The left button goes down on a row, before that selects anything. True if it shall not.
    virtual bool OnRowPressed(int row, Qt::KeyboardModifiers modifiers);
    virtual void OnRowDoubleClicked(int row) = 0;
    // row: -1 beside the rows. position: on the screen.
    virtual void OnContextMenu(int row, const QPoint& position,
                               Qt::KeyboardModifiers modifiers) = 0;
    // A button went down on the row and is dragged away, the left or the right one. There is no
    // drag unless it is begun here.
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
    bool OnViewportEvent(QEvent& event);
    bool OnMousePress(const QMouseEvent& event);
    bool OnMouseMove(const QMouseEvent& event);
    bool OnDoubleClick(const QMouseEvent& event);
    bool OnMouseRelease(const QMouseEvent& event);

    std::function<void(CView*)> m_setActive;
    ReportView* m_report;  // owned by this widget, as the next ones
    QListView* m_icons;
    QLabel* m_notice;
    GridDelegate m_gridDelegate;
    QAbstractItemModel* m_pModel = nullptr;
    QItemSelectionModel* m_selection = nullptr;  // of the report; the icons have the same
    std::unique_ptr<QMenu> m_pPopupMenu;
    ListStyle m_style = ListStyle::Report;
    bool m_bFocus = false;
    QMetaObject::Connection m_focusConnection;

    DragGesture m_gesture;
    QPersistentModelIndex m_pressedIndex;  // where a button went down last
    bool m_bTakenOver = false;             // what follows until it goes up is not for the view
};

}  // namespace quorbit
