// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/quorbit_program.h"

#include <sstream>

namespace quorbit {

void QuorbitProgram::WriteBatch(const std::string& relative,
                                const std::vector<CDirCopy>& entries) const
{
    const BatchFileStatus written = WriteBatchFile(Path(relative), {{}, entries});
    ASSERT_TRUE(written) << written.GetError().Text();
}

CDirCopy QuorbitProgram::CopyEntry(const std::string& from, const std::string& to) const
{
    CDirCopy entry(Path(from), Path(to),
                   DCF_NO_ATTRS | DCF_ALL_TYPES | DCF_SUBFOLDERS | DCF_PRESERVE_TREE, DCK_TYPES, 0);
    entry.m_listItems = {"*.*"};
    return entry;
}

ProgramCall QuorbitProgram::Call(const std::vector<std::string>& arguments) const
{
    ProgramCall call;
    call.arguments = {QUORBIT_BINARY};
    call.arguments.insert(call.arguments.end(), arguments.begin(), arguments.end());
    call.environment = {
        {"XDG_CONFIG_HOME", Path("config")},
        {"XDG_STATE_HOME", Path("state")},
        {"XDG_DATA_HOME", Path("data")},
        {"XDG_CACHE_HOME", Path("cache")},
        {"DISPLAY", ""},
        {"WAYLAND_DISPLAY", ""},
        {"QT_QPA_PLATFORM", ""},
    };
    call.folder = Path();
    return call;
}

ProgramResult QuorbitProgram::Run(const std::vector<std::string>& arguments) const
{
    return RunProgram(Call(arguments));
}

void QuorbitProgram::SetUpProgram() const
{
    const ProgramResult result = Run({"--setup"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
}

std::string QuorbitProgram::Log(const std::string& document) const
{
    return ContentOf(Path("state/quorbit/" + document + ".log"));
}

std::map<std::string, std::string> Counts(const std::string& text)
{
    static const std::string kMark = " Count: ";
    std::map<std::string, std::string> counts;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        const std::size_t mark = line.find(kMark);
        const std::size_t start = line.find_first_not_of(' ');
        if (mark == std::string::npos || start >= mark) {
            continue;
        }
        const std::size_t value = mark + kMark.size();
        counts[line.substr(start, mark - start)] =
            line.substr(value, line.find_last_not_of('\r') + 1 - value);
    }
    return counts;
}

bool Contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

}  // namespace quorbit
