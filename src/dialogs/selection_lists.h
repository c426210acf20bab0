// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The middle of three dialogs: a list to choose from, a list of what will be processed, the buttons
// between them, and the speed typing box over them. A filter stands above the list to choose from:
// what it hides is not selected and cannot be moved.

#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "dialogs/combo_box_ex.h"
#include "dialogs/name_list_model.h"

namespace quorbit {

class SelectionLists final : public QWidget {
public:
    // When the Add button takes a line to be in the process list already: if the same text is
    // there, or a text that begins so; case aside.
    enum class Compare { WholeText, Beginning };

    SelectionLists(const QString& chooseLabel, const QString& processLabel, Compare compare,
                   QWidget* parent);

    void AddToChoose(const std::vector<std::string>& names) { m_chooseNames.Add(names); }
    void AddToProcess(const std::vector<std::string>& names) { m_processNames.Add(names); }
    // Top to bottom.
    [[nodiscard]] std::vector<std::string> ProcessNames() const { return m_processNames.Names(); }

    // Asked before a text that was typed is looked at; false refuses it.
    void SetEntryCheck(std::function<bool(const std::string&)> accepts);
    void SetUsable(bool usable);
    // Topics of the help for the two lists, which hold something else in each dialog.
    void SetListTopics(int choose, int process);
    // Puts a button of the dialog behind "Add Entry ->".
    void SetExtraButton(QPushButton* button);
    void FocusSpeedBox();

    // The controls in tab order.
    [[nodiscard]] std::vector<QWidget*> TabChain() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QListView* MakeList(QAbstractItemModel& names, const QString& label, const char* objectName);
    QLineEdit* MakeFilter(const QString& label);
    QPushButton* MakeButton(const QString& text, void (SelectionLists::*onClick)());
    void LayOut(const QString& chooseLabel, const QString& processLabel);
    void OnAdd();
    void OnRemove();
    void OnAddEntry();
    bool OnSpeedBoxKey(const QKeyEvent& key);
    bool OnFilterKey(const QKeyEvent& key);
    bool OnChooseKey(QKeyEvent& key);
    [[nodiscard]] bool IsOffered(const std::string& name) const;
    [[nodiscard]] bool IsProcessed(const std::string& name) const;

    Compare m_compare;
    std::function<bool(const std::string&)> m_accepts;
    NameListModel m_chooseNames;
    QSortFilterProxyModel m_offered;  // those of m_chooseNames that the filter lets through
    NameListModel m_processNames;
    CComboBoxEx* m_speedBox;
    QPushButton* m_addEntry;
    QPushButton* m_extra = nullptr;
    QLineEdit* m_filter;
    QListView* m_choose;
    QPushButton* m_add;
    QPushButton* m_remove;
    QListView* m_process;
};

}  // namespace quorbit
