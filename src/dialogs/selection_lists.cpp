// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/selection_lists.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "dialogs/file_name_text.h"
#include "dialogs/mask_list.h"
#include "document/help_topic.h"
#include "document/help_topics.h"
#include "panes/whole_text_tip.h"

namespace quorbit {
namespace {

QString WithoutMnemonic(QString text)
{
    return text.remove(QLatin1Char('&'));
}

// Returns the selected rows of the underlying NameListModel, in ascending order.
std::vector<int> SelectedRows(const QListView& list)
{
    std::vector<int> rows;
    const auto* filtered = dynamic_cast<const QSortFilterProxyModel*>(list.model());
    const QModelIndexList selected = list.selectionModel()->selectedRows();
    rows.reserve(selected.size());
    for (const QModelIndex& index : selected) {
        rows.push_back(filtered != nullptr ? filtered->mapToSource(index).row() : index.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

bool IsEnter(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

// Shows a line that does not fit the list as a tool tip.
void ShowCutLine(QListView& list, const QHelpEvent& event)
{
    const QModelIndex index = list.indexAt(event.pos());
    const bool cut =
        index.isValid() && list.sizeHintForIndex(index).width() > list.viewport()->width();
    ShowWholeText(event, *list.viewport(), list.visualRect(index),
                  cut ? index.data().toString() : QString());
}

}  // namespace

SelectionLists::SelectionLists(const QString& chooseLabel, const QString& processLabel,
                               Compare compare, QWidget* parent)
    : QWidget(parent),
      m_compare(compare),
      m_speedBox(new CComboBoxEx(this)),
      m_addEntry(MakeButton(QStringLiteral("Add &Entry ->"), &SelectionLists::OnAddEntry)),
      m_filter(MakeFilter(chooseLabel)),
      m_choose(MakeList(m_offered, chooseLabel, "m_lstChoose")),
      m_add(MakeButton(QStringLiteral("&Add ->"), &SelectionLists::OnAdd)),
      m_remove(MakeButton(QStringLiteral("<- &Remove"), &SelectionLists::OnRemove)),
      m_process(MakeList(m_processNames, processLabel, "m_lstProcess"))
{
    m_speedBox->SetLines(&m_chooseNames);
    m_speedBox->setObjectName(QStringLiteral("m_cmbSpeed"));
    m_speedBox->setAccessibleName(QStringLiteral("Speed typing box"));
    m_speedBox->lineEdit()->setAccessibleName(QStringLiteral("Speed typing box"));
    m_offered.setSourceModel(&m_chooseNames);
    m_offered.setFilterCaseSensitivity(Qt::CaseInsensitive);
    for (QWidget* control :
         std::initializer_list<QWidget*>{m_speedBox, m_filter, m_choose, m_process}) {
        control->installEventFilter(this);
    }
    connect(m_filter, &QLineEdit::textChanged, &m_offered,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(m_choose, &QListView::doubleClicked, this, [this] { OnAdd(); });
    connect(m_process, &QListView::doubleClicked, this, [this] { OnRemove(); });
    LayOut(chooseLabel, processLabel);
    SetHelpTopics({
        {m_speedBox, kTopicSpeedBox},
        {m_addEntry, kTopicAddEntry},
        {m_add, kTopicAdd},
        {m_remove, kTopicRemove},
    });
}

QListView* SelectionLists::MakeList(QAbstractItemModel& names, const QString& label,
                                    const char* objectName)
{
    auto* list = new QListView(this);
    list->setModel(&names);
    list->setObjectName(QLatin1String(objectName));
    list->setAccessibleName(WithoutMnemonic(label));
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setUniformItemSizes(true);
    list->setTextElideMode(Qt::ElideMiddle);
    list->viewport()->installEventFilter(this);
    const QFontMetrics metrics = list->fontMetrics();
    list->setMinimumSize(metrics.averageCharWidth() * 24, metrics.lineSpacing() * 4);
    return list;
}

QLineEdit* SelectionLists::MakeFilter(const QString& label)
{
    auto* filter = new QLineEdit(this);
    filter->setObjectName(QStringLiteral("m_edtFilter"));
    filter->setPlaceholderText(QStringLiteral("Filter"));
    filter->setAccessibleName(QStringLiteral("Filter of ") + WithoutMnemonic(label));
    filter->setClearButtonEnabled(true);
    if (auto* clear = filter->findChild<QToolButton*>()) {
        clear->setAccessibleName(QStringLiteral("Clear the filter"));
    }
    return filter;
}

QPushButton* SelectionLists::MakeButton(const QString& text, void (SelectionLists::*onClick)())
{
    auto* button = new QPushButton(text, this);
    button->setAccessibleName(WithoutMnemonic(text));
    connect(button, &QPushButton::clicked, this, [this, onClick] { (this->*onClick)(); });
    return button;
}

void SelectionLists::LayOut(const QString& chooseLabel, const QString& processLabel)
{
    const auto label = [this](const QString& text, QWidget* buddy) {
        auto* made = new QLabel(text, this);
        made->setBuddy(buddy);
        return made;
    };
    auto* between = new QVBoxLayout;
    between->addStretch();
    between->addWidget(m_add);
    between->addWidget(m_remove);
    between->addStretch();

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(label(QStringLiteral("Speed typing &box"), m_speedBox), 0, 0);
    grid->addWidget(m_speedBox, 1, 0);
    grid->addWidget(m_addEntry, 1, 1);
    grid->addWidget(label(chooseLabel, m_choose), 2, 0);
    grid->addWidget(label(processLabel, m_process), 2, 2);
    grid->addWidget(m_filter, 3, 0);
    grid->addWidget(m_choose, 4, 0);
    grid->addLayout(between, 3, 1, 2, 1);
    grid->addWidget(m_process, 3, 2, 2, 1);
    grid->setRowStretch(4, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
}

void SelectionLists::SetExtraButton(QPushButton* button)
{
    m_extra = button;
    static_cast<QGridLayout*>(layout())->addWidget(button, 1, 2, Qt::AlignLeft);
}

void SelectionLists::SetEntryCheck(std::function<bool(const std::string&)> accepts)
{
    m_accepts = std::move(accepts);
}

void SelectionLists::SetListTopics(int choose, int process)
{
    SetHelpTopics({{m_filter, choose}, {m_choose, choose}, {m_process, process}});
}

void SelectionLists::SetUsable(bool usable)
{
    for (QWidget* control : std::initializer_list<QWidget*>{m_speedBox, m_addEntry, m_filter,
                                                            m_choose, m_add, m_remove, m_process}) {
        control->setEnabled(usable);
    }
}

void SelectionLists::FocusSpeedBox()
{
    m_speedBox->setFocus(Qt::OtherFocusReason);
}

std::vector<QWidget*> SelectionLists::TabChain() const
{
    std::vector<QWidget*> chain = {m_speedBox, m_addEntry};
    if (m_extra != nullptr) {
        chain.push_back(m_extra);
    }
    chain.insert(chain.end(), {m_filter, m_choose, m_add, m_remove, m_process});
    return chain;
}

bool SelectionLists::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && OnKey(watched, *static_cast<QKeyEvent*>(event))) {
        return true;
    }
    if (event->type() == QEvent::ToolTip) {
        for (QListView* list : {m_choose, m_process}) {
            if (watched == list->viewport()) {
                ShowCutLine(*list, *static_cast<QHelpEvent*>(event));
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool SelectionLists::OnKey(const QObject* watched, QKeyEvent& key)
{
    return (watched == m_speedBox && OnSpeedBoxKey(key)) ||
           (watched == m_filter && OnFilterKey(key)) || (watched == m_choose && OnChooseKey(key)) ||
           (watched == m_process && OnProcessKey(key));
}

// Enter clicks Add Entry instead of the dialog's OK. Queued, so that the key event is handled
// first.
bool SelectionLists::OnSpeedBoxKey(const QKeyEvent& key)
{
    if (!IsEnter(key)) {
        return false;
    }
    QMetaObject::invokeMethod(
        m_addEntry, [button = m_addEntry] { button->click(); }, Qt::QueuedConnection);
    return true;
}

// Enter and Down move to the filtered list. Escape first clears the filter; only then it cancels
// the dialog.
bool SelectionLists::OnFilterKey(const QKeyEvent& key)
{
    switch (key.key()) {
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            m_choose->setFocus(Qt::OtherFocusReason);
            if (!m_choose->currentIndex().isValid()) {
                m_choose->setCurrentIndex(m_offered.index(0, 0));
            }
            return true;
        case Qt::Key_Escape:
            if (m_filter->text().isEmpty()) {
                return false;
            }
            m_filter->clear();
            return true;
        default:
            return false;
    }
}

// Enter adds the selected lines; without a selection, it presses OK. Redirects typing in the list
// to its filter.
bool SelectionLists::OnChooseKey(QKeyEvent& key)
{
    if (IsEnter(key)) {
        const bool adds = m_choose->selectionModel()->hasSelection();
        if (adds) {
            OnAdd();
        }
        return adds;
    }
    const Qt::KeyboardModifiers others =
        key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool types =
        !key.text().isEmpty() && key.text().front().isPrint() && key.key() != Qt::Key_Space;
    if (others != Qt::NoModifier || !types) {
        return false;
    }
    m_filter->setFocus(Qt::OtherFocusReason);
    m_filter->end(false);
    QCoreApplication::sendEvent(m_filter, &key);
    return true;
}

bool SelectionLists::OnProcessKey(const QKeyEvent& key)
{
    if (key.key() != Qt::Key_Delete) {
        return false;
    }
    OnRemove();
    return true;
}

bool SelectionLists::IsOffered(const std::string& name) const
{
    const std::vector<std::string> names = m_chooseNames.NamesWithText(ShownText(name));
    return std::find(names.begin(), names.end(), name) != names.end();
}

// Compares ignoring case, unless the folder contains both names: names that differ only in case are
// then different files, and each must be addable.
bool SelectionLists::IsProcessed(const std::string& name) const
{
    const std::vector<std::string> listed = m_processNames.NamesWithText(ShownText(name));
    return std::any_of(listed.begin(), listed.end(), [&](const std::string& other) {
        return other == name || !IsOffered(other) || !IsOffered(name);
    });
}

void SelectionLists::OnAdd()
{
    std::vector<std::string> added;
    for (const int row : SelectedRows(*m_choose)) {
        const std::string& name = m_chooseNames.NameAt(row);
        const bool listed = m_compare == Compare::Beginning
                                ? m_processNames.HoldsTextBeginning(ShownText(name))
                                : IsProcessed(name);
        if (!listed) {
            added.push_back(name);
        }
    }
    m_processNames.Add(added);
    m_choose->clearSelection();
}

void SelectionLists::OnRemove()
{
    m_processNames.RemoveLines(SelectedRows(*m_process));
    m_process->clearSelection();
}

void SelectionLists::OnAddEntry()
{
    (void)AddTyped();
}

bool SelectionLists::TakeTyped()
{
    return !m_speedBox->isEnabled() || AddTyped();
}

// Returns false if the check rejects the text. The box keeps a text that is in the list already.
bool SelectionLists::AddTyped()
{
    const QString text = m_speedBox->currentText();
    if (text.isEmpty()) {
        return true;
    }
    std::vector<std::string> names;
    if (const auto offered = m_chooseNames.NameShownAs(text)) {
        names = {*offered};
    } else if (m_splits) {
        names = MasksOfTyped(TypedName(text));
    } else {
        names = {TypedName(text)};
    }
    if (m_accepts && !std::all_of(names.begin(), names.end(), m_accepts)) {
        return false;
    }
    bool added = false;
    for (const std::string& name : names) {
        if (!IsProcessed(name)) {
            m_processNames.Add({name});
            added = true;
        }
    }
    if (added) {
        m_speedBox->Clear();
    }
    return true;
}

}  // namespace quorbit
