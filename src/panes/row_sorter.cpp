// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/row_sorter.h"

#include <QMetaObject>
#include <algorithm>
#include <cstddef>
#include <stop_token>
#include <utility>

#include "panes/file_list_columns.h"

namespace quorbit {

namespace {

constexpr std::size_t kPiece = 4096;  // rows sorted between two checks of the stop token

// Bottom-up merge sort, so that `stop` can be checked between the steps.
void Sort(FileRows& rows, int column, const std::stop_token& stop)
{
    const auto above = [column](const ShellListItem* first, const ShellListItem* second) {
        return StandsAbove(*first, *second, column);
    };
    const std::size_t count = rows.order.size();
    const auto at = [&](std::size_t row) {
        return rows.order.begin() + static_cast<std::ptrdiff_t>(std::min(row, count));
    };
    for (std::size_t row = 0; row < count && !stop.stop_requested(); row += kPiece) {
        std::stable_sort(at(row), at(row + kPiece), above);
    }
    for (std::size_t length = kPiece; length < count; length *= 2) {
        for (std::size_t row = 0; row + length < count && !stop.stop_requested();
             row += 2 * length) {
            std::inplace_merge(at(row), at(row + length), at(row + 2 * length), above);
        }
    }
}

}  // namespace

void RowSorter::Start(FileRows rows, int column, Deliver deliver)
{
    Cancel();
    m_receiver = std::make_unique<QObject>();
    m_deliver = std::move(deliver);
    const auto sorted = std::make_shared<FileRows>(std::move(rows));
    const bool started =
        sorted->order.size() > std::size_t{kFew} &&
        m_task.Start([this, sorted, column](BackgroundTask::Link& link) {
            Sort(*sorted, column, link.Stop());
            link.IfWanted([this, sorted] {
                QMetaObject::invokeMethod(
                    m_receiver.get(), [this, sorted] { Finish(*sorted); }, Qt::QueuedConnection);
            });
        });
    if (!started) {  // few rows, or no thread available
        Sort(*sorted, column, {});
        Finish(*sorted);
    }
}

void RowSorter::Cancel()
{
    m_task.Abandon();
    m_receiver.reset();
}

void RowSorter::Finish(FileRows& rows)
{
    Cancel();
    // Move `deliver` out first: it may start another sort.
    const Deliver deliver = std::move(m_deliver);
    deliver(std::move(rows.order));
}

}  // namespace quorbit
