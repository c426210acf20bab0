// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/about_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <chrono>

#include "app/identity.h"
#include "batch/machine_values.h"
#include "platform/mount_table.h"
#include "platform/path_text.h"
#include "platform/system_facts.h"

namespace quorbit {
namespace {

QLabel* Text(const QString& text, const char* name, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel* ProductName(QWidget* parent)
{
    QLabel* label = Text(QLatin1String(kProduct), "m_stcName", parent);
    QFont font = label->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.6);
    label->setFont(font);
    return label;
}

QLabel* Link(QWidget* parent)
{
    const QString address = QLatin1String(kWebAddress);
    auto* label =
        new QLabel(QStringLiteral("<a href=\"%1\">%1</a>").arg(address.toHtmlEscaped()), parent);
    label->setTextInteractionFlags(Qt::TextBrowserInteraction);
    label->setOpenExternalLinks(true);
    return label;
}

QString FreeText(const AboutFacts& facts)
{
    if (!facts.freeKb) {
        return QStringLiteral("Unavailable");
    }
    return QStringLiteral("%1 KB Free on %2:")
        .arg(*facts.freeKb)
        .arg(QString::fromStdString(Printable(facts.volume)));
}

}  // namespace

AboutFacts ReadAboutFacts()
{
    constexpr std::chrono::milliseconds kPatience{500};
    AboutFacts facts;
    facts.memoryKb = PhysicalMemoryKb();
    const auto table = ReadMountTable();
    const std::vector<MountEntry> mounts =
        table ? VisibleMounts(*table) : std::vector<MountEntry>();
    if (const MountEntry* mount = MountOf(mounts, MakeAbsolute("."))) {
        facts.volume = VolumeName(mount->mountPoint);
        facts.freeKb = FreeSpaceKb(mount->mountPoint, kPatience);
    }
    return facts;
}

CAboutDlg::CAboutDlg(QWidget* parent, const AboutFacts& facts) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("About QRB"));
    auto* rows = new QFormLayout;
    rows->addRow(QStringLiteral("Physical memory:"),
                 Text(QStringLiteral("%1 KB").arg(facts.memoryKb), "m_stcMemory", this));
    rows->addRow(QStringLiteral("Disk space:"), Text(FreeText(facts), "m_stcFree", this));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* column = new QVBoxLayout(this);
    column->addWidget(ProductName(this));
    column->addWidget(Text(QStringLiteral("Version %1").arg(QLatin1String(QUORBIT_VERSION)),
                           "m_stcVersion", this));
    column->addWidget(Link(this));
    column->addSpacing(fontMetrics().height());
    column->addLayout(rows);
    column->addSpacing(fontMetrics().height());
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace quorbit
