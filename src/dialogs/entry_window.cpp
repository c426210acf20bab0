// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/entry_window.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "dialogs/sel_dir_dialog.h"
#include "dialogs/set_attributes_dialog.h"
#include "document/help_topic.h"
#include "document/help_topics.h"

namespace quorbit {
namespace {

QString Text(const char* text)
{
    return QString::fromLatin1(text);
}

SelectionLists* MakeLists(const EntryWindowTexts& texts, QWidget* parent)
{
    return new SelectionLists(Text(texts.chooseLabel), Text(texts.processLabel),
                              SelectionLists::Compare::WholeText, parent);
}

}  // namespace

EntryWindow::EntryWindow(const DialogServices& services, const EntryWindowTexts& texts)
    : QDialog(services.Parent()),
      m_services(services),
      m_source(MakeFolderBox(FolderBox::Role::Source, "source folder", m_pickedSource)),
      m_dest(MakeFolderBox(FolderBox::Role::Destination, "destination folder", m_pickedDest)),
      m_lists(MakeLists(texts, this)),
      m_ok(new QPushButton(QStringLiteral("OK"), this)),
      m_cancel(new QPushButton(QStringLiteral("Cancel"), this)),
      m_advanced(new QPushButton(QStringLiteral("Ad&vanced >>"), this))
{
    setWindowTitle(Text(texts.title));
    m_source->Edit()->setObjectName(QStringLiteral("m_edtSource"));
    m_dest->Edit()->setObjectName(QStringLiteral("m_edtDest"));
    MakeBoxes(texts.boxes);
    MakeButtons();
    LayOut(texts);
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    SetHelpTopics({
        {m_source->Edit(), kTopicSource},
        {m_source->BrowseButton(), kTopicSourceBrowse},
        {m_dest->Edit(), kTopicDest},
        {m_dest->BrowseButton(), kTopicDestBrowse},
        {m_ok, kTopicOk},
        {m_cancel, kTopicCancel},
        {m_advanced, kTopicAdvanced},
    });
}

FolderBox* EntryWindow::MakeFolderBox(FolderBox::Role role, const char* name,
                                      std::optional<std::string>& picked)
{
    const auto pick = [this, &picked](const std::string& start) {
        auto chosen = PickFolder(m_services, this, start);
        if (chosen) {
            picked = chosen;
        }
        return chosen;
    };
    return new FolderBox(m_services, role, Text(name), pick, this);
}

void EntryWindow::MakeBoxes(const std::vector<EntryBoxText>& boxes)
{
    for (const EntryBoxText& entry : boxes) {
        auto* box = new QCheckBox(Text(entry.text), this);
        box->setVisible(entry.shown);
        SetHelpTopic(*box, entry.topic);
        connect(box, &QCheckBox::clicked, this,
                [this, which = entry.box](bool on) { OnBox(which, on); });
        m_boxes[static_cast<std::size_t>(entry.box)] = box;
        m_boxOrder.push_back(box);
    }
}

void EntryWindow::MakeButtons()
{
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this, [this] { accept(); });
    connect(m_cancel, &QPushButton::clicked, this, [this] { reject(); });
    connect(m_advanced, &QPushButton::clicked, this, [this] { OnAdvanced(); });
}

void EntryWindow::LayOut(const EntryWindowTexts& texts)
{
    auto* sourceLabel = new QLabel(QStringLiteral("So&urce folder:"), this);
    auto* destLabel = new QLabel(QStringLiteral("D&estination folder:"), this);
    sourceLabel->setBuddy(m_source->Edit());
    destLabel->setBuddy(m_dest->Edit());
    // Keep the labels level with the text boxes, even while a hint is shown below a box.
    const int height = m_source->Edit()->sizeHint().height();
    sourceLabel->setMinimumHeight(height);
    destLabel->setMinimumHeight(height);
    destLabel->setVisible(texts.showsDest);
    m_dest->setVisible(texts.showsDest);

    auto* folders = new QGridLayout;
    folders->addWidget(sourceLabel, 0, 0, Qt::AlignTop);
    folders->addWidget(m_source, 0, 1);
    folders->addWidget(destLabel, 1, 0, Qt::AlignTop);
    folders->addWidget(m_dest, 1, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(m_cancel);
    buttons->addWidget(m_advanced);

    auto* column = new QVBoxLayout(this);
    column->addLayout(folders);
    for (QCheckBox* box : m_boxOrder) {
        column->addWidget(box);
    }
    column->addWidget(m_lists, 1);
    column->addLayout(buttons);
}

void EntryWindow::AddExtraButton(QPushButton* button)
{
    m_lists->SetExtraButton(button);
}

void EntryWindow::SetTabOrder()
{
    QCheckBox* overwrite = m_boxes[static_cast<std::size_t>(EntryBox::Overwrite)];
    std::vector<QWidget*> chain = {m_source->Edit(), m_source->BrowseButton(), m_dest->Edit(),
                                   m_dest->BrowseButton()};
    for (QCheckBox* box : m_boxOrder) {
        if (box != overwrite) {
            chain.push_back(box);
        }
    }
    const std::vector<QWidget*> lists = m_lists->TabChain();
    chain.insert(chain.end(), lists.begin(), lists.end());
    chain.insert(chain.end(), {m_ok, m_cancel, m_advanced, overwrite});
    for (std::size_t i = 1; i < chain.size(); ++i) {
        setTabOrder(chain[i - 1], chain[i]);
    }
}

void EntryWindow::ShowChecks(const EntryChecks& checks, const EntryChecks& enabled)
{
    for (std::size_t i = 0; i < kEntryBoxes; ++i) {
        if (QCheckBox* box = m_boxes[i]) {
            box->setChecked(checks[static_cast<EntryBox>(i)]);
            box->setEnabled(enabled[static_cast<EntryBox>(i)]);
        }
    }
}

void EntryWindow::Tell(const char* text, const char* caption, PromptIcon icon) const
{
    if (m_services.pPrompts != nullptr) {
        m_services.pPrompts->Ask(text, caption, icon, PromptButtons::Ok);
    }
}

bool EntryWindow::ConfirmDeletion(const std::string& source, bool subFolders) const
{
    const std::string text = "This deletes every file in " + Printable(source) +
                             (subFolders ? " and its sub folders" : "") +
                             ", because no file is listed to be kept.  Do you want that?";
    return m_services.pPrompts != nullptr &&
           m_services.pPrompts->Ask(text, "Warning.", PromptIcon::Exclamation,
                                    PromptButtons::NoYes) == PromptAnswer::Yes;
}

void EntryWindow::done(int result)
{
    QDialog::done(result);
    QWidget* parent = parentWidget() != nullptr ? parentWidget()->window() : nullptr;
    if (parent != nullptr && QGuiApplication::applicationState() == Qt::ApplicationActive) {
        parent->activateWindow();
    }
}

void EntryWindow::OnAdvanced()
{
    CSetAttributes dialog(this);
    dialog.DoModal(Flags());
}

}  // namespace quorbit
