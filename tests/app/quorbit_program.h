// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the built program from its command line and checks files, log and exit code. Each test has
// its own folder, which also contains the settings.

#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "batch/batch_file.h"
#include "support/folder_test.h"
#include "support/program.h"

namespace quorbit {

class QuorbitProgram : public FolderTest {
protected:
    // Writes a batch file; the path is relative to the folder of the test.
    void WriteBatch(const std::string& relative, const std::vector<CDirCopy>& entries) const;
    // Returns an entry that copies the tree `from` to `to`, both relative to the folder of the
    // test.
    [[nodiscard]] CDirCopy CopyEntry(const std::string& from, const std::string& to) const;

    // Returns the call of the program with these arguments: working folder, XDG folders and no
    // display.
    [[nodiscard]] ProgramCall Call(const std::vector<std::string>& arguments) const;
    [[nodiscard]] ProgramResult Run(const std::vector<std::string>& arguments) const;
    // Completes the first start with --setup.
    void SetUpProgram() const;
    // Returns the log of a document, named without ".qrb", or "(none)" if it does not exist.
    [[nodiscard]] std::string Log(const std::string& document) const;
};

// Returns the totals in a text, keyed by the words before " Count: ".
[[nodiscard]] std::map<std::string, std::string> Counts(const std::string& text);

[[nodiscard]] bool Contains(const std::string& text, const std::string& part);

}  // namespace quorbit
