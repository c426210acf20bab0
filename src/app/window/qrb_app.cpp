// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/qrb_app.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <QStatusBar>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <utility>

#include "app/window/about_dialog.h"
#include "app/window/file_type_registration.h"
#include "app/window/program_names.h"
#include "dialogs/options_dialog.h"
#include "document/help_topic.h"
#include "document/help_topics.h"
#include "engine/exit_code.h"
#include "engine/run_context.h"
#include "platform/path_text.h"
#include "platform/staged_file.h"

namespace quorbit {
namespace {

// The run modes with a window; /I has none.
constexpr std::uint32_t kWindowModes = kRunAndQuit | kRunAndStayOpen;

bool IsMissing(const std::string& path)
{
    const auto content = ReadWholeFile(path, 0);
    return !content && content.GetError().Kind() == ErrorKind::Missing;
}

}  // namespace

CQRBApp::CQRBApp(CommandLine line, AppServices services)
    : m_nRunMode(line.nRunMode & kWindowModes),
      m_line(std::move(line)),
      m_services(std::move(services)),
      m_machine(m_services.stores.machine, *this),
      m_profile(m_services.stores.profile),
      m_recent(m_profile),
      m_factory(m_services, m_machine, m_profile, m_recent,
                [this]() -> QWidget* { return m_pMainWnd.get(); }),
      m_run(
          *m_services.pPrompts, [this] { return RunServices(); },
          // In a run mode the window is minimised and would hide its dialogs.
          [this]() -> QWidget* { return m_nRunMode == 0 ? m_pMainWnd.get() : nullptr; }),
      m_doc(m_factory.ForDocument(m_run)),
      m_files(m_doc, *m_services.pPrompts, m_factory.ForFiles([this] { return m_nRunMode == 0; }))
{
}

CQRBApp::~CQRBApp() = default;

// --- start and end ------------------------------------------------------------------------------

bool CQRBApp::InitInstance()
{
    if (!ReadFirstRun()) {
        return false;
    }
    if (!m_bFirstRun && m_nRunMode == 0 && m_services.showSplash) {
        m_services.showSplash();
    }
    const auto helpFile = m_machine.GetRegValue(MachineValue::HelpFile);
    if (!helpFile) {
        return false;
    }
    m_help = std::make_unique<HelpDesk>(
        *helpFile, m_factory.ForHelp([this](int nId) { m_pMainWnd->PostCommand(nId); }));
    RegisterFileTypes();
    if (!ProcessShellCommand()) {
        return false;
    }
    m_pMainWnd->ShowFrame();
    if (m_bFirstRun) {
        OpenHelp();
    }
    if (m_nRunMode != 0) {
        m_pMainWnd->PostCommand(CMD_START_BATCH);
    }
    return !m_endCode;
}

// The first access to the settings. The first start ignores switches; /I comes this far only then,
// so it implies the first start.
bool CQRBApp::ReadFirstRun()
{
    // Ignore an error here: reading the store below reports it.
    (void)EnsureMachineStore(m_services.stores.machine);
    if (!m_machine.GetRegValue(MachineValue::Run1)) {
        return false;
    }
    m_bFirstRun = m_machine.IsFirstRun() || (m_line.nRunMode & kRunInvisible) != 0;
    if (m_bFirstRun) {
        (void)SetUpDefaultEntry(m_services.stores.profile);  // the window works without it
        if (m_line.nRunMode != 0) {
            (void)m_services.pPrompts->Ask(kNoSwitchesOnFirstRun, {}, PromptIcon::Exclamation,
                                           PromptButtons::Ok);
        }
        m_nRunMode = 0;
    }
    return true;
}

void CQRBApp::RegisterFileTypes() const
{
    if (m_services.registration) {
        RegisterShellFileTypes(m_services.stores, m_services.registration->program);
        RegisterWithDesktop(*m_services.registration);
    }
}

bool CQRBApp::ProcessShellCommand()
{
    const bool done =
        m_line.named ? m_files.OpenDocumentFile(m_line.batchFile) : m_files.NewDocument();
    if (!done) {
        m_endCode = kExitNoRun;
        return false;
    }
    ReadScreenSize();
    m_pMainWnd = std::make_unique<CMainFrame>(MainFrameServices());
    m_pMainWnd->MakePanes(m_factory.ForPanes(m_doc, *m_pMainWnd, m_nRunMode));
    SetHelpTopic(*m_pMainWnd->statusBar(), kTopicStatusBar);
    m_files.SetOnRenamed([this] { m_pMainWnd->OnUpdateFrameTitle(); });
    return true;
}

void CQRBApp::ReadScreenSize()
{
    const QSize screen = QGuiApplication::primaryScreen()->availableVirtualGeometry().size();
    m_nScreenCX = screen.width();
    m_nScreenCY = screen.height();
}

FrameServices CQRBApp::MainFrameServices()
{
    return {.pOwner = this,
            .pDoc = &m_doc,
            .pFiles = &m_files,
            .pProfile = &m_profile,
            .pRecent = &m_recent,
            .nRunMode = m_nRunMode,
            .bFirstRun = m_bFirstRun,
            .screen = {m_nScreenCX, m_nScreenCY}};
}

ProgressServices CQRBApp::RunServices()
{
    return m_factory.ForRun(
        *m_pMainWnd, m_nRunMode,
        {.setExitCode = [this](int code) { m_nExitCode = std::max(m_nExitCode, code); },
         .endProgram = [this](int code) { EndProgram(code); }});
}

int CQRBApp::ExitInstance(int result) const
{
    if (m_endCode) {
        return *m_endCode;
    }
    return m_nExitCode > 0 ? m_nExitCode : result;
}

void CQRBApp::FatalMessage(const std::string& text)
{
    const auto tell = [this, text] {
        (void)m_services.pPrompts->Ask(text, {}, PromptIcon::Stop, PromptButtons::Ok);
        EndProgram(kExitOk);
    };
    if (QThread::currentThread() == qApp->thread()) {
        tell();
    } else {
        QMetaObject::invokeMethod(qApp, tell, Qt::QueuedConnection);
    }
}

// Asks to save changes before it leaves the event loop. The first call wins.
void CQRBApp::EndProgram(int code)
{
    if (m_endCode) {
        return;
    }
    m_endCode = code;
    m_files.SaveOrGiveUp();
    m_services.endLoop(code);
}

bool CQRBApp::CanCloseFrame()
{
    return !m_run.IsOpen() && m_files.SaveModified();
}

void CQRBApp::OnFrameClosed()
{
    m_services.endLoop(kExitOk);
}

void CQRBApp::OnStopSignal(StopSignal signal)
{
    if (!m_files.IsAsking()) {
        m_nStopQuestion = m_files.QuestionsAsked() + 1;
        CloseAsExit(signal);
    } else if (m_nStopQuestion == m_files.QuestionsAsked()) {
        EndUnsaved(signal);
    } else {
        m_nStopQuestion = m_files.QuestionsAsked();
    }
}

// Closes open boxes and dialogs first, one per turn of the event loop, because each must return to
// its caller before the next one is closed.
void CQRBApp::CloseAsExit(StopSignal signal)
{
    if (m_run.IsOpen()) {
        m_run.Stop(signal);
    } else if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        dialog->reject();
        QTimer::singleShot(0, qApp, [this, signal] {
            if (!m_files.IsAsking()) {
                CloseAsExit(signal);
            }
        });
    } else if (m_pMainWnd) {
        m_pMainWnd->PostCommand(CMD_EXIT);
    }
}

