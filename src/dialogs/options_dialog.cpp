// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/options_dialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>

#include "dialogs/file_name_text.h"
#include "dialogs/ok_cancel_row.h"
#include "dialogs/remembered_size.h"
#include "dialogs/sel_dir_dialog.h"
#include "document/help_topic.h"
#include "document/help_topics.h"

namespace quorbit {
namespace {

constexpr const char* kLastResort = "c:\\";

}  // namespace

COptionsDlg::COptionsDlg(const DialogServices& services, OptionSources sources, QWidget* parent)
    : QDialog(parent),
      m_sources(std::move(sources)),
      m_folder(new FolderBox(
          services, FolderBox::Role::NotOfRun, QStringLiteral("Qrb file folder"),
          [this, &services](const std::string& start) { return PickFolder(services, this, start); },
          this)),
      m_logFile(new QLineEdit(this)),
      m_editor(new QLabel(QStringLiteral("Text editor for log file:  Notepad.exe"), this)),
      m_suppress(new QCheckBox(
          QStringLiteral("Suppress error message boxes while running qrb file."), this)),
      m_refresh(new QCheckBox(QStringLiteral("Refresh views after running a qrb file."), this))
{
    setWindowTitle(QStringLiteral("Set Options"));
    m_folder->Edit()->setObjectName(QStringLiteral("m_edtFolder"));
    m_logFile->setObjectName(QStringLiteral("m_edtLogFile"));
    m_logFile->setReadOnly(true);
    m_logFile->setAccessibleName(QStringLiteral("Log file path"));
    LayOut();
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    SetHelpTopics({
        {m_logFile, kTopicLogFilePath},
        {m_refresh, kTopicRefreshAfterRun},
        {m_suppress, kTopicSuppressErrors},
        {m_editor, kTopicLogEditor},
        {m_folder->Edit(), kTopicQrbFolder},
        {m_folder->BrowseButton(), kTopicQrbFolderBrowse},
    });
    RememberSize(*this, services.pProfile, Setting::OptionsDialogSize);
}

void COptionsDlg::LayOut()
{
    auto* group = new QGroupBox(QStringLiteral("File Processing Options"), this);
    auto* folderLabel = new QLabel(QStringLiteral("Qrb File Folder:"), group);
    auto* logLabel = new QLabel(QStringLiteral("Log file path:"), group);
    folderLabel->setBuddy(m_folder->Edit());
    logLabel->setBuddy(m_logFile);
    folderLabel->setMinimumHeight(m_logFile->sizeHint().height());
    auto* grid = new QGridLayout(group);
    grid->addWidget(folderLabel, 0, 0, Qt::AlignTop);
    grid->addWidget(m_folder, 0, 1);
    grid->addWidget(logLabel, 1, 0);
    grid->addWidget(m_logFile, 1, 1);
    grid->addWidget(m_editor, 2, 0, 1, 2);
    grid->addWidget(m_suppress, 3, 0, 1, 2);
    grid->addWidget(m_refresh, 4, 0, 1, 2);

    QHBoxLayout* buttons = MakeOkCancelRow(*this);
    auto* column = new QVBoxLayout(this);
    column->addWidget(group);
    column->addLayout(buttons);
}

bool COptionsDlg::OnInitDialog()
{
    const std::int32_t flags = m_sources.pProfile->GetProfileInt(Setting::OptFlags);
    const std::string standard = m_sources.readInstallPath().value_or(kLastResort);
    m_folder->SetFolder(m_sources.pProfile->GetProfileString(Setting::QrbFilePath, standard));
    m_suppress->setChecked((flags & kOptSuppressErrors) != 0);
    m_refresh->setChecked((flags & kOptRefreshViews) != 0);
    const auto logFile = m_sources.readLogFile();
    if (logFile) {
        m_logFile->setText(ShownText(*logFile));
    }
    return logFile.has_value();
}

bool COptionsDlg::DoModal()
{
    return OnInitDialog() && exec() == Accepted;
}

void COptionsDlg::accept()
{
    std::int32_t flags = 0;
    flags |= m_suppress->isChecked() ? kOptSuppressErrors : 0;
    flags |= m_refresh->isChecked() ? kOptRefreshViews : 0;
    m_sources.pProfile->WriteProfileInt(Setting::OptFlags, flags);
    m_sources.pProfile->WriteProfileString(Setting::QrbFilePath, m_folder->Folder());
    QDialog::accept();
}

}  // namespace quorbit
