// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/progress_dialog.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>
#include <utility>

#include "batch/settings.h"
#include "document/help_topic.h"
#include "document/help_topics.h"
#include "engine/dialog/transfer_text.h"
#include "engine/run_driver.h"
#include "engine/run_flags.h"

namespace quorbit {
namespace {

constexpr int kBetweenLooks = 34;  // ms; updates above 30 per second are not visible

QPushButton* Button(const char* name, const char* text, QWidget* parent)
{
    auto* button = new QPushButton(QString::fromLatin1(text), parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

}  // namespace

CProgressDlg::CProgressDlg(QWidget* parent, const Batch* pDoc, ProgressServices services)
    : QDialog(parent),
      m_btnViewLog(Button("m_btnViewLog", "&View Error/Copy Log", this)),
      m_btnCancel(Button("m_btnCancel", "&Cancel", this)),
      m_btnStopCounting(Button("m_btnStopCounting", "S&top Counting", this)),
      m_btnStart(Button("m_btnStart", "&Start Batch File", this)),
      m_pPanel(new RunPanel(this)),
      m_services(std::move(services)),
      m_pDoc(pDoc)
{
    setWindowTitle(QStringLiteral("Process Files"));
    setModal(true);
    m_btnViewLog->setEnabled(false);
    m_btnCancel->setDefault(true);
    LayOut();
    SetTopics();

    connect(m_btnStart, &QPushButton::clicked, this, &CProgressDlg::OnStartBatch);
    connect(m_btnStopCounting, &QPushButton::clicked, this, &CProgressDlg::OnStopCounting);
    connect(m_btnViewLog, &QPushButton::clicked, this, &CProgressDlg::OnViewLog);
    connect(m_btnCancel, &QPushButton::clicked, this, &CProgressDlg::reject);
    connect(&m_timer, &QTimer::timeout, this, &CProgressDlg::OnTimer);
    m_timer.setTimerType(Qt::PreciseTimer);
}

CProgressDlg::~CProgressDlg()
{
    if (m_thread.joinable()) {
        g_bStopRun = 1;
        // A worker that waits for an answer would block join() forever.
        m_surface.Prompt().Abandon();
        m_thread.join();
    }
    g_bRunStarted = 0;
    g_bStopCounting = 0;
    g_bStopRun = 0;
}

void CProgressDlg::reject()
{
    OnCancel();
}

void CProgressDlg::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!std::exchange(m_bInitialised, true)) {
        OnInitDialog();
    }
}

QLayout* CProgressDlg::MakeButtons()
{
    auto* row = new QHBoxLayout;
    row->addWidget(m_btnStart);
    row->addWidget(m_btnStopCounting);
    row->addWidget(m_btnViewLog);
    row->addStretch();
    row->addWidget(m_btnCancel);
    return row;
}

void CProgressDlg::LayOut()
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_pPanel);
    column->addStretch();
    column->addLayout(MakeButtons());
    setMinimumWidth(fontMetrics().averageCharWidth() * 90);
}

void CProgressDlg::SetTopics()
{
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    SetHelpTopics({
        {m_btnStart, kTopicRunStart},
        {m_btnStopCounting, kTopicRunStopCounting},
        {m_btnViewLog, kTopicRunViewLog},
        {m_btnCancel, kTopicRunCancel},
    });
}

void CProgressDlg::OnInitDialog()
{
    m_btnStopCounting->setEnabled(false);
    const auto start = [this] {
        if (isVisible()) {  // it may have been closed before this event
            m_btnStart->click();
        }
    };
    QMetaObject::invokeMethod(this, start, Qt::QueuedConnection);
}

void CProgressDlg::OnStartBatch()
{
    m_btnStart->setEnabled(false);
    m_btnStopCounting->setEnabled(true);
    RunStart start = StartRun(*m_pDoc, m_surface, m_services.run);
    if (!start.pRun) {
        return RefuseRun(start.refusal);
    }

    m_pRun = std::move(start.pRun);
    MeasureRate();  // what is copied before the first tick counts as well
    m_timer.start(kBetweenLooks);
    g_bRunStarted = 1;
    StartWorker();
    m_btnCancel->setFocus();
}

void CProgressDlg::StartWorker()
{
    m_thread = std::jthread([this] {
        RunThreadProc(m_pRun.get());
        m_surface.SetWorkerDone();
    });
}

void CProgressDlg::RefuseRun(const RunRefusal& refusal)
{
    if (refusal.text.empty()) {
        return Close();  // the fatal error handler exits the program
    }
    (void)m_services.pPrompts->Ask(refusal.text, "", PromptIcon::Stop, PromptButtons::Ok);
    Close();
    if (refusal.bEndsProgram || m_services.run.nRunMode != 0) {
        m_services.endProgram(refusal.exitCode);
    }
}

void CProgressDlg::OnStopCounting()
{
    g_bStopCounting = 1;
    m_btnStopCounting->setEnabled(false);
}

void CProgressDlg::OnViewLog()
{
    if (const auto path = m_services.run.pMachine->GetRegValue(MachineValue::LogFile)) {
        ViewLog(*m_services.pTextEditor, *m_services.pPrompts, *path);
    }
}

