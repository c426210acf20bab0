// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Owns an open file descriptor.

#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace quorbit {

class UniqueFd {
public:
    UniqueFd() = default;
    // Takes ownership. A negative descriptor means none.
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

    // Closes the descriptor and returns 0 or the errno value of close(2); some file systems report
    // the last write error only here. EINTR is not an error, since Linux closes the descriptor
    // anyway.
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
