// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads the tips file: plain text in UTF-8, one tip per line.
//
//   ; a comment
//   Drag a folder onto another one to make an entry.
//
// Empty lines and lines that begin with a space, a tab or ";" are not tips. Lines end in LF or CR
// LF. One thread at a time.

#pragma once

#include <QFile>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace quorbit {

// Returns the path of the tips file, absolute or relative: "tips.txt" in the current folder, or the
// file installed for the user or the system (see FindDataFile), or "../share/quorbit/tips.txt"
// relative to the folder of the program. Empty if there is none.
[[nodiscard]] std::string FindTips(const std::string& programPath);

class TipFile {
public:
    // Opens the file at its beginning. Nothing if the path is not a readable regular file.
    [[nodiscard]] static std::optional<TipFile> Open(const std::string& path);

    // The modification time as local time, in the format of asctime(3) without the line end.
    [[nodiscard]] const std::string& TimeStamp() const { return m_timeStamp; }
    // The offset of the next read, in bytes from the beginning of the file.
    [[nodiscard]] std::int64_t Position() const;
    // position: see Position(). Returns false if it is negative or the file cannot be positioned.
    [[nodiscard]] bool Seek(std::int64_t position);

    // Reads the next tip including its line end, and starts again at the beginning after the last
    // one. Splits lines after 999 characters; the rest is read as another line. Sets `tip` to
    // nothing if the file contains no tip. Returns false if the file cannot be read.
    [[nodiscard]] bool Next(std::optional<std::string>& tip);

private:
    TipFile(std::unique_ptr<QFile> file, std::string timeStamp);
    // Returns an empty string at the end of the file.
    [[nodiscard]] std::string ReadLine();

    std::unique_ptr<QFile> m_file;
    std::string m_timeStamp;
};

}  // namespace quorbit
