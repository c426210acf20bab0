// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/desktop_text_editor.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <array>
#include <system_error>

namespace quorbit {
namespace {

// Graphical editors, those of the large desktops first.
constexpr std::array kEditors{
    "gnome-text-editor", "gedit",   "kwrite",  "kate",  "mousepad", "xed",   "pluma",
    "featherpad",        "l3afpad", "leafpad", "geany", "gvim",     "nedit", "emacs",
    "notepadqq",         "scite",   "xedit",
};

// Returns true on a desktop that has default programs. XDG_CURRENT_DESKTOP is set by the login
// manager (Desktop Entry Specification, OnlyShowIn).
bool HasDesktop()
{
    return !qEnvironmentVariableIsEmpty("XDG_CURRENT_DESKTOP");
}

bool OpenWithDesktop(const QString& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

QString FindEditor()
{
    for (const char* name : kEditors) {
        QString program = QStandardPaths::findExecutable(QLatin1String(name));
        if (!program.isEmpty()) {
            return program;
        }
    }
    return {};
}

// QProcess reports the reason only as text, which ends in that of strerror(3).
EditorStart FaultOf(const QString& reason)
{
    struct Fault {
        std::errc code;
        EditorStart start;
    };
    constexpr std::array kFaults{
        Fault{std::errc::not_enough_memory, EditorStart::OutOfMemory},
        Fault{std::errc::resource_unavailable_try_again, EditorStart::OutOfMemory},
        Fault{std::errc::not_a_directory, EditorStart::PathNotFound},
        Fault{std::errc::executable_format_error, EditorStart::BadFormat}};
    for (const Fault& fault : kFaults) {
        if (reason.endsWith(QString::fromStdString(std::make_error_code(fault.code).message()))) {
            return fault.start;
        }
    }
    return EditorStart::FileNotFound;
}

EditorStart StartEditor(const QString& program, const QString& path)
{
    QProcess process;
    process.setProgram(program);
    process.setArguments({path});
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached() ? EditorStart::Started : FaultOf(process.errorString());
}

}  // namespace

EditorStart DesktopTextEditor::Open(const std::string& path)
{
    const QString file = QFile::decodeName(QByteArray::fromStdString(path));
    const QFileInfo info(file);
    if (!info.exists()) {
        return info.dir().exists() ? EditorStart::FileNotFound : EditorStart::PathNotFound;
    }
    if (HasDesktop() && OpenWithDesktop(file)) {
        return EditorStart::Started;
    }
    const QString program = FindEditor();
    if (!program.isEmpty()) {
        return StartEditor(program, file);
    }
    return OpenWithDesktop(file) ? EditorStart::Started : EditorStart::FileNotFound;
}

}  // namespace quorbit
