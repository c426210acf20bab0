// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window_program.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QProcess>
#include <QSessionManager>
#include <QUrl>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/exit_code.h"
#include "app/identity.h"
#include "app/qrb_app.h"
#include "app/qt_prompts.h"
#include "app/stop_notifier.h"
#include "engine/dialog/desktop_text_editor.h"
#include "platform/stop_signals.h"
#include "platform/system_facts.h"
#include "platform/xdg_folders.h"

namespace quorbit {
namespace {

// Qt ends the process by abort(3) where no window can be made; there is a word and an exit code for
// that instead. Of what else Qt says at the start, only the state of the display concerns anybody.
void OnMessageOfStart(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtFatalMsg) {
        std::fputs("quorbit: no window can be opened on this display. Run a batch file with /I.\n",
                   stderr);
        std::_Exit(kExitNoRun);
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

bool OpenHelpFile(const std::string& path)
{
    return QDesktopServices::openUrl(
        QUrl::fromLocalFile(QFile::decodeName(QByteArray::fromStdString(path))));
}

AppServices MakeServices(Prompts& prompts, TextEditor& editor)
{
    AppServices services{OpenSettingsStores()};
    services.pPrompts = &prompts;
    services.pTextEditor = &editor;
    services.nOpenFileLimit = RaiseOpenFileLimit();
    services.registration = {ProgramPath(), SharedDataFolder(), SystemDataFolders(),
                             StartInBackground};
    services.openHelp = OpenHelpFile;
    services.endLoop = [](int code) { QCoreApplication::exit(code); };
    return services;
}

// The session ends: nothing may be lost, and a run is not cut off.
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

int RunInWindow(const CommandLine& line, const char* programName)
{
    std::string name = programName;
    char* arguments[] = {name.data(), nullptr};
    int count = 1;

    const QtMessageHandler usual = qInstallMessageHandler(OnMessageOfStart);
    QApplication application(count, arguments);
    qInstallMessageHandler(usual);
    QApplication::setDesktopFileName(QLatin1String(kDesktopId));
    QApplication::setQuitOnLastWindowClosed(false);
    IgnoreWriteSignals();

    QtPrompts prompts;
    DesktopTextEditor editor;
    CQRBApp app(line, MakeServices(prompts, editor));
    const StopNotifier notifier([&app] { app.OnStopSignal(); });
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &application,
                     [&app](QSessionManager& session) { OnSessionEnd(app, session); });
    if (!app.InitInstance()) {
        return app.ExitInstance(kExitOk);
    }
    return app.ExitInstance(QApplication::exec());
}

}  // namespace quorbit
