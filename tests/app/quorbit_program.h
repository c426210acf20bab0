// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The program as its users meet it: a command line, files, a log, an exit code. Each test has a
// folder of its own, with settings of its own in it.

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
    // A batch file in the folder of the test.
    void WriteBatch(const std::string& relative, const std::vector<CDirCopy>& entries) const;
    // An entry that copies the tree "from" to the tree "to", both in the folder of the test.
    [[nodiscard]] CDirCopy CopyEntry(const std::string& from, const std::string& to) const;

    // How the program is called with these arguments, in the folder of the test, without a display.
    [[nodiscard]] ProgramCall Call(const std::vector<std::string>& arguments) const;
    [[nodiscard]] ProgramResult Run(const std::vector<std::string>& arguments) const;
    // Completes the first start.
    void SetUpProgram() const;
    // The log of the document of this name (without ".qrb"); "(none)" if there is none.
    [[nodiscard]] std::string Log(const std::string& document) const;
};

// The figures of a closing table by the words before " Count: ", wherever in a text it stands.
[[nodiscard]] std::map<std::string, std::string> Counts(const std::string& text);

[[nodiscard]] bool Contains(const std::string& text, const std::string& part);

}  // namespace quorbit
