// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/folder_feed.h"

#include <QMetaObject>
#include <chrono>
#include <cstddef>
#include <utility>

namespace quorbit {

namespace {

constexpr std::size_t kMostItems = 1000;
constexpr std::chrono::milliseconds kPause{33};

}  // namespace

FolderFeed::FolderFeed(ShellFolderPtr folder, const FolderRequest& request, Deliver deliver)
    : m_deliver(std::move(deliver)), m_reader(std::move(folder), request, [this] {
          QMetaObject::invokeMethod(
              &m_receiver, [this] { OnNews(); }, Qt::QueuedConnection);
      })
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(kPause);
    QObject::connect(&m_pause, &QTimer::timeout, &m_receiver, [this] {
        if (m_bNews) {
            DeliverNow();
        }
    });
}

void FolderFeed::OnNews()
{
    m_bNews = true;
    if (!m_pause.isActive()) {
        DeliverNow();
    }
}

void FolderFeed::DeliverNow()
{
    FolderBatch batch = m_reader.Take(kMostItems);
    m_bNews = !batch.ended && batch.items.size() == kMostItems;
    if (m_bEnded || (batch.items.empty() && !batch.ended)) {
        return;  // an earlier delivery has already taken these items
    }
    m_bEnded = batch.ended;
    m_pause.start();
    // deliver may destroy the feed, so call a copy and do not use members afterwards.
    const Deliver deliver = m_deliver;
    deliver(std::move(batch));
}

}  // namespace quorbit
