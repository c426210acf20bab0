// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the windows of file entries and of file-type entries have in common: folders, check boxes,
// two lists, buttons. A control that a mode does not show takes no room. User interface thread
// only.

#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "dialogs/dialog_services.h"
#include "dialogs/entry_checks.h"
#include "dialogs/folder_box.h"
#include "dialogs/selection_lists.h"

namespace quorbit {

struct EntryBoxText {
    EntryBox box;
    const char* text;
    bool shown;
    int topic;
};

struct EntryWindowTexts {
    const char* title;
    const char* chooseLabel;
    const char* processLabel;
    std::vector<EntryBoxText> boxes;  // top to bottom
    bool showsDest;
};

class EntryWindow : public QDialog {
public:
    // What "..." has put into the boxes, also if the window ended with Cancel.
    [[nodiscard]] const std::optional<std::string>& PickedSource() const { return m_pickedSource; }
    [[nodiscard]] const std::optional<std::string>& PickedDest() const { return m_pickedDest; }

protected:
    // services outlive the window.
    EntryWindow(const DialogServices& services, const EntryWindowTexts& texts);

    // Puts a button into the tab order and beside the lists; before SetTabOrder.
    void AddExtraButton(QPushButton* button);
    // Once all controls are there. The overwrite box comes last.
    void SetTabOrder();
    void ShowChecks(const EntryChecks& checks, const EntryChecks& enabled);
    void Tell(const char* text, const char* caption, PromptIcon icon) const;

    // A person has clicked a box.
    virtual void OnBox(EntryBox box, bool on) = 0;
    // The word that "Advanced" edits.
    virtual std::uint32_t& Flags() = 0;

    [[nodiscard]] const DialogServices& Services() const { return m_services; }
    [[nodiscard]] FolderBox& Source() { return *m_source; }
    [[nodiscard]] FolderBox& Dest() { return *m_dest; }
    [[nodiscard]] SelectionLists& Lists() { return *m_lists; }

private:
    FolderBox* MakeFolderBox(FolderBox::Role role, const char* name,
                             std::optional<std::string>& picked);
    void MakeBoxes(const std::vector<EntryBoxText>& boxes);
    void MakeButtons();
    void LayOut(const EntryWindowTexts& texts);
    void OnAdvanced();

    const DialogServices& m_services;
    std::optional<std::string> m_pickedSource;
    std::optional<std::string> m_pickedDest;
    FolderBox* m_source;
    FolderBox* m_dest;
    std::array<QCheckBox*, kEntryBoxes> m_boxes{};  // null where there is none
    std::vector<QCheckBox*> m_boxOrder;
    SelectionLists* m_lists;
    QPushButton* m_ok;
    QPushButton* m_cancel;
    QPushButton* m_advanced;
};

}  // namespace quorbit
