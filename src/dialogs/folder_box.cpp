// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/folder_box.h"

#include <QGridLayout>
#include <utility>

#include "batch/dir_copy.h"
#include "dialogs/file_name_text.h"

namespace quorbit {

FolderBox::FolderBox(const DialogServices& services, Role role, const QString& name, Pick pick,
                     QWidget* parent)
    : QWidget(parent),
      m_role(role),
      m_drives(services.drives),
      m_pick(std::move(pick)),
      m_edit(new QLineEdit(this)),
      m_browse(new QPushButton(QStringLiteral("..."), this)),
      m_hint(new QLabel(this)),
      m_completer(*m_edit, services.desktop)
{
    m_edit->setAccessibleName(name);
    m_edit->setMinimumWidth(m_edit->fontMetrics().averageCharWidth() * 40);
    m_browse->setAccessibleName(QStringLiteral("Browse for the %1").arg(name));
    m_browse->setAutoDefault(false);
    m_browse->setFixedWidth(m_browse->fontMetrics().horizontalAdvance(QStringLiteral(" ... ")) * 2);
    m_hint->setText(QStringLiteral("Warning, the path does not exist."));
    if (role != Role::NotOfRun) {
        m_hint->setText(
            m_hint->text() +
            QStringLiteral("  This may cause errors later when running this qrb file."));
    }
    m_hint->setWordWrap(true);
    QFont small = m_hint->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    m_hint->setFont(small);
    m_hint->hide();
    setFocusProxy(m_edit);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_edit, 0, 0);
    grid->addWidget(m_browse, 0, 1);
    grid->addWidget(m_hint, 1, 0, 1, 2);
    connect(m_browse, &QPushButton::clicked, this, [this] { OnBrowse(); });
    connect(m_edit, &QLineEdit::editingFinished, this, [this] { LookForFolder(); });
    connect(m_edit, &QLineEdit::textChanged, this, [this] {
        m_probe.Drop();
        ShowHint(false);
    });
}

void FolderBox::SetFolder(const std::string& folder)
{
    m_strSet = folder;
    m_edit->setText(ShownText(folder));
    m_edit->setCursorPosition(0);
    LookForFolder();
}

std::string FolderBox::Folder() const
{
    return m_edit->text() == ShownText(m_strSet) ? m_strSet : TypedName(m_edit->text());
}

void FolderBox::OnBrowse()
{
    if (const auto chosen = m_pick(Folder())) {
        SetFolder(*chosen);
    }
}

void FolderBox::LookForFolder()
{
    std::string folder = Folder();
    if (folder.empty() || folder == kMyComputer) {
        return;
    }
    if (m_role == Role::Destination && !IsRoot(folder)) {
        folder = ParentFolder(folder);
    }
    const std::string native = ToNative(folder, m_drives);
    if (native.empty()) {
        ShowHint(true);  // the drive is not mapped
        return;
    }
    m_probe.Ask(native, [this](PathKind kind) {
        ShowHint(kind != PathKind::Folder && kind != PathKind::Unknown);
    });
}

void FolderBox::ShowHint(bool show)
{
    FitHint();
    m_hint->setVisible(show);
    // A screen reader does not read a label that appears below the box.
    m_edit->setAccessibleDescription(show ? m_hint->text() : QString());
}

// Qt does not resize a window for a label with word wrap, so set its height here.
void FolderBox::FitHint()
{
    m_hint->setMinimumHeight(m_hint->heightForWidth(width()));
}

void FolderBox::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    FitHint();
}

}  // namespace quorbit
