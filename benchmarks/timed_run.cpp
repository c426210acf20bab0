// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/timed_run.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace quorbit::bench {
namespace {

double Seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

std::string Joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

pid_t Start(const Command& command)
{
    for (const auto& [name, value] : command.environment)
        setenv(name.c_str(), value.c_str(), 1);
    std::vector<std::string> arguments = command.arguments;
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t pid = -1;
    const int failure =
        posix_spawnp(&pid, pointers[0], &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0)
        GiveUp(Joined(arguments) + ": " + strerror(failure));
    return pid;
}

}  // namespace

Timing RunTimed(const std::vector<Command>& commands)
{
    using Clock = std::chrono::steady_clock;
    Timing timing;
    const Clock::time_point begin = Clock::now();
    for (const Command& command : commands) {
        const pid_t pid = Start(command);
        int status = 0;
        rusage usage{};
        if (wait4(pid, &status, 0, &usage) != pid)
            GiveUp(std::string("wait4: ") + strerror(errno));
        timing.cpuSeconds += Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
        timing.peakMiB = std::max(timing.peakMiB, static_cast<double>(usage.ru_maxrss) / 1024);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            GiveUp(Joined(command.arguments) + " failed");
    }
    timing.seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    return timing;
}

void GiveUp(const std::string& why)
{
    std::cout.flush();
    std::cerr << "bench: " << why << '\n';
    std::exit(EXIT_FAILURE);
}

}  // namespace quorbit::bench
