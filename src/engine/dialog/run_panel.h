// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The values of a run in the progress dialog: current file, counters and progress bar. The object
// name of every control is its member name. User interface thread only.

#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QWidget>
#include <string>

#include "engine/dialog/path_label.h"
#include "engine/dialog/run_snapshot.h"

class QGridLayout;
class QGroupBox;

namespace quorbit {

class RunPanel : public QWidget {
public:
    explicit RunPanel(QWidget* parent);

    void ShowValues(const RunValues& values);
    // `text` contains hours, minutes and seconds, formatted as in the log.
    void ShowElapsed(const std::string& text);
    // `text` contains bytes, speed and time left in one line.
    void ShowTransfer(const std::string& text);

private:
    QGroupBox* MakeFileGroup();
    QGroupBox* MakeStatsGroup();
    void AddValue(QGridLayout* grid, int row, int column, const QString& text, QLabel* value);
    void SetTopics();
    void ShowTexts(const RunValues& values);
    void ShowProgress(const RunFigures& figures);

    QLabel* m_stcErrorCount;
    QLabel* m_stcBackupCount;
    QLabel* m_stcTotalCount;
    QLabel* m_stcDidntSyncCount;
    QLabel* m_stcFileSize;
    QLabel* m_stcSyncCount;
    QLabel* m_stcDeleteCount;
    QLabel* m_stcCopyCount;
    QLabel* m_stcElapsed;
    QLabel* m_stcFilesLeft;
    PathLabel* m_stcDestFile;
    QLabel* m_stcFileStatus;
    PathLabel* m_stcCurrentFile;
    QProgressBar* m_progress;
    QLabel* m_stcTransfer;
};

}  // namespace quorbit
