// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/qt_prompts.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <cstddef>

#include "batch/machine_values.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

QString ToText(const std::string& text)
{
    return QString::fromStdString(text);
}

QString ToPath(const std::string& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

std::string FromPath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

// Returns null instead of a minimised or hidden window, which would hide the message box.
QWidget* Parent()
{
    QWidget* active = QApplication::activeModalWidget();
    if (active == nullptr) {
        active = QApplication::activeWindow();
    }
    return active != nullptr && active->isVisible() && !active->isMinimized() ? active : nullptr;
}

QMessageBox::Icon IconOf(PromptIcon icon)
{
    switch (icon) {
        case PromptIcon::None:
            break;
        case PromptIcon::Information:
            return QMessageBox::Information;
        case PromptIcon::Exclamation:
            return QMessageBox::Warning;
        case PromptIcon::Question:
            return QMessageBox::Question;
        case PromptIcon::Stop:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

struct Buttons {
    QMessageBox::StandardButtons all;
    QMessageBox::StandardButton first;   // chosen by Enter
    QMessageBox::StandardButton escape;  // chosen by closing the box
};

Buttons ButtonsOf(PromptButtons buttons)
{
    switch (buttons) {
        case PromptButtons::Ok:
            break;
        case PromptButtons::YesNo:
            return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No};
        case PromptButtons::NoYes:
            return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No, QMessageBox::No};
        case PromptButtons::YesNoCancel:
            return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
                    QMessageBox::Cancel};
    }
    return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
}

PromptAnswer AnswerOf(int button)
{
    switch (button) {
        case QMessageBox::Yes:
            return PromptAnswer::Yes;
        case QMessageBox::No:
            return PromptAnswer::No;
        case QMessageBox::Cancel:
            return PromptAnswer::Cancel;
        default:
            return PromptAnswer::Ok;
    }
}

// Returns a filter such as "All Files (*.*)" in the format of Qt. "*.*" stands for all files, but
// Qt would only show names with a dot. Qt takes the pattern from the last brackets and, with
// HideNameFilterDetails, shows the text before them.
QString ToFilter(const std::string& filter)
{
    const std::size_t open = filter.rfind('(');
    const std::string pattern = open == std::string::npos ? "(*)" : filter.substr(open);
    return ToText(filter + " " + (pattern == "(*.*)" ? "(*)" : pattern));
}

void SetUp(QFileDialog& dialog, const FileQuestion& question)
{
    if (!question.caption.empty()) {
        dialog.setWindowTitle(ToText(question.caption));
    }
    if (!question.folder.empty()) {
        dialog.setDirectory(ToPath(question.folder));
    }
    QStringList filters;
    for (const std::string& filter : question.filters) {
        filters << ToFilter(filter);
    }
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    if (!question.name.empty()) {
        dialog.selectFile(ToPath(question.name));
    }
}

}  // namespace

PromptAnswer QtPrompts::Ask(const std::string& text, const std::string& caption, PromptIcon icon,
                            PromptButtons buttons)
{
    const Buttons choice = ButtonsOf(buttons);
    QMessageBox box(Parent());
    box.setWindowTitle(ToText(caption.empty() ? kProduct : caption));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToText(text));
    box.setIcon(IconOf(icon));
    box.setStandardButtons(choice.all);
    box.setDefaultButton(choice.first);
    box.setEscapeButton(choice.escape);
    const int pressed = box.exec();
    return AnswerOf(box.clickedButton() != nullptr ? pressed : choice.escape);
}

std::optional<std::string> QtPrompts::AskOpenFile(const FileQuestion& question)
{
    QFileDialog dialog(Parent());
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    SetUp(dialog, question);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return FromPath(dialog.selectedFiles().constFirst());
}

std::optional<std::string> QtPrompts::AskSaveFile(const FileQuestion& question)
{
    QFileDialog dialog(Parent());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    SetUp(dialog, question);
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const QString typed = dialog.selectedFiles().constFirst();
        const bool bare = QFileInfo(typed).suffix().isEmpty() && !question.defaultSuffix.empty();
        const QString path =
            bare ? typed + QLatin1Char('.') + ToText(question.defaultSuffix) : typed;
        // The dialog has asked about the name as typed, without the suffix added here.
        const bool ask = bare && QFileInfo::exists(path);
        if (!ask || Ask(Printable(FromPath(path)) + " already exists.\nDo you want to replace it?",
                        question.caption, PromptIcon::Exclamation,
                        PromptButtons::YesNo) == PromptAnswer::Yes) {
            return FromPath(path);
        }
    }
    return std::nullopt;
}

}  // namespace quorbit
