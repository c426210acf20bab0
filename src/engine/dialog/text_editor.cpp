// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/dialog/text_editor.h"

namespace quorbit {
namespace {

const char* FaultText(EditorStart fault)
{
    switch (fault) {
        case EditorStart::Started:
            break;
        case EditorStart::OutOfMemory:
            return "System out of memory";
        case EditorStart::FileNotFound:
            return "File not found while attempting to open text editor.";
        case EditorStart::PathNotFound:
            return "Path not found while attempting to open text editor.";
        case EditorStart::BadFormat:
            return "Bad format opening text editor.";
    }
    return nullptr;
}

}  // namespace

void ViewLog(TextEditor& editor, Prompts& prompts, const std::string& logPath)
{
    if (const char* fault = FaultText(editor.Open(logPath))) {
        (void)prompts.Ask(fault, "Quorbit", PromptIcon::Stop, PromptButtons::Ok);
    }
}

}  // namespace quorbit
