// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The "Process Files" dialog: starts the run when it is first shown, shows its progress and offers
// Cancel and Stop Counting. One run per dialog. User interface thread only.
//
// The worker never waits for the display of progress: it stores values in the surface, from where a
// timer reads them up to 30 times per second. It waits only for answers to its questions
// (WorkerPrompt). The dialog does not wait for the worker either: if it is closed while the worker
// finishes, it closes after the worker has ended.

#pragma once

#include <QDialog>
#include <QPushButton>
#include <QTimer>
#include <memory>
#include <string>
#include <thread>

#include "batch/batch.h"
#include "engine/dialog/dialog_surface.h"
#include "engine/dialog/progress_services.h"
#include "engine/dialog/rate_estimator.h"
#include "engine/dialog/run_panel.h"
#include "engine/run_context.h"

namespace quorbit {

class CProgressDlg : public QDialog {
public:
    // pDoc is not owned, must outlive the dialog and must not change during the run. The object
    // name of every control is its member name.
    CProgressDlg(QWidget* parent, const Batch* pDoc, ProgressServices services);
    // Stops a run in progress, answers No to all of its questions and waits for the worker. Resets
    // the global run flags for the next dialog.
    ~CProgressDlg() override;

    // Handles Cancel, Esc and the close button: closes the dialog if the run has ended or was not
    // started, otherwise stops the run.
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void OnInitDialog();
    void OnStartBatch();
    void OnStopCounting();
    void OnViewLog();
    void OnTimer();
    void OnCancel();

    void LayOut();
    void SetTopics();
    QLayout* MakeButtons();

    void StartWorker();
    void RefuseRun(const RunRefusal& refusal);
    void AnswerWorker(const WorkerQuestion& question);
    void EndOfWorker();
    void Close();

    void ShowNewest();
    void ShowStates();
    void ShowElapsed();
    void ShowTransfer();
    void MeasureRate();

    QPushButton* m_btnViewLog;
    QPushButton* m_btnCancel;
    QPushButton* m_btnStopCounting;
    QPushButton* m_btnStart;
    RunPanel* m_pPanel;

    ProgressServices m_services;
    const Batch* m_pDoc;
    DialogSurface m_surface;
    std::unique_ptr<CRunContext> m_pRun;
    std::jthread m_thread;

    QTimer m_timer;
    RunValues m_values;  // values shown
    RateEstimator m_rate;
    bool m_bInitialised = false;
    bool m_bAsking = false;       // the worker waits for an answer
    bool m_bCloseWanted = false;  // close when the worker has ended
    bool m_bClosed = false;
};

}  // namespace quorbit
