// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// "Process Files": the window in which a run happens. It starts the run by itself as soon as it is
// up, shows the counters, offers Cancel and Stop Counting, and closes the run. One run a dialog.
//
// The worker never waits for this window: it leaves what is to be shown with the surface, and a
// timer takes it from there up to 30 times a second. The window never waits for the worker either:
// told to close while the worker is in its last steps it closes a moment later, once the worker
// has ended.

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
    // pDoc must outlive the dialog and must not change while the run is on. Every control has the
    // name of its member as object name.
    CProgressDlg(QWidget* parent, const Batch* pDoc, ProgressServices services);
    // Leaves clean flags for the next dialog. A run that is still on is stopped and waited for,
    // with a No to all that it asks.
    ~CProgressDlg() override;

    // The Cancel button, Esc and the close box: closes, if the run is over or was never started;
    // otherwise asks the run to stop.
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
    RunValues m_values;  // as shown
    RateEstimator m_rate;
    bool m_bInitialised = false;
    bool m_bAsking = false;       // the worker waits for an answer
    bool m_bCloseWanted = false;  // as soon as the worker has ended
    bool m_bClosed = false;
};

}  // namespace quorbit
