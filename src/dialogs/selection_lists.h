// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Two lists, to choose from and to process, with Add and Remove buttons, the speed typing box and a
// filter above the first list; shared by three dialogs. Items hidden by the filter are not selected
// and cannot be added. User interface thread only.

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
    // How Add detects that a line is already in the process list: the list has the same text, or a
    // text that starts with it. Both ignore case.
    enum class Compare { WholeText, Beginning };

    SelectionLists(const QString& chooseLabel, const QString& processLabel, Compare compare,
                   QWidget* parent);

    void AddToChoose(const std::vector<std::string>& names) { m_chooseNames.Add(names); }
    void AddToProcess(const std::vector<std::string>& names) { m_processNames.Add(names); }
    // The process list from top to bottom.
    [[nodiscard]] std::vector<std::string> ProcessNames() const { return m_processNames.Names(); }

    // Sets a check of typed entries; an entry is rejected if it returns false.
    void SetEntryCheck(std::function<bool(const std::string&)> accepts);
    // The lines are masks: a typed text can contain several (see MasksOfTyped). Otherwise, a typed
    // text is one name, including its commas.
    void SplitTypedMasks() { m_splits = true; }
    // Adds the text of the speed typing box like "Add Entry ->", so that OK does not drop it.
    // Returns false if the check has rejected it. Does nothing if the controls are disabled.
    [[nodiscard]] bool TakeTyped();
    void SetUsable(bool usable);
    // Sets the help topics of the two lists, whose content differs between the dialogs.
    void SetListTopics(int choose, int process);
    // Places a button of the dialog after "Add Entry ->"; this object becomes its parent.
    void SetExtraButton(QPushButton* button);
    void FocusSpeedBox();

    // Returns the controls in tab order.
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
    bool AddTyped();
    bool OnKey(const QObject* watched, QKeyEvent& key);
    bool OnSpeedBoxKey(const QKeyEvent& key);
    bool OnFilterKey(const QKeyEvent& key);
    bool OnChooseKey(QKeyEvent& key);
    bool OnProcessKey(const QKeyEvent& key);
    [[nodiscard]] bool IsOffered(const std::string& name) const;
    [[nodiscard]] bool IsProcessed(const std::string& name) const;

    Compare m_compare;
    std::function<bool(const std::string&)> m_accepts;
    bool m_splits = false;
    NameListModel m_chooseNames;
    QSortFilterProxyModel m_offered;  // the items of m_chooseNames that pass the filter
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