void CProgressDlg::OnTimer()
{
    // Check this before reading the values: the values stored before SetWorkerDone() are then
    // included.
    const bool done = m_surface.WorkerDone();
    ShowNewest();
    if (done) {
        EndOfWorker();
    } else if (auto question = m_surface.Prompt().Take()) {
        m_bAsking = true;
        // Queued: a QTimer does not fire again while its handler runs, and the message box may stay
        // open for long.
        const auto ask = [this, question = std::move(*question)] { AnswerWorker(question); };
        QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
    }
}

void CProgressDlg::AnswerWorker(const WorkerQuestion& question)
{
    const QPointer<CProgressDlg> alive(this);  // its event loop may delete this dialog
    const PromptAnswer answer =
        m_services.pPrompts->Ask(question.text, question.caption, question.icon, question.buttons);
    if (!alive) {
        return;
    }
    m_bAsking = false;
    m_surface.Prompt().Answer(answer == PromptAnswer::Yes);
}

void CProgressDlg::EndOfWorker()
{
    m_timer.stop();
    m_thread.join();
    if (m_pRun->m_nExitCode != kExitOk) {
        m_services.setExitCode(m_pRun->m_nExitCode);
    }
    const bool exit = m_values.figures.phase == RunPhase::Closed;
    if (exit || m_bCloseWanted) {
        OnCancel();
    }
    if (exit) {
        m_services.postExit();
    }
}

void CProgressDlg::OnCancel()
{
    const bool over = g_bStopRun && m_btnCancel->text() == u"OK";
    if (!over && g_bRunStarted) {
        g_bStopRun = 1;
    } else if (m_thread.joinable()) {
        m_bCloseWanted = true;
    } else {
        Close();
    }
}

// Requires that the worker has ended, if there was one.
void CProgressDlg::Close()
{
    if (std::exchange(m_bClosed, true)) {
        return;
    }
    m_timer.stop();
    constexpr auto kRefresh = static_cast<std::uint32_t>(kOptRefreshViews);
    if (m_services.run.nRunMode == 0 && g_bRunStarted &&
        (m_services.run.readOptFlags() & kRefresh) != 0) {
        m_services.postRefresh();
    }
    g_bRunStarted = 0;
    if ((m_services.run.nRunMode & kRunAndStayOpen) != 0) {
        if (m_pRun && m_pRun->m_nErrorCount > 0) {
            m_services.setExitCode(kExitErrors);
        }
        m_services.postExit();
    }
    m_pRun.reset();
    QDialog::reject();
}

void CProgressDlg::ShowNewest()
{
    const bool changed = m_surface.Snapshot().Take(m_values);
    if (changed) {
        m_pPanel->ShowValues(m_values);
        ShowStates();
    }
    ShowElapsed();
    // Measure the final values once, then stop.
    const RunFigures& figures = m_values.figures;
    if (changed || figures.phase < RunPhase::Ended) {
        MeasureRate();
    }
    ShowTransfer();
}

void CProgressDlg::ShowStates()
{
    const RunFigures& figures = m_values.figures;
    if (figures.phase > RunPhase::Counting) {
        m_btnStopCounting->setEnabled(false);
    }
    if (figures.phase >= RunPhase::Finishing) {
        m_btnViewLog->setEnabled(true);
    }
    if (figures.phase >= RunPhase::Ended) {
        m_btnCancel->setText(QStringLiteral("OK"));
    }
}

// The clock stops when a stop is requested.
void CProgressDlg::ShowElapsed()
{
    if (g_bStopRun) {
        m_pRun->m_clock.Stop();
    }
    m_pPanel->ShowElapsed(m_pRun->m_clock.Text());
}

void CProgressDlg::ShowTransfer()
{
    const RunFigures& figures = m_values.figures;
    const bool ended = figures.phase >= RunPhase::Ended;
    const bool over = g_bStopRun || ended;
    // No files are left but the run has not ended: it waits for a sync of the disk or for the last
    // script.
    const bool finishing = figures.Steps() > 0 && figures.Counter(RunCounter::FilesLeft) == 0;
    Transfer transfer;
    transfer.bytes = figures.bytes;
    transfer.bytesPerSecond = over ? m_rate.MeanBytesPerSecond() : m_rate.BytesPerSecond();
    if (g_bStopRun && !ended) {
        transfer.note = "stopping after this file";
    } else if (finishing && !over) {
        transfer.note = "finishing";
    } else if (!over) {
        transfer.left = m_rate.TimeLeft();
    }
    m_pPanel->ShowTransfer(TransferText(transfer));
}

void CProgressDlg::MeasureRate()
{
    const RunFigures& figures = m_values.figures;
    RunProgress progress{figures.Steps(), std::nullopt, figures.bytes};
    if (!g_bStopCounting) {
        progress.filesLeft = figures.Counter(RunCounter::FilesLeft);
    }
    const auto now = std::chrono::steady_clock::now();
    if (m_bAsking || !figures.total) {
        m_rate.Skip(now, progress);
    } else {
        m_rate.Update(now, progress);
    }
}

}  // namespace quorbit
