// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Base class of the windows of file entries and file type entries: folders, check boxes, two lists
// and buttons. Controls that a mode does not show take no space. User interface thread only.

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
    // The folders last picked with "...", even if the window was cancelled. Nullopt if none was
    // picked.
    [[nodiscard]] const std::optional<std::string>& PickedSource() const { return m_pickedSource; }
    [[nodiscard]] const std::optional<std::string>& PickedDest() const { return m_pickedDest; }

protected:
    // `services` must outlive the window.
    EntryWindow(const DialogServices& services, const EntryWindowTexts& texts);

    // Adds a button to the lists and the tab order. Must be called before SetTabOrder.
    void AddExtraButton(QPushButton* button);
    // Sets the tab order; must be called when all controls exist. The overwrite box comes last.
    void SetTabOrder();
    void ShowChecks(const EntryChecks& checks, const EntryChecks& enabled);
    void Tell(const char* text, const char* caption, PromptIcon icon) const;
    // Asks whether an entry may delete every file in its source; true for Yes.
    [[nodiscard]] bool ConfirmDeletion(const std::string& source, bool subFolders) const;
    // Gives the focus back to the parent window: a window manager may lose it if the dialog closes
    // right after a message box.
    void done(int result) override;

    // Called when the user clicks a box.
    virtual void OnBox(EntryBox box, bool on) = 0;
    // The flags that the "Advanced" dialog edits.
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
    std::array<QCheckBox*, kEntryBoxes> m_boxes{};  // null if the window does not have the box
    std::vector<QCheckBox*> m_boxOrder;
    SelectionLists* m_lists;
    QPushButton* m_ok;
    QPushButton* m_cancel;
    QPushButton* m_advanced;
};

}  // namespace quorbit
