// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/folder_setup_dialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "batch/dir_copy.h"
#include "dialogs/mask_choices.h"
#include "dialogs/ok_cancel_row.h"
#include "dialogs/remembered_size.h"
#include "document/help_topic.h"
#include "document/help_topics.h"

namespace quorbit {
CFolderSetupDlg::CFolderSetupDlg(const DialogServices& services, QWidget* parent)
    : QDialog(parent),
      m_allTypes(new QCheckBox(QStringLiteral("Process all file t&ypes (*.*)"), this)),
      m_lists(new SelectionLists(QStringLiteral("File types to c&hoose from"),
                                 QStringLiteral("File types &to  process"),
                                 SelectionLists::Compare::Beginning, this))
{
    setWindowTitle(QStringLiteral("Folder File Type Setup"));
    connect(m_allTypes, &QCheckBox::toggled, this, [this](bool on) { m_lists->SetUsable(!on); });
    LayOut();
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    SetHelpTopic(*m_allTypes, kTopicFolderAllTypes);
    m_lists->SetListTopics(kTopicChooseTypes, kTopicFolderTypes);
    m_lists->AddToChoose(MaskChoices(services.pPrompts));
    m_lists->SplitTypedMasks();
    RememberSize(*this, services.pProfile, Setting::FolderTypesDialogSize);
}

void CFolderSetupDlg::LayOut()
{
    QHBoxLayout* buttons = MakeOkCancelRow(*this, QStringLiteral("&OK"), QStringLiteral("Can&cel"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_allTypes);
    column->addWidget(m_lists, 1);
    column->addLayout(buttons);

    std::vector<QWidget*> chain = {m_allTypes};
    const std::vector<QWidget*> lists = m_lists->TabChain();
    chain.insert(chain.end(), lists.begin(), lists.end());
    chain.insert(chain.end(), {buttons->itemAt(1)->widget(), buttons->itemAt(2)->widget()});
    for (std::size_t i = 1; i < chain.size(); ++i) {
        setTabOrder(chain[i - 1], chain[i]);
    }
}

void CFolderSetupDlg::accept()
{
    if (m_lists->TakeTyped()) {
        QDialog::accept();
    }
}

void CFolderSetupDlg::DoModal(std::vector<std::string>& folderTypes)
{
    bool every = false;
    std::vector<std::string> masks;
    for (const std::string& mask : folderTypes) {
        if (mask == kEveryFile) {
            every = true;
        } else {
            masks.push_back(mask);
        }
    }
    m_lists->AddToProcess(masks);
    m_lists->FocusSpeedBox();
    m_allTypes->setChecked(every);
    if (exec() != Accepted) {
        return;
    }
    folderTypes =
        m_allTypes->isChecked() ? std::vector<std::string>{kEveryFile} : m_lists->ProcessNames();
}

}  // namespace quorbit
