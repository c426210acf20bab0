// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/window_program.h"

#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QProcess>
#include <QSessionManager>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/window/button_style.h"
#include "app/window/program_names.h"
#include "app/window/qrb_app.h"
#include "app/window/qt_prompts.h"
#include "engine/dialog/desktop_text_editor.h"
#include "engine/exit_code.h"
#include "help/tip_dialog.h"
#include "help/tip_file.h"
#include "look/desktop_link_opener.h"
#include "look/dialog_fitter.h"
#include "look/pictures.h"
#include "look/program_style.h"
#include "look/splash_wnd.h"
#include "platform/standard_folders.h"
#include "platform/stop_signals.h"
#include "platform/system_facts.h"

namespace quorbit {
namespace {

constexpr std::chrono::milliseconds kSplashTime{2500};

// Set while the QApplication is created; a message handler of Qt cannot carry a value.
const std::function<int()>* g_onNoDisplay = nullptr;

// Qt calls abort(3) after a fatal message if it cannot connect to the display. Exit with a code
// instead. Of its other messages, show only those about the display (category qt.qpa).
void OnMessageOfStart(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtFatalMsg) {
        std::_Exit((*g_onNoDisplay)());
    }
    if (type != QtDebugMsg && std::string_view(context.category).starts_with("qt.qpa")) {
        std::fprintf(stderr, "quorbit: %s\n", qPrintable(text));
    }
}

void StartInBackground(const std::string& program, const std::vector<std::string>& arguments)
{
    QProcess process;
    process.setProgram(QString::fromStdString(program));
    QStringList words;
    for (const std::string& argument : arguments) {
        words << QFile::decodeName(QByteArray::fromStdString(argument));
    }
    process.setArguments(words);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    (void)process.startDetached();
}

void ShowTips(const SettingsStore& store, Prompts& prompts)
{
    const Profile profile(store);
    CTipDlg({.pProfile = &profile, .pPrompts = &prompts, .path = FindTips(ProgramPath())},
            QApplication::activeWindow())
        .exec();
}

// The objects behind the services.
struct Tools {
    QtPrompts prompts;
    DesktopTextEditor editor;
    DesktopLinkOpener linkOpener;
    QPointer<CMySplashWnd> splash;
};

// Deletes the splash window if the program ends without an event loop, which would otherwise delete
// it.
void EndSplash(const QPointer<CMySplashWnd>& splash)
{
    if (splash) {
        splash->End();
        QCoreApplication::sendPostedEvents(splash, QEvent::DeferredDelete);
    }
}

AppServices MakeServices(Tools& tools)
{
    const SettingsStores stores = OpenSettingsStores();
    return {
        .stores = stores,
        .pPrompts = &tools.prompts,
        .pTextEditor = &tools.editor,
        .pLinkOpener = &tools.linkOpener,
        .endLoop = [](int code) { QCoreApplication::exit(code); },
        .nOpenFileLimit = RaiseOpenFileLimit(),
        .registration = Registration{.program = ProgramPath(),
                                     .dataFolder = SharedDataFolder(),
                                     .systemFolders = SystemDataFolders(),
                                     .startProgram = StartInBackground},
        .showSplash =
            [&tools] { tools.splash = CMySplashWnd::Create(Picture("splash"), kSplashTime); },
        .showTips = [&tools, stores] { ShowTips(stores.profile, tools.prompts); },
    };
}

// Asks to save changes when the desktop session ends. Cancels the logout during a run, or if the
// user cancels.
void OnSessionEnd(CQRBApp& app, QSessionManager& session)
{
    session.setRestartHint(QSessionManager::RestartNever);
    if (session.allowsInteraction()) {
        if (!app.CanCloseFrame()) {
            session.cancel();
        }
        session.release();
    }
}

}  // namespace

int RunInWindow(const CommandLine& line, const char* programName,
                const std::function<int()>& onNoDisplay)
{
    std::string name = programName;
    char* arguments[] = {name.data(), nullptr};
    int count = 1;

    g_onNoDisplay = &onNoDisplay;
    const QtMessageHandler usual = qInstallMessageHandler(OnMessageOfStart);
    // Only the program name is passed: Qt must not interpret the arguments of the program.
    QApplication application(count, arguments);
    qInstallMessageHandler(usual);
    QApplication::setStyle(new ProgramStyle);  // Qt owns it
    DialogFitter fitter;
    application.installEventFilter(&fitter);
    QApplication::setDesktopFileName(QLatin1String(kDesktopId));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(Picture("quorbit"));
    QApplication::setStyle(new ButtonStyle);
    IgnoreWriteSignals();

    Tools tools;
    CQRBApp app(line, MakeServices(tools));
    // StopSignals calls this in its own thread, so queue it for the user interface thread.
    const StopSignals stopSignals([&](StopSignal signal) {
        QMetaObject::invokeMethod(
            &application, [&app, signal] { app.OnStopSignal(signal); }, Qt::QueuedConnection);
    });
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &application,
                     [&app](QSessionManager& session) { OnSessionEnd(app, session); });
    if (!app.InitInstance()) {
        EndSplash(tools.splash);
        return app.ExitInstance(kExitOk);
    }
    return app.ExitInstance(QApplication::exec());
}

}  // namespace quorbit
