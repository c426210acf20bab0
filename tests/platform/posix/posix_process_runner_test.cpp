// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_process_runner.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <thread>

#include "support/folder_test.h"
#include "support/scoped_variable.h"
#include "support/wait.h"

namespace quorbit {
namespace {

class PosixProcessRunnerTest : public FolderTest {
protected:
    void WriteScript(const std::string& name, const std::string& text, unsigned mode) const
    {
        WriteContent(Path(name), text);
        SetMode(Path(name), mode);
    }
    [[nodiscard]] Result<ProgramEnd> Shell(const std::string& command)
    {
        return m_runner.RunAndWait({"/bin/sh", "-c", command}, Path());
    }
    [[nodiscard]] std::string Output() const { return ContentOf(Path("out")); }

    PosixProcessRunner m_runner{200};
};

TEST_F(PosixProcessRunnerTest, GivesAProgramItsFolderArgumentsAndAnEmptyInput)
{
    WriteScript("s", "#!/bin/sh\npwd -P > out\nprintf '<%s>' \"$@\" >> out\nwc -c >> out\n", 0755);
    ASSERT_TRUE(m_runner.RunAndWait({Path("s"), "a b", "", "\"*\xFF"}, Path()).Ok());
    EXPECT_EQ(Output(), std::filesystem::canonical(Path()).string() + "\n<a b><><\"*\xFF>0\n");
}

TEST_F(PosixProcessRunnerTest, HandsOnNoneOfTheSettingsOfThisProcess)
{
    const auto oldPipe = std::signal(SIGPIPE, SIG_IGN);
    const auto oldSize = std::signal(SIGXFSZ, SIG_IGN);
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    // Uses shell builtins only: the shell briefly blocks signals while it starts another program.
    const auto done = Shell(
        "{ ulimit -Sn; while read line; do case $line in SigBlk*|SigIgn*) echo $line; esac; done;"
        " read pid name state parent group session terminal rest < /proc/$$/stat;"
        " test $group = $$ && test $session = $$ && echo own;"
        " } < /proc/$$/status > out");
    sigset_t after;
    pthread_sigmask(SIG_SETMASK, &before, &after);
    (void)std::signal(SIGPIPE, oldPipe);
    (void)std::signal(SIGXFSZ, oldSize);

    ASSERT_TRUE(done.Ok());
    EXPECT_EQ(Output(), "200\nSigBlk: 0000000000000000\nSigIgn: 0000000000000000\nown\n");
    EXPECT_EQ(sigismember(&after, SIGUSR1), 1);  // the mask of this process is restored
    EXPECT_EQ(sigismember(&after, SIGUSR2), 0);
}

TEST_F(PosixProcessRunnerTest, SaysHowTheProgramEnded)
{
    EXPECT_EQ(Shell("kill -KILL $$")->signal, "SIGKILL");
    for (const auto handler : {SIG_DFL, SIG_IGN}) {  // an ignored SIGCHLD discards exit statuses
        const auto old = std::signal(SIGCHLD, handler);
        const auto end = Shell("sleep 0.1; echo late >> out; exit 3");
        EXPECT_EQ(end->status, 3);
        EXPECT_EQ(end->signal, "");
        (void)std::signal(SIGCHLD, old);
    }
    EXPECT_EQ(Output(), "late\nlate\n");
}

TEST_F(PosixProcessRunnerTest, SignalsReachTheProgramAndWhatItHasStarted)
{
    // The command substitution is a process of its own and keeps the shell waiting.
    const std::string command =
        "trap 'echo passed >> out; exit 4' TERM; x=$(touch begun; exec sleep 60)";
    {
        const std::jthread other([this] {
            EXPECT_TRUE(Eventually([this] { return ContentOf(Path("begun")).empty(); }));
            m_runner.PassOn(StopSignal::Terminate);
        });
        EXPECT_EQ(Shell(command)->status, 4);
        EXPECT_EQ(Output(), "passed\n");
    }
    std::filesystem::remove(Path("begun"));
    const std::jthread other([this] {
        EXPECT_TRUE(Eventually([this] { return ContentOf(Path("begun")).empty(); }));
        m_runner.Kill();
    });
    EXPECT_EQ(Shell("trap '' INT TERM HUP; touch begun; sleep 60")->signal, "SIGKILL");
    m_runner.PassOn(StopSignal::Interrupt);  // to nobody
}

TEST_F(PosixProcessRunnerTest, SaysWhyAProgramCannotBeStarted)
{
    WriteScript("no-interpreter", "echo never > out\n", 0755);
    WriteScript("lost-interpreter", "#!/nonexistent/sh\n", 0755);
    WriteScript("not-executable", "#!/bin/sh\n", 0644);
    const std::tuple<std::vector<std::string>, std::string, int> cases[] = {
        {{Path("none")}, Path(), ENOENT},
        {{Path("no-interpreter")}, Path(), ENOEXEC},
        {{Path("lost-interpreter")}, Path(), ENOENT},
        {{Path("not-executable")}, Path(), EACCES},
        {{"/bin/true"}, Path("none"), ENOENT},
        {{"/bin/true"}, Path("not-executable"), ENOTDIR},
        {{}, Path(), EINVAL},
        {{"/bin/true", std::string("a\0b", 3)}, Path(), EINVAL},
        {{"/bin/true"}, Path() + std::string("\0b", 2), EINVAL}};
    for (const auto& [arguments, folder, code] : cases) {
        const auto started = m_runner.RunAndWait(arguments, folder);
        ASSERT_FALSE(started.Ok()) << code;
        EXPECT_EQ(started.GetError().Code(), code);
    }
    EXPECT_EQ(Output(), "(none)");
}

TEST_F(PosixProcessRunnerTest, TellsProgramsFromOtherFiles)
{
    WriteScript("tool", "#!/bin/sh\n", 0755);
    Write({"text=text", "folder/", "fifo|"});
    SetMode(Path("fifo"), 0777);
    EXPECT_TRUE(m_runner.IsExecutable(Path("tool")));
    for (const char* name : {"text", "folder", "fifo", "none"}) {
        EXPECT_FALSE(m_runner.IsExecutable(Path(name))) << name;
    }
    EXPECT_TRUE(m_runner.CanRead(Path("text")).Ok());
    EXPECT_EQ(KindOf(m_runner.CanRead(Path("none"))), ErrorKind::Missing);
    EXPECT_EQ(KindOf(m_runner.CanRead(Path("folder"))), ErrorKind::IsAFolder);
    EXPECT_EQ(KindOf(m_runner.CanRead(Path("fifo"))), ErrorKind::NotSupported);

    const ScopedVariable path("PATH", ":relative:" + Path("none") + ":" + Path());
    EXPECT_EQ(m_runner.FindProgram("tool"), Path("tool"));
    for (const char* name : {"text", "folder/tool", ""}) {
        EXPECT_EQ(m_runner.FindProgram(name), "") << name;
    }
}

}  // namespace
}  // namespace quorbit
