// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/file_entry_window.h"

#include <utility>

#include "dialogs/folder_setup_dialog.h"
#include "dialogs/remembered_size.h"
#include "document/help_topic.h"
#include "document/help_topics.h"

namespace quorbit {
namespace {

EntryWindowTexts TextsOf(const FileEntryForm& form)
{
    const bool copies = !form.bDelete;
    const bool folders = !form.bFiles;
    using enum EntryBox;
    return {
        TitleOf(form),
        folders ? "Folders to c&hoose from" : "Files to c&hoose from",
        folders ? "Folders &to process" : "Files &to process",
        {
            {DeleteFolder, "&Delete selected folders ", folders && form.bDelete,
             kTopicDeleteFolders},
            {SubFolders, "&Include sub folders", folders, kTopicSubFolders},
            {Preserve, "&Preserve folder structure", folders && copies, kTopicPreserve},
            {Sync, "&Sync Files (overwrite older files)", copies, kTopicSync},
            {Incremental, "Incremental bac&kup", copies, kTopicIncremental},
            {AllBut, "Process all &but specified files (in Files to process listbox below)",
             form.bFiles, kTopicAllButFiles},
            {Overwrite, "Overwrite Read Only Files", copies, kTopicOverwrite},
        },
        copies,
    };
}

}  // namespace

FileEntryWindow::FileEntryWindow(const DialogServices& services, FileEntryForm form)
    : EntryWindow(services, TextsOf(form)), m_form(std::move(form))
{
    auto* typeSetup = new QPushButton(QStringLiteral("File T&ype Setup"), this);
    connect(typeSetup, &QPushButton::clicked, this, [this] {
        CFolderSetupDlg dialog(Services(), this);
        dialog.DoModal(m_form.folderTypes);
    });
    SetHelpTopic(*typeSetup, kTopicTypeSetup);
    AddExtraButton(typeSetup);
    typeSetup->setVisible(!m_form.bFiles);
    SetTabOrder();

    Source().SetFolder(m_form.source);
    Dest().SetFolder(m_form.dest);
    ShowChecks(m_form.checks, EnabledBoxes(m_form.checks));
    if (m_form.bFiles) {
        Lists().SetListTopics(kTopicChooseFiles, kTopicProcessFiles);
    } else {
        Lists().SetListTopics(kTopicChooseFolders, kTopicProcessFolders);
    }
    Lists().AddToProcess(m_form.names);
    Lists().SetEntryCheck([this](const std::string& text) { return AcceptsEntry(text); });
    m_listing.emplace(
        services.desktop, m_form.source, m_form.bFiles ? ListedKind::Files : ListedKind::Folders,
        [this](const std::vector<std::string>& names) { Lists().AddToChoose(names); });
    Lists().FocusSpeedBox();
    RememberSize(*this, services.pProfile, Setting::FileDialogSize);
}

bool FileEntryWindow::AcceptsEntry(const std::string& text) const
{
    if (!IsMaskText(text)) {
        return true;
    }
    Tell(
        "File types cannot be added in the File Setup Dialog.  Activate the folders setup dialog "
        "to add file types.",
        "Invalid characters", PromptIcon::Exclamation);
    return false;
}

void FileEntryWindow::OnBox(EntryBox box, bool on)
{
    m_form.checks = ClickBox(m_form.checks, box, on);
    ShowChecks(m_form.checks, EnabledBoxes(m_form.checks));
}

void FileEntryWindow::accept()
{
    if (!Lists().TakeTyped()) {
        return;
    }
    m_form.source = Source().Folder();
    m_form.dest = Dest().Folder();
    m_form.names = Lists().ProcessNames();
    if (DeletesEveryFile(m_form) &&
        !ConfirmDeletion(m_form.source, m_form.checks[EntryBox::SubFolders])) {
        Lists().FocusSpeedBox();
        return;
    }
    if (TakesEveryType(m_form)) {
        Tell(
            "No file types were selected for the given folders.  *.* will be used.  To set file "
            "types click on the \"file types setup\" button.",
            "Folders Default", PromptIcon::Information);
    }
    QDialog::accept();
}

}  // namespace quorbit
