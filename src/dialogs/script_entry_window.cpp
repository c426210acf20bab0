// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/script_entry_window.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>

#include "dialogs/file_name_text.h"
#include "dialogs/ok_cancel_row.h"
#include "dialogs/open_dialog.h"
#include "dialogs/remembered_size.h"
#include "document/help_topic.h"
#include "document/help_topics.h"

namespace quorbit {
namespace {

constexpr const char* kWhatHappens =
    "Windows Shell Host Script files or Dos Batch Files can be run in between qrb file entries.  "
    "These files will be run in the in order as they appear.  Continuation of the qrb file will "
    "not happen until the WSH or Dos Batch File has terminated. ";
constexpr const char* kNote =
    "Note:  To terminate a Dos Batch File automatically after the file has finished, edit the "
    "options of your dos boxes to close on exit.  Otherwise you will have to close the dos boxes "
    "before the qrb file will continue.";
constexpr const char* kEnter = "Enter a WSH or Dos Batch File to be added as a qrb file entry:";
constexpr const char* kTypeMissing =
    "You need to select the file type  Windows Shell Host or Dos Batch File before you can go on.";

QLabel* Text(const char* text, QWidget* parent)
{
    auto* label = new QLabel(QString::fromLatin1(text), parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * 75);
    return label;
}

}  // namespace

ScriptEntryWindow::ScriptEntryWindow(const DialogServices& services, ScriptEntryForm form)
    : QDialog(services.Parent()),
      m_services(services),
      m_form(std::move(form)),
      m_file(new QLineEdit(ShownText(m_form.file), this)),
      m_browse(new QPushButton(QStringLiteral("..."), this)),
      m_shellHost(new QRadioButton(QStringLiteral("Windows Shell Host File"), this)),
      m_dosBatch(new QRadioButton(QStringLiteral("Dos Batch File"), this))
{
    setWindowTitle(QStringLiteral("WSH, Dos Batch File Entry"));
    m_file->setAccessibleName(QStringLiteral("script file"));
    m_browse->setAccessibleName(QStringLiteral("Browse for the script file"));
    m_browse->setAutoDefault(false);
    m_browse->setFixedWidth(m_browse->fontMetrics().horizontalAdvance(QStringLiteral(" ... ")) * 2);
    m_shellHost->setChecked(m_form.type == ScriptType::ShellHost);
    m_dosBatch->setChecked(m_form.type == ScriptType::DosBatch);
    connect(m_browse, &QPushButton::clicked, this, [this] { OnBrowse(); });
    LayOut();
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    SetHelpTopics({
        {m_file, kTopicScriptFile},
        {m_browse, kTopicScriptBrowse},
        {m_shellHost, kTopicScriptShellHost},
        {m_dosBatch, kTopicScriptDosBatch},
    });
    m_file->setFocus();
    RememberSize(*this, services.pProfile, Setting::ScriptDialogSize);
}

void ScriptEntryWindow::LayOut()
{
    QLabel* enter = Text(kEnter, this);
    enter->setWordWrap(false);
    enter->setBuddy(m_file);
    auto* file = new QHBoxLayout;
    file->addWidget(m_file, 1);
    file->addWidget(m_browse);

    auto* types = new QGroupBox(QStringLiteral("File Type"), this);
    auto* radios = new QVBoxLayout(types);
    radios->addWidget(m_shellHost);
    radios->addWidget(m_dosBatch);

    QHBoxLayout* buttons = MakeOkCancelRow(*this);

    auto* column = new QVBoxLayout(this);
    column->addWidget(Text(kWhatHappens, this));
    column->addWidget(Text(kNote, this));
    column->addWidget(enter);
    column->addLayout(file);
    column->addWidget(types);
    column->addStretch();
    column->addLayout(buttons);
}

void ScriptEntryWindow::OnBrowse()
{
    std::string path = File();
    if (COpenDialog(m_services, this, path).DoModal(path)) {
        m_form.file = path;
        m_file->setText(ShownText(path));
    }
}

std::string ScriptEntryWindow::File() const
{
    return m_file->text() == ShownText(m_form.file) ? m_form.file : TypedName(m_file->text());
}

void ScriptEntryWindow::accept()
{
    if (!m_shellHost->isChecked() && !m_dosBatch->isChecked()) {
        if (m_services.pPrompts != nullptr) {
            m_services.pPrompts->Ask(kTypeMissing, "", PromptIcon::Exclamation, PromptButtons::Ok);
        }
        return;
    }
    m_form.file = File();
    m_form.type = m_shellHost->isChecked() ? ScriptType::ShellHost : ScriptType::DosBatch;
    QDialog::accept();
}

}  // namespace quorbit
