// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A folder seen at a distance: mounted by bench_slowfs while this object exists. One thread at a
// time.

#pragma once

#include <sys/types.h>

#include <string>

namespace quorbit::bench {

class SlowMount {
public:
    // program: bench_slowfs. Both folders exist. Gives up if it cannot be mounted.
    SlowMount(const std::string& program, const std::string& folder, std::string mountPoint);
    ~SlowMount();
    SlowMount(const SlowMount&) = delete;
    SlowMount& operator=(const SlowMount&) = delete;

    // False if this machine has no FUSE, or the program was not built.
    [[nodiscard]] static bool IsPossible(const std::string& program);

private:
    std::string m_mountPoint;
    pid_t m_process = -1;
};

}  // namespace quorbit::bench
