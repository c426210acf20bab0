// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/combo_box_ex.h"

#include <QAbstractItemModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>

#include "dialogs/name_list_model.h"

namespace quorbit {

CComboBoxEx::CComboBoxEx(QWidget* parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(16);
    // Otherwise the drop-down measures every line before it opens.
    if (auto* lines = dynamic_cast<QListView*>(view())) {
        lines->setUniformItemSizes(true);
        lines->setTextElideMode(Qt::ElideMiddle);
    }
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& typed) { OnEditUpdate(typed); });
}

void CComboBoxEx::SetLines(QAbstractItemModel* lines)
{
    setModel(lines);
    Clear();
    // QComboBox selects the first line inserted into an empty list, which would replace the typed
    // text.
    connect(lines, &QAbstractItemModel::rowsAboutToBeInserted, this, [this] {
        if (count() == 0) {
            const QString typed = currentText();
            const int caret = lineEdit()->cursorPosition();
            connect(
                model(), &QAbstractItemModel::rowsInserted, this,
                [this, typed, caret] {
                    Clear();
                    setEditText(typed);
                    lineEdit()->setCursorPosition(caret);
                },
                Qt::SingleShotConnection);
        }
    });
}

void CComboBoxEx::Clear()
{
    setCurrentIndex(-1);
    clearEditText();
}

bool CComboBoxEx::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lineEdit() && event->type() == QEvent::KeyPress) {
        NoteKey(static_cast<QKeyEvent*>(event)->key());
    }
    return QComboBox::eventFilter(watched, event);
}

void CComboBoxEx::keyPressEvent(QKeyEvent* event)
{
    NoteKey(event->key());
    QComboBox::keyPressEvent(event);
}

void CComboBoxEx::NoteKey(int key)
{
    m_bAutoComplete = key != Qt::Key_Delete && key != Qt::Key_Backspace;
}

int CComboBoxEx::FindBeginning(const QString& typed) const
{
    if (typed.isEmpty()) {
        return -1;
    }
    if (const auto* names = dynamic_cast<const NameListModel*>(model())) {
        return names->FindBeginning(typed);
    }
    return findText(typed, Qt::MatchStartsWith);  // ignores case
}

void CComboBoxEx::OnEditUpdate(const QString& typed)
{
    if (!m_bAutoComplete) {
        return;
    }
    const int line = FindBeginning(typed);
    setCurrentIndex(line);
    if (line < 0) {
        setEditText(typed);
    } else {
        setEditText(itemText(line));  // setCurrentIndex changes nothing if the line is current
    }
    const auto length = static_cast<int>(typed.size());
    lineEdit()->setSelection(length, static_cast<int>(currentText().size()) - length);
}

}  // namespace quorbit
