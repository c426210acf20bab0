// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/desktop_registration.h"

#include <cstdint>
#include <cstdio>
#include <string_view>

#include "app/window/program_names.h"
#include "platform/path_text.h"
#include "platform/staged_file.h"
#include "platform/standard_folders.h"

namespace quorbit {
namespace {

constexpr std::uint64_t kLargestEntry = 1 << 20;  // bytes

std::string EntryPath(const std::string& dataFolder)
{
    return WithSeparator(dataFolder) + "applications/" + kDesktopId + ".desktop";
}

std::string MimePath(const std::string& dataFolder)
{
    return WithSeparator(dataFolder) + "mime/packages/" + kDesktopId + ".xml";
}

std::string EntryText(const std::string& program)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Version=1.0\n"
           "Name=Quorbit\n"
           "GenericName=Batch File Operations\n"
           "Comment=Copy, sync, back up and delete files with batch files\n" +
           ("Exec=" + ExecArgument(program)) +
           " %f\n"
           "Terminal=false\n"
           "StartupNotify=true\n"
           "Categories=Qt;Utility;FileTools;Archiving;\n" +
           ("MimeType=" + std::string(kMimeType)) + ";\n";
}

std::string MimeText()
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
           "  <mime-type type=\"" +
           std::string(kMimeType) +
           "\">\n"
           "    <comment>Quorbit batch file</comment>\n"
           "    <generic-icon name=\"text-x-script\"/>\n"
           "    <glob pattern=\"*.qrb\"/>\n"
           "  </mime-type>\n"
           "</mime-info>\n";
}

bool Exists(const std::string& path)
{
    const auto content = ReadWholeFile(path, kLargestEntry);
    return content || content.GetError().Kind() != ErrorKind::Missing;
}

bool RemoveFile(const std::string& path)
{
    return std::remove(path.c_str()) == 0;
}

bool StartsProgram(const std::string& entry, const std::string& program)
{
    return entry.find("\nExec=" + ExecArgument(program) + " ") != std::string::npos;
}

// Returns true if an entry is exactly what this program writes, for any program path.
bool IsOwnEntry(const std::string& entry)
{
    const std::string pattern = EntryText({});
    const std::size_t start = pattern.find("\"\" %f");
    const std::string before = pattern.substr(0, start);
    const std::string after = pattern.substr(start + 2);
    return entry.size() >= before.size() + after.size() && entry.starts_with(before) &&
           entry.ends_with(after) &&
           entry.substr(0, entry.size() - after.size()).find('\n', start) == std::string::npos;
}

// Removes files that were written before the program was installed for all users: the user's
// desktop entry would still hide the installed one. Files changed by the user are kept.
void WithdrawFromDesktop(const Registration& registration)
{
    const std::string& data = registration.dataFolder;
    const auto entry = ReadWholeFile(EntryPath(data), kLargestEntry);
    if (entry && IsOwnEntry(*entry) && RemoveFile(EntryPath(data))) {
        registration.startProgram.Get()("update-desktop-database",
                                        {WithSeparator(data) + "applications"});
    }
    const auto type = ReadWholeFile(MimePath(data), kLargestEntry);
    if (type && *type == MimeText() && RemoveFile(MimePath(data))) {
        registration.startProgram.Get()("update-mime-database", {WithSeparator(data) + "mime"});
    }
}

bool WriteNew(const std::string& path, const std::string& content)
{
    return CreateFolders(ParentFolder(path)) && ReplaceFile(path, content);
}

}  // namespace

// Applies two levels of escaping: that of quoted arguments, and that of all strings in a desktop
// entry. A backslash therefore becomes four.
std::string ExecArgument(const std::string& path)
{
    std::string argument = "\"";
    for (const char c : path) {
        switch (c) {
            case '\\':
                argument += "\\\\\\\\";
                break;
            case '"':
            case '`':
            case '$':
                argument += std::string("\\\\") + c;
                break;
            case '%':
                argument += "%%";
                break;
            case '\n':
                argument += "\\n";
                break;
            default:
                argument += c;
        }
    }
    return argument + '"';
}

void RegisterWithDesktop(const Registration& registration)
{
    if (registration.dataFolder.empty()) {
        return;
    }
    for (const std::string& folder : registration.systemFolders) {
        if (folder != registration.dataFolder && Exists(EntryPath(folder))) {
            WithdrawFromDesktop(registration);
            return;
        }
    }
    const std::string& data = registration.dataFolder;
    const auto entry = ReadWholeFile(EntryPath(data), kLargestEntry);
    const bool entryWanted = entry ? !StartsProgram(*entry, registration.program)
                                   : entry.GetError().Kind() == ErrorKind::Missing;
    if (entryWanted && WriteNew(EntryPath(data), EntryText(registration.program))) {
        registration.startProgram.Get()("update-desktop-database",
                                        {WithSeparator(data) + "applications"});
    }
    if (!Exists(MimePath(data)) && WriteNew(MimePath(data), MimeText())) {
        registration.startProgram.Get()("update-mime-database", {WithSeparator(data) + "mime"});
    }
}

}  // namespace quorbit
