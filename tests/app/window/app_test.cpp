// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/app_test.h"

#include <QApplication>
#include <QThread>
#include <QTimer>

#include "batch/batch_file.h"

namespace quorbit {

AppTest::AppTest()
{
    QApplication::setQuitOnLastWindowClosed(false);
}

AppTest::~AppTest() = default;

void AppTest::WriteBatch(const std::string& name, const std::string& from) const
{
    CDirCopy entry(Path(from), Path("to"),
                   DCF_NO_ATTRS | DCF_ALL_TYPES | DCF_SUBFOLDERS | DCF_PRESERVE_TREE, DCK_TYPES, 0);
    entry.m_listItems = {"*.*"};
    ASSERT_TRUE(WriteBatchFile(Path(name), {{}, {entry}}));
}

void AppTest::SetUpProgram() const
{
    ASSERT_TRUE(CompleteSetup(stores.machine));
}

void AppTest::Make(std::uint32_t nRunMode, const std::string& file)
{
    CommandLine line;
    line.nRunMode = nRunMode;
    line.named = !file.empty();
    line.batchFile = file;
    AppServices services{
        .stores = stores,
        .pPrompts = &prompts,
        .pTextEditor = &editor,
        .pLinkOpener = &links,
        .endLoop =
            [this](int code) {
                ended = code;
                // Without a running event loop, Qt would apply exit() to the next one.
                if (QThread::currentThread()->loopLevel() > 0) {
                    QCoreApplication::exit(code);
                }
            },
    };
    app = std::make_unique<CQRBApp>(line, std::move(services));
}

void AppTest::Start(std::uint32_t nRunMode, const std::string& file)
{
    Make(nRunMode, file);
    ASSERT_TRUE(app->InitInstance());
}

int AppTest::Live()
{
    if (!app->InitInstance()) {
        return app->ExitInstance(0);
    }
    QTimer limit;
    QObject::connect(&limit, &QTimer::timeout, [] { QCoreApplication::exit(-1); });
    limit.start(30'000);
    return app->ExitInstance(QApplication::exec());
}

std::string AppTest::Title()
{
    return Frame().windowTitle().toStdString();
}

}  // namespace quorbit
