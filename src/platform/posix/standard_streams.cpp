// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/file_io.h"

namespace quorbit {

void ReserveStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) >= 0 || errno != EBADF) {
            continue;
        }
        // In the direction that the stream does not use, so that its use fails (EBADF). open(2)
        // returns the lowest free descriptor, which is this one, since all below are open.
        const int opened = ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        if (opened >= 0 && opened != stream) {
            ::close(opened);
        }
    }
}

Status WriteStandardOutput(std::string_view text)
{
    return WriteAll(STDOUT_FILENO, text);
}

}  // namespace quorbit
