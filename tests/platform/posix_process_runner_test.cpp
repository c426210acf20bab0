// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix_process_runner.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <string>

#include "support/scoped_variable.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

class PosixProcessRunnerTest : public testing::Test {
protected:
    [[nodiscard]] std::string PathOf(const std::string& name) const
    {
        return m_folder.Path() + "/" + name;
    }
    void WriteScript(const std::string& name, const std::string& text, mode_t mode) const
    {
        WriteContent(PathOf(name), text);
        ASSERT_EQ(::chmod(PathOf(name).c_str(), mode), 0);
    }
    [[nodiscard]] Status Shell(const std::string& command)
    {
        return m_runner.RunAndWait({"/bin/sh", "-c", command}, m_folder.Path());
    }
    [[nodiscard]] std::string Output() const { return ContentOf(PathOf("out")); }

    TempFolder m_folder;
    PosixProcessRunner m_runner{200};
};

TEST_F(PosixProcessRunnerTest, GivesAProgramItsFolderArgumentsAndAnEmptyInput)
{
    WriteScript("s", "#!/bin/sh\npwd -P > out\nprintf '<%s>' \"$@\" >> out\nwc -c >> out\n", 0755);
    ASSERT_TRUE(m_runner.RunAndWait({PathOf("s"), "a b", "", "\"*\xFF"}, m_folder.Path()).Ok());
    EXPECT_EQ(Output(),
              std::filesystem::canonical(m_folder.Path()).string() + "\n<a b><><\"*\xFF>0\n");
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
    // With the shell's own means: while it starts another program, it blocks signals for a moment.
    const Status done = Shell(
        "{ ulimit -Sn; while read line; do case $line in SigBlk*|SigIgn*) echo $line; esac; done;"
        " read pid name state parent group rest < /proc/$$/stat; test $group = $$ && echo own "
        "group;"
        " } < /proc/$$/status > out");
    sigset_t after;
    pthread_sigmask(SIG_SETMASK, &before, &after);
    (void)std::signal(SIGPIPE, oldPipe);
    (void)std::signal(SIGXFSZ, oldSize);

    ASSERT_TRUE(done.Ok());
    EXPECT_EQ(Output(), "200\nSigBlk: 0000000000000000\nSigIgn: 0000000000000000\nown group\n");
    EXPECT_EQ(sigismember(&after, SIGUSR1), 1);  // and leaves those of this process as they were
    EXPECT_EQ(sigismember(&after, SIGUSR2), 0);
}

TEST_F(PosixProcessRunnerTest, ComesBackHoweverTheProgramEnds)
{
    EXPECT_TRUE(Shell("sleep 0.1; echo late > out; exit 3").Ok());
    EXPECT_EQ(Output(), "late\n");
    EXPECT_TRUE(Shell("kill -KILL $$").Ok());
    const auto old = std::signal(SIGCHLD, SIG_IGN);
    const Status withoutStatus = Shell("sleep 0.1; echo later > out");
    (void)std::signal(SIGCHLD, old);
    EXPECT_TRUE(withoutStatus.Ok());
    EXPECT_EQ(Output(), "later\n");
}

TEST_F(PosixProcessRunnerTest, SaysWhyAProgramCannotBeStarted)
{
    WriteScript("no-interpreter", "echo never > out\n", 0755);
    WriteScript("lost-interpreter", "#!/nonexistent/sh\n", 0755);
    WriteScript("not-executable", "#!/bin/sh\n", 0644);
    const std::string here = m_folder.Path();
    struct Case {
        std::vector<std::string> arguments;
        std::string folder;
        int code;
    };
    const Case cases[] = {
        {{PathOf("none")}, here, ENOENT},
        {{PathOf("no-interpreter")}, here, ENOEXEC},
        {{PathOf("lost-interpreter")}, here, ENOENT},
        {{PathOf("not-executable")}, here, EACCES},
        {{"/bin/true"}, PathOf("none"), ENOENT},
        {{"/bin/true"}, PathOf("not-executable"), ENOTDIR},
        {{}, here, EINVAL},
        {{"/bin/true", std::string("a\0b", 3)}, here, EINVAL},
        {{"/bin/true"}, here + std::string("\0b", 2), EINVAL},
    };
    for (const Case& c : cases) {
        const Status started = m_runner.RunAndWait(c.arguments, c.folder);
        ASSERT_FALSE(started.Ok()) << c.code;
        EXPECT_EQ(started.GetError().Code(), c.code);
    }
    EXPECT_FALSE(std::filesystem::exists(PathOf("out")));
}

TEST_F(PosixProcessRunnerTest, WorksWhereTheStandardDescriptorsAreClosed)
{
    const int in = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 10);
    const int out = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 10);
    ::close(STDIN_FILENO);
    ::close(STDOUT_FILENO);
    const Status done = Shell("wc -c > out");
    const Status failed = m_runner.RunAndWait({PathOf("none")}, m_folder.Path());
    ::dup2(out, STDOUT_FILENO);
    in >= 0 ? ::dup2(in, STDIN_FILENO) : -1;
    ::close(in);
    ::close(out);
    EXPECT_TRUE(done.Ok());
    EXPECT_EQ(Output(), "0\n");
    EXPECT_FALSE(failed.Ok());
}

TEST_F(PosixProcessRunnerTest, TellsProgramsFromOtherFiles)
{
    WriteScript("tool", "#!/bin/sh\n", 0755);
    WriteScript("text", "text", 0644);
    std::filesystem::create_directory(PathOf("folder"));
    ASSERT_EQ(::mkfifo(PathOf("fifo").c_str(), 0777), 0);
    EXPECT_TRUE(m_runner.IsExecutable(PathOf("tool")));
    for (const char* name : {"text", "folder", "fifo", "none"}) {
        EXPECT_FALSE(m_runner.IsExecutable(PathOf(name))) << name;
    }
    EXPECT_TRUE(m_runner.CanRead(PathOf("text")).Ok());
    EXPECT_EQ(m_runner.CanRead(PathOf("none")).GetError().Kind(), ErrorKind::Missing);
    EXPECT_EQ(m_runner.CanRead(PathOf("folder")).GetError().Kind(), ErrorKind::IsAFolder);
    EXPECT_EQ(m_runner.CanRead(PathOf("fifo")).GetError().Kind(), ErrorKind::NotSupported);

    const ScopedVariable path("PATH", ":relative:" + PathOf("none") + ":" + m_folder.Path());
    EXPECT_EQ(m_runner.FindProgram("tool"), PathOf("tool"));
    EXPECT_EQ(m_runner.FindProgram("text"), "");
    EXPECT_EQ(m_runner.FindProgram("folder/tool"), "");
    EXPECT_EQ(m_runner.FindProgram(""), "");
}

}  // namespace
}  // namespace quorbit
