// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/tip_dialog.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <cstdint>
#include <limits>
#include <utility>

#include "document/help_topic.h"
#include "document/help_topics.h"
#include "look/pictures.h"

namespace quorbit {
namespace {

constexpr const char* kDidYouKnow = "Did you know...";
constexpr const char* kNoFile = "Tips file does not exist in the prescribed directory";
constexpr const char* kTrouble = "Trouble reading the tips file";
constexpr const char* kNoTips = "The tips file holds no tip.";

// The profile stores 32 bits; larger positions restart at the beginning of the file.
std::int32_t StoredPosition(long position)
{
    return position > std::numeric_limits<std::int32_t>::max()
               ? 0
               : static_cast<std::int32_t>(position);
}

}  // namespace

CTipDlg::CTipDlg(TipServices services, QWidget* parent)
    : QDialog(parent),
      m_bStartup(services.pProfile->GetProfileInt(Setting::TipStartUp) <= 0),
      m_services(std::move(services))
{
    OpenTips();
    MakeControls();
    ShowTip();
}

CTipDlg::~CTipDlg()
{
    if (m_tipFile) {
        m_services.pProfile->WriteProfileInt(Setting::TipFilePos,
                                             StoredPosition(m_tipFile->Position()));
    }
}

void CTipDlg::OpenTips()
{
    m_tipFile = TipFile::Open(m_services.path);
    if (!m_tipFile) {
        m_strTip = kNoFile;
        return;
    }
    const Profile& profile = *m_services.pProfile;
    std::int32_t position = profile.GetProfileInt(Setting::TipFilePos);
    // A changed file makes the stored position meaningless, so start at the beginning.
    if (profile.GetProfileString(Setting::TipTimeStamp) != m_tipFile->TimeStamp()) {
        profile.WriteProfileString(Setting::TipTimeStamp, m_tipFile->TimeStamp());
        position = 0;
    }
    if (m_tipFile->Seek(position)) {
        GetNextTip(m_strTip);
    } else {
        TellTrouble();
    }
}

void CTipDlg::GetNextTip(std::string& strTip)
{
    if (!m_tipFile) {
        return;
    }
    std::optional<std::string> tip;
    if (!m_tipFile->Next(tip)) {
        TellTrouble();
        return;
    }
    m_bNoTips = !tip.has_value();
    strTip = std::move(tip).value_or(kNoTips);
}

void CTipDlg::TellTrouble()
{
    (void)m_services.pPrompts->Ask(kTrouble, {}, PromptIcon::Exclamation, PromptButtons::Ok);
}

// The panel that looks like a sheet of paper, in the colours of a text field.
QWidget* CTipDlg::MakePaper()
{
    auto* paper = new QFrame(this);
    paper->setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Sunken));
    paper->setBackgroundRole(QPalette::Base);
    paper->setAutoFillBackground(true);

    const int side = fontMetrics().height() * 5 / 2;
    auto* picture = new QLabel(paper);
    picture->setPixmap(Picture("tip").pixmap(QSize(side, side), devicePixelRatioF()));
    auto* title = new QLabel(QLatin1String(kDidYouKnow), paper);
    title->setForegroundRole(QPalette::Text);
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    title->setFont(font);

    m_editTip = new QPlainTextEdit(paper);
    m_editTip->setObjectName(QStringLiteral("m_editTip"));
    m_editTip->setAccessibleName(QStringLiteral("Tip"));
    m_editTip->setReadOnly(true);
    m_editTip->setTabChangesFocus(true);
    m_editTip->setFrameStyle(QFrame::NoFrame);
    m_editTip->setMinimumSize(fontMetrics().averageCharWidth() * 55, fontMetrics().height() * 7);

    auto* head = new QHBoxLayout;
    head->addWidget(picture);
    head->addWidget(title, 1, Qt::AlignVCenter);
    auto* column = new QVBoxLayout(paper);
    column->addLayout(head);
    column->addWidget(m_editTip, 1);
    return paper;
}

void CTipDlg::MakeControls()
{
    setWindowTitle(QStringLiteral("Tip of the Day"));
    QWidget* paper = MakePaper();
    m_chkStartup = new QCheckBox(QStringLiteral("&Show Tips on StartUp"), this);
    m_chkStartup->setObjectName(QStringLiteral("m_chkStartup"));
    m_chkStartup->setChecked(m_bStartup);
    m_butNextTip = new QPushButton(QStringLiteral("&Next Tip"), this);
    m_butNextTip->setObjectName(QStringLiteral("m_butNextTip"));
    auto* close = new QPushButton(QStringLiteral("&Close"), this);
    close->setObjectName(QStringLiteral("m_butClose"));
    close->setDefault(true);
    connect(m_butNextTip, &QPushButton::clicked, this, [this] { OnNextTip(); });
    connect(close, &QPushButton::clicked, this, [this] { OnOK(); });

    auto* row = new QHBoxLayout;
    row->addWidget(m_chkStartup);
    row->addStretch(1);
    row->addWidget(m_butNextTip);
    row->addWidget(close);
    auto* column = new QVBoxLayout(this);
    column->addWidget(paper, 1);
    column->addLayout(row);
    (m_tipFile ? m_butNextTip : close)->setFocus();
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    SetHelpTopics({
        {m_editTip, kTopicTipText},
        {m_chkStartup, kTopicTipAtStart},
        {m_butNextTip, kTopicTipNext},
        {close, kTopicTipClose},
    });
}

void CTipDlg::ShowTip()
{
    m_editTip->setPlainText(QString::fromUtf8(m_strTip.data(), qsizetype(m_strTip.size())));
    m_butNextTip->setEnabled(m_tipFile.has_value() && !m_bNoTips);
}

void CTipDlg::OnNextTip()
{
    GetNextTip(m_strTip);
    ShowTip();
}

void CTipDlg::OnOK()
{
    accept();
    // The setting is inverted: 0, the default, shows tips at the start.
    m_services.pProfile->WriteProfileInt(Setting::TipStartUp, m_chkStartup->isChecked() ? 0 : 1);
}

}  // namespace quorbit