// A logout or shutdown does not wait for an answer for ever.
void CQRBApp::EndUnsaved(StopSignal signal)
{
    std::fprintf(stderr, "quorbit: ended by %s; the changes to %s were not saved\n", NameOf(signal),
                 m_files.DisplayName().c_str());
    m_endCode = m_endCode.value_or(kExitOk);
    m_services.endLoop(*m_endCode);
}

// --- commands -----------------------------------------------------------------------------------

const CommandMap<CQRBApp>& CQRBApp::Commands()
{
    static const CommandMap<CQRBApp> map{
        {CMD_FILE_NEW, &CQRBApp::OnFileNew},
        {CMD_FILE_OPEN, &CQRBApp::OnFileOpen},
        {{CMD_RECENT_FILE_FIRST, CMD_RECENT_FILE_LAST},
         &CQRBApp::OnOpenRecent,
         &CQRBApp::RecentState},
        {CMD_ABOUT, &CQRBApp::OnAbout},
        {CMD_HELP_INDEX, &CQRBApp::OpenHelp},
        {CMD_HELP_TOPICS, &CQRBApp::OpenHelp},
        {CMD_HELP, &CQRBApp::OpenHelp},
        {CMD_TIP_OF_THE_DAY, &CQRBApp::OnTips, &CQRBApp::TipsState},
    };
    return map;
}

