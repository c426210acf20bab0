// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/run_panel.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdint>

#include "document/help_topic.h"
#include "document/help_topics.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

// Names hold anything; on the screen they are one line.
QString OnScreen(const std::string& text)
{
    return QString::fromStdString(Printable(text));
}

QString Name(const char* name)
{
    return QString::fromLatin1(name);
}

template <class Widget>
Widget* Named(const char* name, const QString& text, QWidget* pParent)
{
    auto* pWidget = new Widget(pParent);
    pWidget->setObjectName(Name(name));
    pWidget->setText(text);
    return pWidget;
}

// Leaves a label alone that shows the text already.
void Show(QLabel* pLabel, const QString& text)
{
    if (pLabel->text() != text) {
        pLabel->setText(text);
    }
}

// A label that shows a value.
QLabel* Value(const char* name, const char* text, QWidget* pParent)
{
    auto* pLabel = Named<QLabel>(name, Name(text), pParent);
    pLabel->setTextFormat(Qt::PlainText);
    return pLabel;
}

}  // namespace

RunPanel::RunPanel(QWidget* pParent)
    : QWidget(pParent),
      m_stcErrorCount(Value("m_stcErrorCount", "0", this)),
      m_stcBackupCount(Value("m_stcBackupCount", "0", this)),
      m_stcTotalCount(Value("m_stcTotalCount", "0", this)),
      m_stcDidntSyncCount(Value("m_stcDidntSyncCount", "0", this)),
      m_stcFileSize(Value("m_stcFileSize", "0 KB", this)),
      m_stcSyncCount(Value("m_stcSyncCount", "0", this)),
      m_stcDeleteCount(Value("m_stcDeleteCount", "0", this)),
      m_stcCopyCount(Value("m_stcCopyCount", "0", this)),
      m_stcElapsed(Value("m_stcElapsed", "0:0:0", this)),
      m_stcFilesLeft(Value("m_stcFilesLeft", "0", this)),
      m_stcDestFile(Named<PathLabel>("m_stcDestFile", {}, this)),
      m_stcFileStatus(Value("m_stcFileStatus", "No file", this)),
      m_stcCurrentFile(Named<PathLabel>("m_stcCurrentFile", {}, this)),
      m_progress(new QProgressBar(this)),
      m_stcTransfer(Value("m_stcTransfer", "", this))
{
    m_progress->setObjectName(Name("m_progress"));
    m_progress->setAccessibleName(QStringLiteral("Progress"));
    m_progress->setTextVisible(false);
    m_progress->setValue(0);

    auto* pColumn = new QVBoxLayout(this);
    pColumn->setContentsMargins(0, 0, 0, 0);
    pColumn->addWidget(MakeFileGroup());
    pColumn->addWidget(MakeStatsGroup());
    pColumn->addWidget(m_progress);
    pColumn->addWidget(m_stcTransfer);
    SetTopics();
}

void RunPanel::AddValue(QGridLayout* pGrid, int row, int column, const QString& label,
                        QLabel* pValue)
{
    auto* pLabel = new QLabel(label, this);
    // The value keeps its text as its name for a screen reader; what it is a value of is said next.
    pLabel->setBuddy(pValue);
    pValue->setAccessibleDescription(label.chopped(1));
    pGrid->addWidget(pLabel, row, column);
    pGrid->addWidget(pValue, row, column + 1);
}

QGroupBox* RunPanel::MakeFileGroup()
{
    auto* pGroup = new QGroupBox(QStringLiteral("Current File To Process"), this);
    auto* pGrid = new QGridLayout(pGroup);
    pGrid->setHorizontalSpacing(2 * fontMetrics().averageCharWidth());
    AddValue(pGrid, 0, 0, QStringLiteral("Current file:"), m_stcCurrentFile);
    AddValue(pGrid, 1, 0, QStringLiteral("Destination file:"), m_stcDestFile);
    AddValue(pGrid, 2, 0, QStringLiteral("File Status:"), m_stcFileStatus);
    AddValue(pGrid, 3, 0, QStringLiteral("File size:"), m_stcFileSize);
    pGrid->setColumnStretch(1, 1);
    return pGroup;
}

