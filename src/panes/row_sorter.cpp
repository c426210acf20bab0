// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/row_sorter.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <system_error>
#include <thread>
#include <utility>

#include "panes/file_list_columns.h"

namespace quorbit {

namespace {

constexpr std::size_t kPiece = 4096;  // sorted in one go; between two, a job may be given up
constexpr std::chrono::milliseconds kPoll{10};

}  // namespace

struct RowSorter::Job {
    FileRows rows;
    int column = 0;
    std::atomic<bool> givenUp = false;
    std::atomic<bool> sorted = false;  // the thread does not touch the rows any more

    void Run();
};

// A merge sort from the bottom up.
void RowSorter::Job::Run()
{
    const auto above = [this](const ShellListItem* first, const ShellListItem* second) {
        return StandsAbove(*first, *second, column);
    };
    const std::size_t count = rows.order.size();
    const auto at = [&](std::size_t row) {
        return rows.order.begin() + static_cast<std::ptrdiff_t>(std::min(row, count));
    };
    for (std::size_t row = 0; row < count && !givenUp; row += kPiece) {
        std::stable_sort(at(row), at(row + kPiece), above);
    }
    for (std::size_t length = kPiece; length < count; length *= 2) {
        for (std::size_t row = 0; row + length < count && !givenUp; row += 2 * length) {
            std::inplace_merge(at(row), at(row + length), at(row + 2 * length), above);
        }
    }
    sorted = true;
}

RowSorter::RowSorter()
{
    m_poll.setInterval(kPoll);
    QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] { OnPoll(); });
}

RowSorter::~RowSorter()
{
    Cancel();
}

void RowSorter::Start(FileRows rows, int column, Deliver deliver)
{
    Cancel();
    const auto job = std::make_shared<Job>();
    job->rows = std::move(rows);
    job->column = column;
    if (job->rows.order.size() > std::size_t{kFew}) {
        try {
            std::thread([job] { job->Run(); }).detach();
            m_job = job;
            m_deliver = std::move(deliver);
            m_poll.start();
            return;
        } catch (const std::system_error&) {
            // No thread can be had now: the caller has to wait.
        }
    }
    job->Run();
    deliver(std::move(job->rows.order));
}

void RowSorter::Cancel()
{
    m_poll.stop();
    if (m_job != nullptr) {
        std::exchange(m_job, nullptr)->givenUp = true;
    }
}

void RowSorter::OnPoll()
{
    if (m_job->sorted) {
        m_poll.stop();
        const std::shared_ptr<Job> job = std::exchange(m_job, nullptr);
        m_deliver(std::move(job->rows.order));
    }
}

}  // namespace quorbit
