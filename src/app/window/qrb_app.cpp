// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/qrb_app.h"

#include <QApplication>
#include <QDialog>
#include <QStatusBar>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "app/window/about_dialog.h"
#include "app/window/identity.h"
#include "batch/reg_key.h"
#include "dialogs/options_dialog.h"
#include "document/help_topic.h"
#include "document/help_topics.h"
#include "engine/exit_code.h"
#include "engine/run_context.h"
#include "look/pictures.h"
#include "platform/native.h"
#include "platform/path_text.h"
#include "platform/shell/desktop_folder.h"
#include "platform/staged_file.h"

namespace quorbit {
namespace {

constexpr const char* kStandardFolder = "c:\\";
constexpr std::uint32_t kAnyRunMode = kRunAndQuit | kRunAndStayOpen | kRunInvisible;

bool IsMissing(const std::string& path)
{
    const auto content = ReadWholeFile(path, 0);
    return !content && content.GetError().Kind() == ErrorKind::Missing;
}

}  // namespace

CQRBApp::CQRBApp(CommandLine line, AppServices services)
    : m_nRunMode(line.nRunMode & kAnyRunMode),
      m_line(std::move(line)),
      m_services(std::move(services)),
      m_machine(m_services.stores.machine, *this),
      m_profile(m_services.stores.profile),
      m_recent(m_profile),
      m_run(
          *m_services.pPrompts, [this] { return MakeProgressServices(); },
          // A minimised window would take the dialog along.
          [this]() -> QWidget* { return m_nRunMode == 0 ? m_pMainWnd.get() : nullptr; }),
      m_desktop(MakeDesktopFolder(SystemShellSources(m_profile.ReadDrives()))),
      m_dlgFileType(MakeDialogServices()),
      m_dlgFile(MakeDialogServices()),
      m_dlgScript(MakeDialogServices()),
      m_doc(MakeDocumentServices()),
      m_files(m_doc, *m_services.pPrompts, MakeFilesServices())
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
    m_help = std::make_unique<HelpDesk>(*helpFile, MakeHelpServices());
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

// The first thing that touches the settings. Switches do not count on the first start.
bool CQRBApp::ReadFirstRun()
{
    // A store that could not be laid down is told by the reading of it.
    (void)EnsureMachineStore(m_services.stores.machine);
    if (!m_machine.GetRegValue(MachineValue::Run1)) {
        return false;
    }
    m_bFirstRun = m_machine.IsFirstRun();
    if (m_bFirstRun) {
        if (m_nRunMode != 0) {
            (void)m_services.pPrompts->Ask(kNoSwitchesOnFirstRun, {}, PromptIcon::Exclamation,
                                           PromptButtons::Ok);
        }
        m_nRunMode = 0;
    }
    return true;
}

void CQRBApp::RegisterFileTypes()
{
    if (m_services.registration.program.empty()) {
        return;
    }
    RegisterShellFileTypes(m_services.stores, m_services.registration.program);
    RegisterWithDesktop(m_services.registration);
}

bool CQRBApp::ProcessShellCommand()
{
    const bool done =
        m_line.named ? m_files.OpenDocumentFile(m_line.batchFile) : m_files.NewDocument();
    if (!done) {
        m_endCode = kExitNoRun;
        return false;
    }
    m_pMainWnd = std::make_unique<CMainFrame>(*this);
    m_pMainWnd->MakePanes(MakePaneServices());
    SetHelpTopic(*m_pMainWnd->statusBar(), kTopicStatusBar);
    m_files.SetOnRenamed([this] { m_pMainWnd->OnUpdateFrameTitle(); });
    return true;
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

// Changes to the document are not lost with it.
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

void CQRBApp::OnStopSignal()
{
    if (m_run.IsOpen()) {
        m_run.Stop();
    } else if (!m_files.IsAsking()) {
        CloseAsExit();
    }
}

// Boxes and dialogs go first, one at a time: each has to come back to whoever opened it.
void CQRBApp::CloseAsExit()
{
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        dialog->reject();
        QTimer::singleShot(0, qApp, [this] { OnStopSignal(); });
    } else if (m_pMainWnd) {
        m_pMainWnd->PostCommand(CMD_EXIT);
    }
}

// --- commands -----------------------------------------------------------------------------------

bool CQRBApp::OnCommand(int nId)
{
    if (nId >= CMD_RECENT_FILE_FIRST && nId <= CMD_RECENT_FILE_LAST) {
        OnOpenRecent(static_cast<std::size_t>(nId - CMD_RECENT_FILE_FIRST));
        return true;
    }
    switch (nId) {
        case CMD_FILE_NEW:
            (void)m_files.NewDocument();
            return true;
        case CMD_FILE_OPEN:
            OnFileOpen();
            return true;
        case CMD_ABOUT:
            OnAbout();
            return true;
        case CMD_HELP_INDEX:
        case CMD_HELP_TOPICS:
        case CMD_HELP:
            OpenHelp();
            return true;
        case CMD_TIP_OF_THE_DAY:
            if (m_services.showTips) {
                m_services.showTips();
            }
            return m_services.showTips != nullptr;
        default:
            return false;
    }
}

bool CQRBApp::OnUpdateCommand(int nId, CommandState& state)
{
    if (nId >= CMD_RECENT_FILE_FIRST && nId <= CMD_RECENT_FILE_LAST) {
        state.enabled =
            static_cast<std::size_t>(nId - CMD_RECENT_FILE_FIRST) < m_recent.List().size();
        return true;
    }
    switch (nId) {
        case CMD_FILE_NEW:
        case CMD_FILE_OPEN:
        case CMD_ABOUT:
        case CMD_HELP_INDEX:
        case CMD_HELP_TOPICS:
        case CMD_HELP:
            state.enabled = true;
            return true;
        case CMD_TIP_OF_THE_DAY:
            return m_services.showTips != nullptr;
        default:
            return false;
    }
}

std::optional<std::string> CQRBApp::InstallPath() const
{
    CRegKey machine(m_services.stores);
    std::string path;
    const bool read = machine.Open(RegParent::LocalMachine, MachineKeyPath()) &&
                      machine.Read(NameOf(MachineValue::InstallPath), path);
    return read ? std::optional(path) : std::nullopt;
}

// The folder in which File Open starts.
std::string CQRBApp::QrbFilePath() const
{
    return m_profile.GetProfileString(Setting::QrbFilePath,
                                      InstallPath().value_or(kStandardFolder));
}

void CQRBApp::OnFileOpen()
{
    FileQuestion question;
    question.folder = QrbFilePath();
    question.filters = {kDocumentFilter, kAllFilesFilter};
    if (const auto path = m_services.pPrompts->AskOpenFile(question)) {
        (void)m_files.OpenDocumentFile(*path);
    }
}

void CQRBApp::OnOpenRecent(std::size_t index)
{
    const std::vector<std::string> paths = m_recent.List();
    if (index >= paths.size()) {
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
    const LinkServices link{m_services.pLinkOpener, m_services.pPrompts};
    CAboutDlg(m_pMainWnd.get(), ReadAboutFacts(), link).exec();
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
    OptionSources sources;
    sources.pProfile = &m_profile;
    sources.readInstallPath = [this] { return InstallPath(); };
    sources.readLogFile = [this] { return m_machine.GetRegValue(MachineValue::LogFile); };
    const DialogServices services = MakeDialogServices();
    (void)COptionsDlg(services, std::move(sources), m_pMainWnd.get()).DoModal();
}

// --- what the parts below ask for
// -----------------------------------------------------------------

DocumentServices CQRBApp::MakeDocumentServices()
{
    DocumentServices services;
    services.fileTypeDialog = &m_dlgFileType;
    services.fileDialog = &m_dlgFile;
    services.scriptDialog = &m_dlgScript;
    services.runDialog = &m_run;
    services.readDefaultEntry = [this] {
        return DefaultEntry{static_cast<std::uint32_t>(m_profile.GetProfileInt(Setting::FileBits)),
                            m_profile.GetProfileString(Setting::FileTypes)};
    };
    return services;
}

DialogServices CQRBApp::MakeDialogServices()
{
    DialogServices services;
    services.pPrompts = m_services.pPrompts;
    services.pIcons = &m_icons;
    services.desktop = m_desktop;
    services.drives = m_profile.ReadDrives();
    services.pProfile = &m_profile;
    services.parent = [this]() -> QWidget* { return m_pMainWnd.get(); };
    return services;
}

PaneServices CQRBApp::MakePaneServices()
{
    PaneServices services;
    services.pDoc = &m_doc;
    services.pProfile = &m_profile;
    services.pPrompts = m_services.pPrompts;
    services.pIcons = &m_icons;
    services.marks = {Picture("entry-delete"), Picture("entry")};
    services.desktop = m_desktop;
    services.nRunMode = m_nRunMode;
    services.sendCommand = [this](int nId) { (void)m_pMainWnd->OnCmdMsg(nId); };
    services.postCommand = [this](int nId) { m_pMainWnd->PostCommand(nId); };
    services.setActive = [this](CView* view) { m_pMainWnd->Route().SetActiveView(view); };
    services.isFrameMinimised = [this] { return m_pMainWnd->isMinimized(); };
    return services;
}

HelpWindowServices CQRBApp::MakeHelpServices()
{
    HelpWindowServices services;
    services.pProfile = &m_profile;
    if (m_services.showTips) {
        services.showTip = [this] { m_pMainWnd->PostCommand(CMD_TIP_OF_THE_DAY); };
    }
    return services;
}

DocumentFilesServices CQRBApp::MakeFilesServices()
{
    DocumentFilesServices services;
    // What runs by itself every night is not what a person had open last.
    services.addRecent = [this](const std::string& path) {
        if (m_nRunMode == 0) {
            m_recent.Add(path);
        }
    };
    services.standardFolder = [this] { return QrbFilePath(); };
    return services;
}

ProgressServices CQRBApp::MakeProgressServices()
{
    ProgressServices services;
    services.drives = m_profile.ReadDrives();
    m_pRunFiles = MakeFileSystem(services.drives);
    m_pRunProcesses = MakeProcessRunner(m_services.nOpenFileLimit);
    services.pFiles = m_pRunFiles.get();
    services.pProcesses = m_pRunProcesses.get();
    services.pTextEditor = m_services.pTextEditor;
    services.nRunMode = m_nRunMode;
    services.bSyncAtEnd = m_profile.GetProfileInt(Setting::SyncAtEnd) != 0;
    services.readOptFlags = [this] {
        return static_cast<std::uint32_t>(m_profile.GetProfileInt(Setting::OptFlags));
    };
    services.installPath = [this] { return m_machine.GetRegValue(MachineValue::InstallPath); };
    services.storeLogPath = [this](const std::string& path) {
        return m_machine.SetRegValue(NameOf(MachineValue::LogFile), path);
    };
    services.readLogPath = [this] { return m_machine.GetRegValue(MachineValue::LogFile); };
    services.setExitCode = [this](int code) { m_nExitCode = std::max(m_nExitCode, code); };
    services.postRefresh = [this] { m_pMainWnd->PostCommand(CMD_REFRESH); };
    services.postExit = [this] { m_pMainWnd->PostCommand(CMD_EXIT); };
    services.endProgram = [this](int code) { EndProgram(code); };
    return services;
}

}  // namespace quorbit
