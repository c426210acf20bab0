// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// An open file descriptor with one owner.

#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace quorbit {

class UniqueFd {
public:
    UniqueFd() = default;
    // Takes ownership; a negative descriptor stands for none.
    explicit UniqueFd(int fd) : m_nFd(fd) {}
    UniqueFd(UniqueFd&& other) noexcept : m_nFd(other.Release()) {}
    UniqueFd& operator=(UniqueFd&& other) noexcept
    {
        if (this != &other) {
            Close();
            m_nFd = other.Release();
        }
        return *this;
    }
    UniqueFd(const UniqueFd&) = delete;
    UniqueFd& operator=(const UniqueFd&) = delete;
    ~UniqueFd() { Close(); }

    [[nodiscard]] bool IsOpen() const { return m_nFd >= 0; }
    [[nodiscard]] int Get() const { return m_nFd; }
    [[nodiscard]] int Release() { return std::exchange(m_nFd, -1); }

    // 0, or the errno value of close(2): on some file systems the last write error comes here.
    // The descriptor is gone either way, also after EINTR.
    int Close()
    {
        if (m_nFd < 0) {
            return 0;
        }
        return ::close(std::exchange(m_nFd, -1)) == 0 || errno == EINTR ? 0 : errno;
    }

private:
    int m_nFd = -1;
};

}  // namespace quorbit
