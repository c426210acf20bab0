// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The file with the tips: plain text in UTF-8, a tip a line.
//
//   ; a comment
//   Drag a folder onto another one to make an entry.
//
// A line that begins with a blank, a tab or ";" is no tip, and neither is an empty one. Lines end
// in LF or CR LF. One thread at a time.

#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "platform/error.h"

namespace quorbit {

// Full or relative path of the tips: "tips.txt" of the current folder, else the one that is
// installed for the user or the system, else "../share/quorbit/tips.txt" seen from the program.
// Empty if there is none.
[[nodiscard]] std::string FindTips(const std::string& programPath);

class TipFile {
public:
    // The file must be a regular one. Reading starts at its head.
    [[nodiscard]] static Result<TipFile> Open(const std::string& path);

    // Last-change time in local time as ctime(3) writes it, without the line end.
    [[nodiscard]] const std::string& TimeStamp() const { return m_timeStamp; }
    // Bytes from the head to where the next read starts.
    [[nodiscard]] long Position() const;
    [[nodiscard]] Status Seek(long position);

    // The next tip with its line end; behind the last one comes the first. Of a line of more than
    // 999 characters it gives those, and the rest is read as a line of its own. Nothing if the
    // whole file holds no tip.
    [[nodiscard]] Result<std::optional<std::string>> Next();

private:
    struct Closer {
        void operator()(std::FILE* file) const { (void)std::fclose(file); }
    };
    using FilePtr = std::unique_ptr<std::FILE, Closer>;

    TipFile(FilePtr file, std::string timeStamp);
    // Empty at the end of the file.
    [[nodiscard]] std::string ReadLine();

    FilePtr m_file;
    std::string m_timeStamp;
};

}  // namespace quorbit
