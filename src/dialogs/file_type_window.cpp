// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/file_type_window.h"

#include <utility>

#include "dialogs/mask_choices.h"
#include "dialogs/remembered_size.h"
#include "document/help_topics.h"

namespace quorbit {
namespace {

EntryWindowTexts TextsOf(const FileTypeForm& form)
{
    const bool copies = !form.bDelete;
    using enum EntryBox;
    return {
        copies ? "File Type Property Setup" : "Delete File Type Setup",
        "File types to c&hoose from",
        "File types &to process",
        {
            {DeleteFolder, "&Delete source folder", form.bDelete, kTopicDeleteSource},
            {SubFolders, "&Include sub folders", true, kTopicSubFolders},
            {Preserve, "&Preserve folder structure", copies, kTopicPreserve},
            {Sync, "&Sync Files (overwrite older files)", copies, kTopicSync},
            {Incremental, "Incremental bac&kup", copies, kTopicIncremental},
            {AllBut, "Process all &but specified file types (in File types to process below)", true,
             kTopicAllButTypes},
            {AllTypes, "P&rocess all file types (*.*)", true, kTopicAllTypes},
            {Overwrite, "Overwrite Read Only Files", copies, kTopicOverwrite},
        },
        copies,
    };
}

}  // namespace

FileTypeWindow::FileTypeWindow(const DialogServices& services, FileTypeForm form)
    : EntryWindow(services, TextsOf(form)), m_form(std::move(form))
{
    SetTabOrder();
    Lists().SetListTopics(kTopicChooseTypes, kTopicProcessTypes);
    Lists().AddToChoose(MaskChoices(services.pPrompts));
    Lists().SplitTypedMasks();
    Source().SetFolder(m_form.source);
    Dest().SetFolder(m_form.dest);
    Lists().AddToProcess(m_form.masks);
    Lists().FocusSpeedBox();
    ShowForm();
    RememberSize(*this, services.pProfile, Setting::FileTypeDialogSize);
}

void FileTypeWindow::ShowForm()
{
    ShowChecks(m_form.checks, EnabledTypeBoxes(m_form.checks));
    Lists().SetUsable(ListsEnabled(m_form.checks));
}

void FileTypeWindow::OnBox(EntryBox box, bool on)
{
    m_form.checks = ClickTypeBox(m_form.checks, box, on);
    ShowForm();
}

void FileTypeWindow::accept()
{
    if (!Lists().TakeTyped()) {
        return;
    }
    m_form.source = Source().Folder();
    m_form.dest = Dest().Folder();
    m_form.masks = Lists().ProcessNames();
    if (DeletesEveryFile(m_form) &&
        !ConfirmDeletion(m_form.source, m_form.checks[EntryBox::SubFolders])) {
        Lists().FocusSpeedBox();
        return;
    }
    if (SelectsNothing(m_form)) {
        Tell("Warning!  There are no filetypes to process.  ", "", PromptIcon::Exclamation);
    }
    QDialog::accept();
}

}  // namespace quorbit