QGroupBox* RunPanel::MakeStatsGroup()
{
    auto* pGroup = new QGroupBox(QStringLiteral("Total Stats"), this);
    auto* pGrid = new QGridLayout(pGroup);
    pGrid->setHorizontalSpacing(2 * fontMetrics().averageCharWidth());
    AddValue(pGrid, 0, 0, QStringLiteral("Elapsed time:"), m_stcElapsed);
    AddValue(pGrid, 1, 0, QStringLiteral("Files left to process:"), m_stcFilesLeft);
    AddValue(pGrid, 2, 0, QStringLiteral("Total count:"), m_stcTotalCount);
    AddValue(pGrid, 3, 0, QStringLiteral("Delete count:"), m_stcDeleteCount);
    AddValue(pGrid, 4, 0, QStringLiteral("Error count:"), m_stcErrorCount);
    AddValue(pGrid, 0, 2, QStringLiteral("Copy count:"), m_stcCopyCount);
    AddValue(pGrid, 1, 2, QStringLiteral("Sync count:"), m_stcSyncCount);
    AddValue(pGrid, 2, 2, QStringLiteral("Didn't Sync count:"), m_stcDidntSyncCount);
    AddValue(pGrid, 3, 2, QStringLiteral("Backup count:"), m_stcBackupCount);
    pGrid->setColumnStretch(1, 1);
    pGrid->setColumnStretch(3, 1);
    return pGroup;
}

void RunPanel::SetTopics()
{
    SetHelpTopics({
        {m_stcCurrentFile, kTopicRunCurrentFile},
        {m_stcDestFile, kTopicRunDestFile},
        {m_stcFileStatus, kTopicRunFileStatus},
        {m_stcFileSize, kTopicRunFileSize},
        {m_stcElapsed, kTopicRunElapsed},
        {m_stcFilesLeft, kTopicRunFilesLeft},
        {m_stcTotalCount, kTopicRunTotalCount},
        {m_stcDeleteCount, kTopicRunDeleteCount},
        {m_stcErrorCount, kTopicRunErrorCount},
        {m_stcCopyCount, kTopicRunCopyCount},
        {m_stcSyncCount, kTopicRunSyncCount},
        {m_stcDidntSyncCount, kTopicRunDidntSyncCount},
        {m_stcBackupCount, kTopicRunBackupCount},
        {m_progress, kTopicRunProgress},
        {m_stcTransfer, kTopicRunTransfer},
    });
}

void RunPanel::ShowValues(const RunValues& values)
{
    ShowTexts(values);
    ShowProgress(values.figures);
}

void RunPanel::ShowElapsed(const std::string& text)
{
    Show(m_stcElapsed, QString::fromStdString(text));
}

void RunPanel::ShowTransfer(const std::string& text)
{
    Show(m_stcTransfer, QString::fromStdString(text));
}

void RunPanel::ShowTexts(const RunValues& values)
{
    const auto showText = [&values](QLabel* pLabel, RunText which) {
        // What was never told keeps its first text.
        if (!values.Text(which).empty()) {
            Show(pLabel, OnScreen(values.Text(which)));
        }
    };
    showText(m_stcCurrentFile, RunText::CurrentFile);
    showText(m_stcDestFile, RunText::DestFile);
    showText(m_stcFileStatus, RunText::Action);
    showText(m_stcFileSize, RunText::FileSize);
    showText(m_stcTotalCount, RunText::TotalCount);

    const auto showCounter = [&values](QLabel* pLabel, RunCounter which) {
        Show(pLabel, QString::number(values.figures.Counter(which)));
    };
    showCounter(m_stcFilesLeft, RunCounter::FilesLeft);
    showCounter(m_stcCopyCount, RunCounter::Copy);
    showCounter(m_stcSyncCount, RunCounter::Sync);
    showCounter(m_stcDeleteCount, RunCounter::Delete);
    showCounter(m_stcDidntSyncCount, RunCounter::DidntSync);
    showCounter(m_stcBackupCount, RunCounter::Backup);
    showCounter(m_stcErrorCount, RunCounter::Error);
}

// The range holds the low 16 bits of the count only. The bar tells the truth beyond as well: it
// fills in proportion, which is one step a file for all counts that fit.
void RunPanel::ShowProgress(const RunFigures& figures)
{
    if (!figures.total) {
        return;
    }
    // A range of nothing would make it a busy indicator.
    m_progress->setRange(0, std::max(*figures.total & 0xFFFF, 1));
    const std::int64_t done = figures.Steps();
    const std::int64_t all = *figures.total;
    if (done > 0 && all > 0) {
        m_progress->setValue(static_cast<int>(m_progress->maximum() * done / all));
    }
}

}  // namespace quorbit
