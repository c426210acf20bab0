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

#include <QFile>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace quorbit {

// Full or relative path of the tips: "tips.txt" of the current folder, else the one that is
// installed for the user or the system, else "../share/quorbit/tips.txt" seen from the program.
// Empty if there is none.
[[nodiscard]] std::string FindTips(const std::string& programPath);

class TipFile {
public:
    // Reading starts at the beginning. Nothing if the path is not a readable regular file.
    [[nodiscard]] static std::optional<TipFile> Open(const std::string& path);

    // Last-change time in local time as asctime(3) writes it, without the line end.
    [[nodiscard]] const std::string& TimeStamp() const { return m_timeStamp; }
    // Bytes from the beginning to where the next read starts.
    [[nodiscard]] std::int64_t Position() const;
    [[nodiscard]] bool Seek(std::int64_t position);

    // Reads the next tip with its line end; after the last one follows the first. Of a line of more
    // than 999 characters it gives those, and the rest is read as a line of its own. `tip` is
    // nothing if the whole file contains no tip. Returns false if the file cannot be read.
    [[nodiscard]] bool Next(std::optional<std::string>& tip);

private:
    TipFile(std::unique_ptr<QFile> file, std::string timeStamp);
    // Empty at the end of the file.
    [[nodiscard]] std::string ReadLine();

    std::unique_ptr<QFile> m_file;
    std::string m_timeStamp;
};

}  // namespace quorbit
