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

// Names may contain control characters; escape them so that the text stays on one line.
QString OnScreen(const std::string& text)
{
    return QString::fromStdString(Printable(text));
}

QString Name(const char* name)
{
    return QString::fromLatin1(name);
}

template <class Widget>
Widget* Named(const char* name, const QString& text, QWidget* parent)
{
    auto* widget = new Widget(parent);
    widget->setObjectName(Name(name));
    widget->setText(text);
    return widget;
}

// Sets the text of a label only if it differs, which avoids repaints.
void Show(QLabel* label, const QString& text)
{
    if (label->text() != text) {
        label->setText(text);
    }
}

// Creates a label for a value.
QLabel* Value(const char* name, const char* text, QWidget* parent)
{
    auto* label = Named<QLabel>(name, Name(text), parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

}  // namespace

RunPanel::RunPanel(QWidget* parent)
    : QWidget(parent),
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

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(MakeFileGroup());
    column->addWidget(MakeStatsGroup());
    column->addWidget(m_progress);
    column->addWidget(m_stcTransfer);
    SetTopics();
}

void RunPanel::AddValue(QGridLayout* grid, int row, int column, const QString& text, QLabel* value)
{
    auto* label = new QLabel(text, this);
    // Screen readers use the text of a label as its name, so give its meaning as description.
    label->setBuddy(value);
    value->setAccessibleDescription(text.chopped(1));
    grid->addWidget(label, row, column);
    grid->addWidget(value, row, column + 1);
}

QGroupBox* RunPanel::MakeFileGroup()
{
    auto* group = new QGroupBox(QStringLiteral("Current File To Process"), this);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(2 * fontMetrics().averageCharWidth());
    AddValue(grid, 0, 0, QStringLiteral("Current file:"), m_stcCurrentFile);
    AddValue(grid, 1, 0, QStringLiteral("Destination file:"), m_stcDestFile);
    AddValue(grid, 2, 0, QStringLiteral("File Status:"), m_stcFileStatus);
    AddValue(grid, 3, 0, QStringLiteral("File size:"), m_stcFileSize);
    grid->setColumnStretch(1, 1);
    return group;
}

QGroupBox* RunPanel::MakeStatsGroup()
{
    auto* group = new QGroupBox(QStringLiteral("Total Stats"), this);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(2 * fontMetrics().averageCharWidth());
    AddValue(grid, 0, 0, QStringLiteral("Elapsed time:"), m_stcElapsed);
    AddValue(grid, 1, 0, QStringLiteral("Files left to process:"), m_stcFilesLeft);
    AddValue(grid, 2, 0, QStringLiteral("Total count:"), m_stcTotalCount);
    AddValue(grid, 3, 0, QStringLiteral("Delete count:"), m_stcDeleteCount);
    AddValue(grid, 4, 0, QStringLiteral("Error count:"), m_stcErrorCount);
    AddValue(grid, 0, 2, QStringLiteral("Copy count:"), m_stcCopyCount);
    AddValue(grid, 1, 2, QStringLiteral("Sync count:"), m_stcSyncCount);
    AddValue(grid, 2, 2, QStringLiteral("Didn't Sync count:"), m_stcDidntSyncCount);
    AddValue(grid, 3, 2, QStringLiteral("Backup count:"), m_stcBackupCount);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return group;
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
    const auto showText = [&values](QLabel* label, RunText which) {
        // Values never reported keep their initial text; an empty one does not apply any more.
        if (const auto& text = values.Text(which)) {
            Show(label, OnScreen(*text));
        }
    };
    showText(m_stcCurrentFile, RunText::CurrentFile);
    showText(m_stcDestFile, RunText::DestFile);
    showText(m_stcFileStatus, RunText::Action);
    showText(m_stcFileSize, RunText::FileSize);
    showText(m_stcTotalCount, RunText::TotalCount);

    const auto showCounter = [&values](QLabel* label, RunCounter which) {
        Show(label, QString::number(values.figures.Counter(which)));
    };
    showCounter(m_stcFilesLeft, RunCounter::FilesLeft);
    showCounter(m_stcCopyCount, RunCounter::Copy);
    showCounter(m_stcSyncCount, RunCounter::Sync);
    showCounter(m_stcDeleteCount, RunCounter::Delete);
    showCounter(m_stcDidntSyncCount, RunCounter::DidntSync);
    showCounter(m_stcBackupCount, RunCounter::Backup);
    showCounter(m_stcErrorCount, RunCounter::Error);
}

// The range contains only the low 16 bits of the count. Larger counts fill the bar in proportion;
// otherwise each file is one step.
void RunPanel::ShowProgress(const RunFigures& figures)
{
    if (!figures.total) {
        return;
    }
    // An empty range would show a busy indicator.
    m_progress->setRange(0, std::max(*figures.total & 0xFFFF, 1));
    const std::int64_t done = figures.Steps();
    const std::int64_t all = *figures.total;
    if (done > 0 && all > 0) {
        m_progress->setValue(static_cast<int>(m_progress->maximum() * done / all));
    }
}

}  // namespace quorbit
