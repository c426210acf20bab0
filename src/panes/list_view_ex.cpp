// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/list_view_ex.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

#include "panes/pane_keys.h"
#include "panes/whole_text_tip.h"

namespace quorbit {
namespace {

constexpr int kDefaultDigit = 5;  // digit width, in pixels, that the default column widths assume

}  // namespace

CListViewEx::CListViewEx(std::function<void(CView*)> setActive, const QString& name,
                         QWidget* parent)
    : QStackedWidget(parent),
      m_setActive(std::move(setActive)),
      m_report(new ReportView(this)),
      m_icons(new QListView(this)),
      m_notice(new QLabel(this)),
      m_focusFrame(new FocusFrame(*this))
{
    SetUp(*m_report, name);
    SetUp(*m_icons, name);
    SetUpIcons();
    setCurrentWidget(m_report);
    setFocusProxy(m_report);
    m_notice->setWordWrap(true);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_notice->hide();
    m_focusConnection = connect(qApp, &QApplication::focusChanged, this,
                                [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
}

CListViewEx::~CListViewEx()
{
    disconnect(m_focusConnection);
}

void CListViewEx::SetUp(QAbstractItemView& view, const QString& name)
{
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    view.setIconSize({icon, icon});
    view.setAccessibleName(name);
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setDragEnabled(true);  // keeps a multiple selection when a selected row is pressed
    view.installEventFilter(this);
    view.viewport()->installEventFilter(this);
    addWidget(&view);
}

void CListViewEx::SetUpIcons()
{
    m_icons->setLayoutMode(QListView::Batched);
    m_icons->setBatchSize(1000);
    m_icons->setUniformItemSizes(true);
    m_icons->setItemDelegate(&m_gridDelegate);
}

void CListViewEx::SetModel(QAbstractItemModel& model)
{
    m_pModel = &model;
    m_report->setModel(&model);
    m_selection = m_report->selectionModel();
}

// --- styles -------------------------------------------------------------------------------------

bool CListViewEx::SetFullRow(bool bFull)
{
    if (bFull == GetFullRow()) {
        return false;
    }
    m_report->SetFullRow(bFull);
    return true;
}

QAbstractItemView& CListViewEx::ActiveView() const
{
    return m_style == ListStyle::Report ? static_cast<QAbstractItemView&>(*m_report) : *m_icons;
}

void CListViewEx::SetStyle(ListStyle style)
{
    const bool hadFocus = ActiveView().hasFocus();
    m_style = style;
    if (style == ListStyle::Report) {
        m_icons->setModel(nullptr);  // avoids the layout of many rows in a hidden view
    } else {
        ArrangeIcons();
        if (m_icons->model() == nullptr && m_pModel != nullptr) {
            m_icons->setModel(m_pModel);
            const std::unique_ptr<QItemSelectionModel> replaced(m_icons->selectionModel());
            m_icons->setSelectionModel(m_selection);
        }
    }
    setCurrentWidget(&ActiveView());
    setFocusProxy(&ActiveView());
    m_focusFrame->raise();  // the stack has raised the view
    if (hadFocus) {
        ActiveView().setFocus();
    }
    PlaceNotice();
}

void CListViewEx::ArrangeIcons()
{
    const bool large = m_style == ListStyle::Icon;
    const QStyle& look = *QStackedWidget::style();
    const int icon = look.pixelMetric(large ? QStyle::PM_LargeIconSize : QStyle::PM_SmallIconSize,
                                      nullptr, this);
    const int letter = fontMetrics().averageCharWidth();
    const int line = fontMetrics().lineSpacing();
    const QSize cell = large ? QSize(letter * 16, icon + line * 3)
                             : QSize(letter * 28 + icon, std::max(icon, line) + line / 4);
    m_icons->setViewMode(large ? QListView::IconMode : QListView::ListMode);
    m_icons->setFlow(m_style == ListStyle::List ? QListView::TopToBottom : QListView::LeftToRight);
    m_icons->setWrapping(true);
    m_icons->setWordWrap(large);
    m_icons->setMovement(QListView::Static);
    m_icons->setDragEnabled(true);  // setMovement(Static) disables it
    m_icons->setResizeMode(QListView::Adjust);
    m_icons->setIconSize({icon, icon});
    m_gridDelegate.SetCell(cell);
    m_icons->setGridSize(cell);
}

void CListViewEx::ReadColumnWidths(const Profile& profile, Setting first)
{
    QHeaderView& header = *m_report->header();
    m_standardWidths.clear();
    const int digit = m_report->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < header.count(); ++column) {
        const Setting setting = NthSetting(first, column);
        const int stored = profile.GetStoredInt(setting).value_or(0);
        const int standard = std::max(InfoOf(setting).defaultInteger * digit / kDefaultDigit,
                                      header.sectionSizeHint(column));
        header.resizeSection(column, stored > 0 ? stored : standard);
        m_standardWidths.push_back(stored > 0 ? 0 : header.sectionSize(column));
    }
}

std::vector<std::pair<Setting, std::int32_t>> CListViewEx::ColumnWidths(Setting first) const
{
    const QHeaderView& header = *m_report->header();
    std::vector<std::pair<Setting, std::int32_t>> widths;
    for (int column = 0; column < header.count(); ++column) {
        if (header.sectionSize(column) != m_standardWidths[static_cast<std::size_t>(column)]) {
            widths.emplace_back(NthSetting(first, column), header.sectionSize(column));
        }
    }
    return widths;
}

// --- rows ---------------------------------------------------------------------------------------

std::vector<int> CListViewEx::SelectedRows() const
{
    std::vector<int> rows;
    for (const QItemSelectionRange& range : m_selection->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.push_back(row);
        }
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

int CListViewEx::CurrentRow() const
{
    return m_selection->currentIndex().row();
}

void CListViewEx::SetCurrentRow(int row)
{
    const QModelIndex index = m_pModel->index(row, 0);
    m_selection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    ActiveView().scrollTo(index);
}

void CListViewEx::SelectRow(int row)
{
    const QModelIndex index = m_pModel->index(row, 0);
    m_selection->setCurrentIndex(index,
                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    ActiveView().scrollTo(index);
}

int CListViewEx::RowAt(const QPoint& position) const
{
    return ActiveView().indexAt(position).row();
}

void CListViewEx::SetNotice(const QString& text)
{
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
    PlaceNotice();
}

void CListViewEx::PlaceNotice()
{
    const int gap = fontMetrics().averageCharWidth();
    const int top = ActiveView().viewport()->mapTo(this, QPoint()).y() + gap;
    const int width = std::max(1, this->width() - 2 * gap);
    m_notice->setGeometry(gap, top, width, m_notice->heightForWidth(width));
    m_notice->raise();
}

void CListViewEx::resizeEvent(QResizeEvent* event)
{
    QStackedWidget::resizeEvent(event);
    PlaceNotice();
}

QMenu& CListViewEx::NewPopupMenu()
{
    m_pPopupMenu = std::make_unique<QMenu>(this);
    return *m_pPopupMenu;
}

// --- focus and mouse ----------------------------------------------------------------------------

// Ignores menus and menu bars, which take the focus only while they are used with the keyboard.
void CListViewEx::OnFocusChanged(const QWidget* now)
{
    if (dynamic_cast<const QMenuBar*>(now) != nullptr ||
        dynamic_cast<const QMenu*>(now) != nullptr) {
        return;
    }
    const bool had = std::exchange(m_bFocus, now != nullptr && isAncestorOf(now));
    if (had != m_bFocus) {
        m_focusFrame->setVisible(m_bFocus);
        ActiveView().viewport()->update();
    }
    if (!had && m_bFocus && m_setActive) {
        m_setActive(this);
    }
}

bool CListViewEx::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ActiveView().viewport()) {
        return OnViewportEvent(*event);
    }
    if (watched == &ActiveView() && event->type() == QEvent::ContextMenu) {
        OnMenuKey();
        return true;
    }
    if (watched == &ActiveView() && event->type() == QEvent::KeyPress) {
        return OnKeyPress(static_cast<QKeyEvent&>(*event));
    }
    return QStackedWidget::eventFilter(watched, event);
}

bool CListViewEx::OnKeyPress(const QKeyEvent& event)
{
    if (IsMenuKey(event)) {
        OnMenuKey();
        return true;
    }
    if (IsParentKey(event)) {
        OnParentKey();
        return true;
    }
    if (!IsOpenKey(event)) {
        return false;
    }
    const std::vector<int> selected = SelectedRows();
    if (selected.size() == 1) {
        OnRowOpened(selected.front());
    }
    return true;
}

bool CListViewEx::OnToolTip(const QHelpEvent& event)
{
    QWidget& viewport = *ActiveView().viewport();
    if (m_style == ListStyle::Report) {
        const RowCell cell = m_report->CutCellAt(event.pos());
        ShowWholeText(event, viewport, cell.rect, cell.index.data().toString());
        return true;
    }
    const QModelIndex index = m_icons->indexAt(event.pos());
    const QString text = index.data().toString();
    const QRect cell = m_icons->visualRect(index);
    // Large icons wrap their texts, so this also shows some that are complete.
    const bool cut = m_gridDelegate.WidthOf(*m_icons, index) > cell.width();
    ShowWholeText(event, viewport, cell, cut ? text : QString());
    return true;
}

// Opens the context menu of the menu key at the current row.
void CListViewEx::OnMenuKey()
{
    QAbstractItemView& view = ActiveView();
    const QModelIndex current = m_selection->currentIndex();
    QPoint position;
    if (current.isValid()) {
        view.scrollTo(current.siblingAtColumn(0));
        const QRect visible = view.visualRect(current.siblingAtColumn(0)) & view.viewport()->rect();
        position = visible.center();
    }
    OnContextMenu(current.row(), view.viewport()->mapToGlobal(position), Qt::NoModifier);
}

bool CListViewEx::OnViewportEvent(QEvent& event)
{
    switch (event.type()) {
        case QEvent::MouseButtonPress:
            return OnMousePress(static_cast<QMouseEvent&>(event));
        case QEvent::MouseMove:
            return OnMouseMove(static_cast<QMouseEvent&>(event));
        case QEvent::MouseButtonRelease:
            return OnMouseRelease(static_cast<QMouseEvent&>(event));
        case QEvent::MouseButtonDblClick:
            return OnDoubleClick(static_cast<QMouseEvent&>(event));
        case QEvent::ToolTip:
            return OnToolTip(static_cast<QHelpEvent&>(event));
        case QEvent::ContextMenu:
            // The mouse opens the menu on release, because the right button may start a drag.
            return static_cast<QContextMenuEvent&>(event).reason() == QContextMenuEvent::Mouse;
        default:
            return false;
    }
}

bool CListViewEx::OnMousePress(const QMouseEvent& event)
{
    m_gesture.Press(event);
    m_pressedIndex = ActiveView().indexAt(event.position().toPoint());
    m_bTakenOver = event.button() == Qt::LeftButton && m_pressedIndex.isValid() &&
                   OnRowPressed(m_pressedIndex.row(), event.modifiers());
    return m_bTakenOver;
}

bool CListViewEx::OnRowPressed(int, Qt::KeyboardModifiers)
{
    return false;
}

void CListViewEx::OnBeginDrag(int, Qt::MouseButton, Qt::KeyboardModifiers) {}

// Lets the view handle moves only after a press outside the rows, which starts a rubber band
// selection.
bool CListViewEx::OnMouseMove(const QMouseEvent& event)
{
    if (event.buttons() == Qt::NoButton) {
        return false;
    }
    const bool mayDrag = !m_bTakenOver && m_pressedIndex.isValid();
    const Qt::MouseButton button = mayDrag ? m_gesture.Move(event) : Qt::NoButton;
    if (button != Qt::NoButton) {
        m_bTakenOver = true;
        OnBeginDrag(m_pressedIndex.row(), button, event.modifiers());
    }
    return m_bTakenOver || m_pressedIndex.isValid();
}

bool CListViewEx::OnDoubleClick(const QMouseEvent& event)
{
    const int row = RowAt(event.position().toPoint());
    if (event.button() != Qt::LeftButton || row < 0) {
        return false;
    }
    m_bTakenOver = true;
    OnRowOpened(row);
    return true;
}

bool CListViewEx::OnMouseRelease(const QMouseEvent& event)
{
    const bool takenOver = std::exchange(m_bTakenOver, false);
    if (m_gesture.Release(event) && !takenOver && event.button() == Qt::RightButton) {
        const int row = RowAt(event.position().toPoint());
        if (row < 0) {
            // The view does so only after this event, and the menu must not offer commands for rows
            // that then are no longer selected.
            m_selection->clearSelection();
        }
        OnContextMenu(row, event.globalPosition().toPoint(), event.modifiers());
    }
    return takenOver;
}

}  // namespace quorbit
