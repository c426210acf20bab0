// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/folder_feed.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include "shell_fixture.h"

namespace quorbit {
namespace {

class FolderFeedTest : public ShellTest {
    int m_nArguments = 1;
    char m_szName[5] = "test";
    char* m_arguments[2] = {m_szName, nullptr};
    QCoreApplication m_application{m_nArguments, m_arguments};

protected:
    // Serves events for so many milliseconds, or until somebody quits the loop.
    void Run(int milliseconds = 30'000)
    {
        QTimer::singleShot(milliseconds, &m_loop, &QEventLoop::quit);
        m_loop.exec();
    }

    QEventLoop m_loop;
};

TEST_F(FolderFeedTest, DeliversEverythingInPortionsInTheThreadThatMadeIt)
{
    for (int i = 0; i < 2500; ++i)
        Write({"f" + std::to_string(i) + "="});
    std::size_t items = 0;
    int ends = 0;
    bool begun = false;
    FolderFeed feed(BindTemp(), {kEverything}, [&](const FolderBatch& batch) {
        EXPECT_TRUE(begun) << "not before the event loop runs";
        EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
        EXPECT_LE(batch.items.size(), 1000U);
        items += batch.items.size();
        ends += batch.ended ? 1 : 0;
        if (batch.ended)
            m_loop.quit();
    });
    begun = true;
    Run();
    Run(100);
    EXPECT_EQ(items, 2500U);
    EXPECT_EQ(ends, 1);
}

TEST_F(FolderFeedTest, DeliversTheEndOnceAndNothingOnceItIsGone)
{
    Write({"a="});
    int deliveries = 0;
    const auto count = [&](const FolderBatch& batch) {
        ++deliveries;
        EXPECT_TRUE(batch.ended);
    };
    FolderFeed feed(BindTemp(), {kEverything}, count);
    auto gone = std::make_unique<FolderFeed>(BindTemp(), FolderRequest{kEverything}, count);
    QThread::msleep(50);  // by now the items and the end have been announced
    gone.reset();
    Run(150);
    EXPECT_EQ(deliveries, 1);
}

TEST_F(FolderFeedTest, MayBeDestroyedByItsOwnDelivery)
{
    Write({"a=", "b="});
    int deliveries = 0;
    std::unique_ptr<FolderFeed> feed;
    feed = std::make_unique<FolderFeed>(BindTemp(), FolderRequest{kEverything}, [&](FolderBatch) {
        ++deliveries;
        feed.reset();
        m_loop.quit();
    });
    Run();
    Run(100);
    EXPECT_EQ(deliveries, 1);
}

}  // namespace
}  // namespace quorbit
