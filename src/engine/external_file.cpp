// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/external_file.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "batch/dir_copy.h"
#include "engine/failure_policy.h"
#include "engine/run_report.h"
#include "platform/path_lookup.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

constexpr const char* kShell = "/bin/sh";

struct Interpreter {
    std::string_view extension;  // lower case
    const char* program;
};
constexpr std::array kInterpreters{
    Interpreter{"js", "node"},    Interpreter{"mjs", "node"},  Interpreter{"cjs", "node"},
    Interpreter{"py", "python3"}, Interpreter{"pl", "perl"},   Interpreter{"rb", "ruby"},
    Interpreter{"sh", "sh"},      Interpreter{"bash", "bash"}, Interpreter{"php", "php"},
    Interpreter{"lua", "lua"},    Interpreter{"tcl", "tclsh"}, Interpreter{"r", "Rscript"},
    Interpreter{"awk", "awk"},    Interpreter{"ps1", "pwsh"},  Interpreter{"zsh", "zsh"},
};

const char* InterpreterFor(const std::string& path)
{
    const std::size_t dot = path.find_last_of("./");
    if (dot == std::string::npos || path[dot] == '/') {
        return nullptr;
    }
    std::string extension = path.substr(dot + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    const auto found = std::find_if(kInterpreters.begin(), kInterpreters.end(),
                                    [&](const Interpreter& i) { return i.extension == extension; });
    return found == kInterpreters.end() ? nullptr : found->program;
}

Result<std::vector<std::string>> InterpretedCommand(ProcessRunner& processes,
                                                    const std::string& path, std::uint32_t dwFlags)
{
    if (dwFlags & DCF_SCRIPT_DOS) {
        return std::vector<std::string>{kShell, path};
    }
    const char* name = InterpreterFor(path);
    if (!name) {
        return Error(ErrorKind::NotSupported, "No program is known that runs this kind of script");
    }
    std::string program = processes.FindProgram(name);
    if (program.empty()) {
        return Error(ErrorKind::NotSupported,
                     "The program that runs this kind of script is not installed");
    }
    return std::vector{std::move(program), path};
}

Result<ProgramEnd> RunScript(CRunContext& ctx, const std::string& path, std::uint32_t dwFlags)
{
    const std::string native = FindNative(path, ctx.m_drives);
    if (native.empty()) {
        return Error(ErrorKind::Missing);
    }
    const std::string script = MakeAbsolute(native);
    auto command = ScriptCommand(*ctx.m_pProcesses, script, dwFlags);
    if (!command) {
        return command.GetError();
    }
    const std::string parent = SplitLast(script).first;
    const std::string folder = parent.empty() ? "/" : parent;
    auto ran = ctx.m_pProcesses->RunAndWait(*command, folder);
    if (ran || ran.GetError().Kind() != ErrorKind::NotAProgram) {
        return ran;
    }
    // NotAProgram: an executable text file without a "#!" line. On a mounted Windows file system,
    // all files can be executable.
    command = InterpretedCommand(*ctx.m_pProcesses, script, dwFlags);
    return command ? ctx.m_pProcesses->RunAndWait(*command, folder)
                   : Result<ProgramEnd>(command.GetError());
}

// Returns how a script failed; empty if it succeeded.
std::string FailureOf(const ProgramEnd& end)
{
    if (!end.signal.empty()) {
        return "The script was ended by " + end.signal;
    }
    return end.status == 0 ? "" : "The script ended with exit status " + std::to_string(end.status);
}

}  // namespace

Result<std::vector<std::string>> ScriptCommand(ProcessRunner& processes,
                                               const std::string& nativePath, std::uint32_t dwFlags)
{
    if (processes.IsExecutable(nativePath)) {
        return std::vector{nativePath};
    }
    const Status readable = processes.CanRead(nativePath);
    if (!readable) {
        return readable.GetError();
    }
    return InterpretedCommand(processes, nativePath, dwFlags);
}

void RunExternalFile(CRunContext& ctx, const std::string& path, std::uint32_t dwFlags)
{
    ShowScript(ctx, path);
    // A script may run for long: write the log lines before it starts.
    FlushLog(ctx);
    const auto ran = RunScript(ctx, path, dwFlags);
    if (!ran) {
        ReportFileError(ctx, {RunOperation::RunScript, path, {}}, ran.GetError());
        ShowCurrentFile(ctx, path, true, false);
    } else if (const std::string failure = FailureOf(*ran); !failure.empty()) {
        ReportWarning(ctx, {RunOperation::RunScript, path, {}}, ErrorKind::Other, failure);
    }
    TakeOffUnit(ctx);
}

}  // namespace quorbit
