// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Connects the document with its file: New, Open, Save, Save As, and the question whether to save
// changes. User interface thread only.

#pragma once

#include <functional>
#include <string>

#include "batch/prompts.h"
#include "document/command_map.h"
#include "document/qrb_doc.h"
#include "platform/required.h"

namespace quorbit {

struct DocumentFilesServices {
    // Called with each path that was opened or saved.
    Required<std::function<void(const std::string&)>> addRecent;
    // Returns the default folder for saving a new document.
    Required<std::function<std::string()>> standardFolder;
};

class DocumentFiles : public CommandTarget {
public:
    // doc and prompts must outlive this object.
    DocumentFiles(CQRBDoc& doc, Prompts& prompts, DocumentFilesServices services);

    // Sets the function to call after New, Open or a successful save.
    void SetOnRenamed(std::function<void()> onRenamed) { m_onRenamed = std::move(onRenamed); }

    // Returns the absolute path of the file that was last opened or saved; empty for a new
    // document.
    [[nodiscard]] const std::string& PathName() const { return m_strPathName; }
    // Returns the printable path, or "Untitled".
    [[nodiscard]] std::string DisplayName() const;

    // Both ask to save changes first. They return false if the user cancels, or after showing an
    // error.
    bool NewDocument();
    bool OpenDocumentFile(const std::string& path);

    // Return false if the document was not saved: the user cancelled or an error was shown.
    bool DoSave();
    bool DoSaveAs();
    // Asks whether to save changes, if there are any. Returns false if the document must stay open:
    // the user cancelled, or saving failed.
    bool SaveModified();
    // The same without Cancel: asks until the changes are saved or discarded.
    void SaveOrGiveUp();
    // Returns true while the question whether to save is open.
    [[nodiscard]] bool IsAsking() const { return m_bAsking; }
    // Returns how often that question has been asked, including the open one.
    [[nodiscard]] int QuestionsAsked() const { return m_nQuestions; }

    // CMD_FILE_SAVE, CMD_FILE_SAVE_AS.
    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

private:
    [[nodiscard]] static const CommandMap<DocumentFiles>& Commands();

    bool SaveTo(const std::string& path);
    PromptAnswer AskToSave(PromptButtons buttons);
    void Rename(const std::string& path);

    CQRBDoc& m_doc;
    Prompts& m_prompts;
    DocumentFilesServices m_services;
    std::function<void()> m_onRenamed;
    std::string m_strPathName;
    bool m_bAsking = false;
    int m_nQuestions = 0;
};

}  // namespace quorbit
