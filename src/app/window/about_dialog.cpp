// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/about_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <chrono>

#include "app/window/program_names.h"
#include "batch/machine_values.h"
#include "look/pictures.h"
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

// The program icon next to the name, version and web address.
QLayout* Head(LinkServices services, QWidget* parent)
{
    auto* link = new CHyperLink(services, parent);
    link->setObjectName(QStringLiteral("m_link"));
    link->SetText(QLatin1String(kWebAddress));

    auto* names = new QVBoxLayout;
    names->addWidget(ProductName(parent));
    names->addWidget(Text(QStringLiteral("Version %1").arg(QLatin1String(QUORBIT_VERSION)),
                          "m_stcVersion", parent));
    names->addWidget(link, 0, Qt::AlignLeft);

    const int side = parent->fontMetrics().height() * 4;
    auto* mark = new QLabel(parent);
    mark->setPixmap(Picture("quorbit").pixmap(QSize(side, side), parent->devicePixelRatioF()));
    auto* row = new QHBoxLayout;
    row->setSpacing(parent->fontMetrics().averageCharWidth() * 2);
    row->addWidget(mark, 0, Qt::AlignTop);
    row->addLayout(names, 1);
    return row;
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
    if (const std::string root = VolumeRootOf(MakeAbsolute(".")); !root.empty()) {
        facts.volume = VolumeName(root);
        facts.freeKb = FreeSpaceKb(root, kPatience);
    }
    return facts;
}

CAboutDlg::CAboutDlg(QWidget* parent, const AboutFacts& facts, LinkServices link) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("About QRB"));
    auto* rows = new QFormLayout;
    rows->addRow(QStringLiteral("Physical memory:"),
                 Text(QStringLiteral("%1 KB").arg(facts.memoryKb), "m_stcMemory", this));
    rows->addRow(QStringLiteral("Disk space:"), Text(FreeText(facts), "m_stcFree", this));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* column = new QVBoxLayout(this);
    column->addLayout(Head(link, this));
    column->addSpacing(fontMetrics().height());
    column->addLayout(rows);
    column->addSpacing(fontMetrics().height());
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace quorbit