bool CQRBApp::OnCommand(int nId)
{
    return Commands().Run(*this, nId);
}

bool CQRBApp::OnUpdateCommand(int nId, CommandState& state)
{
    return Commands().Update(*this, nId, state);
}

void CQRBApp::OnFileNew()
{
    (void)m_files.NewDocument();
}

void CQRBApp::OnFileOpen()
{
    FileQuestion question;
    question.folder = m_factory.QrbFilePath();
    question.filters = {kDocumentFilter, kAllFilesFilter};
    if (const auto path = m_services.pPrompts->AskOpenFile(question)) {
        (void)m_files.OpenDocumentFile(*path);
    }
}

std::optional<CommandState> CQRBApp::RecentState(int nId) const
{
    const auto index = static_cast<std::size_t>(nId - CMD_RECENT_FILE_FIRST);
    return CommandState{.enabled = index < m_recent.List().size()};
}

void CQRBApp::OnOpenRecent(int nId)
{
    const std::vector<std::string> paths = m_recent.List();
    const auto index = static_cast<std::size_t>(nId - CMD_RECENT_FILE_FIRST);
    if (index >= paths.size()) {  // another process has shortened the list
        return;
    }
    const std::string& path = paths[index];
    if (!IsMissing(path)) {
        (void)m_files.OpenDocumentFile(path);
        return;
    }
    const std::string question =
        Printable(path) + "\nThere is no such file. Take it off the list of recent files?";
    if (m_services.pPrompts->Ask(question, {}, PromptIcon::Exclamation, PromptButtons::YesNo) ==
        PromptAnswer::Yes) {
        m_recent.Remove(path);
    }
}

void CQRBApp::OnAbout()
{
    const LinkServices link{.pOpener = m_services.pLinkOpener, .pPrompts = m_services.pPrompts};
    CAboutDlg(m_pMainWnd.get(), ReadAboutFacts(), link).exec();
}

void CQRBApp::OnTips()
{
    m_services.showTips();
}

std::optional<CommandState> CQRBApp::TipsState() const
{
    return m_services.showTips ? std::optional(CommandState()) : std::nullopt;
}

void CQRBApp::OpenHelp()
{
    m_help->OpenContents();
}

void CQRBApp::OpenHelpOnFocus()
{
    m_help->OpenChapterOf(QApplication::focusWidget());
}

void CQRBApp::ViewLogFile()
{
    if (const auto path = m_machine.GetRegValue(MachineValue::LogFile)) {
        ViewLog(*m_services.pTextEditor, *m_services.pPrompts, *path);
    }
}

void CQRBApp::ShowOptions()
{
    const DialogServices services = m_factory.ForDialogs();
    (void)COptionsDlg(services, m_factory.ForOptions(), m_pMainWnd.get()).DoModal();
}

}  // namespace quorbit
