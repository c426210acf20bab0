// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/folder_feed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>
#include <chrono>
#include <memory>

#include "shell_fixture.h"

namespace quorbit {
namespace {

using namespace std::chrono_literals;

class FolderFeedTest : public ShellTest {
protected:
    // False if nobody quits the loop in time.
    bool Run()
    {
        bool inTime = true;
        QTimer::singleShot(30s, &m_loop, [&] {
            inTime = false;
            m_loop.quit();
        });
        m_loop.exec();
        return inTime;
    }
    void RunFor(std::chrono::milliseconds time)
    {
        QTimer::singleShot(time, &m_loop, &QEventLoop::quit);
        m_loop.exec();
    }

private:
    int m_nArguments = 1;
    char m_szName[5] = "test";
    char* m_arguments[2] = {m_szName, nullptr};
    QCoreApplication m_application{m_nArguments, m_arguments};

protected:
    QEventLoop m_loop;
};

TEST_F(FolderFeedTest, DeliversEverythingInPortionsInTheThreadThatMadeIt)
{
    TreeLines tree;
    for (int i = 0; i < 2500; ++i) {
        tree.push_back("f" + std::to_string(i) + "=");
    }
    WriteTree(Path(), tree);
    std::size_t items = 0;
    int ends = 0;
    bool begun = false;
    FolderFeed feed(BindTemp(), {kEverything}, [&](const FolderBatch& batch) {
        EXPECT_TRUE(begun) << "not before the event loop runs";
        EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
        EXPECT_LE(batch.items.size(), 1000U);
        items += batch.items.size();
        ends += batch.ended ? 1 : 0;
        if (batch.ended) {
            m_loop.quit();
        }
    });
    begun = true;
    ASSERT_TRUE(Run());
    RunFor(100ms);
    EXPECT_EQ(items, tree.size());
    EXPECT_EQ(ends, 1);
}

TEST_F(FolderFeedTest, EndsOnceThoughTheEndWasAnnouncedBeforeTheItemsWereTaken)
{
    WriteTree(Path(), {"a="});
    int deliveries = 0;
    FolderFeed feed(BindTemp(), {kEverything}, [&](const FolderBatch& batch) {
        ++deliveries;
        EXPECT_TRUE(batch.ended);
    });
    QThread::msleep(50);  // by now both have been announced
    RunFor(150ms);
    EXPECT_EQ(deliveries, 1);
}

TEST_F(FolderFeedTest, MayBeDestroyedByItsOwnDelivery)
{
    WriteTree(Path(), {"a=", "b="});
    int deliveries = 0;
    std::unique_ptr<FolderFeed> feed;
    feed = std::make_unique<FolderFeed>(BindTemp(), FolderRequest{kEverything}, [&](FolderBatch) {
        ++deliveries;
        feed.reset();
        m_loop.quit();
    });
    ASSERT_TRUE(Run());
    RunFor(100ms);
    EXPECT_EQ(deliveries, 1);
}

TEST_F(FolderFeedTest, DeliversNothingOnceItIsGone)
{
    WriteTree(Path(), {"a="});
    int deliveries = 0;
    {
        FolderFeed feed(BindTemp(), {kEverything}, [&](FolderBatch) { ++deliveries; });
        QThread::msleep(50);  // by now it has posted
    }
    RunFor(100ms);
    EXPECT_EQ(deliveries, 0);
}

}  // namespace
}  // namespace quorbit
