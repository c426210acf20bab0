// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The document and its file: New, Open, Save, Save As, and the question before changes are lost.
// User interface thread only.

#pragma once

#include <functional>
#include <string>

#include "batch/prompts.h"
#include "document/command_map.h"
#include "document/qrb_doc.h"
#include "platform/required.h"

namespace quorbit {

struct DocumentFilesServices {
    // A path that was opened or saved.
    Required<std::function<void(const std::string&)>> addRecent;
    // The folder in which a new document is saved.
    Required<std::function<std::string()>> standardFolder;
};

class DocumentFiles : public CommandTarget {
public:
    // doc and prompts must outlive this object.
    DocumentFiles(CQRBDoc& doc, Prompts& prompts, DocumentFilesServices services);

    // Called after the document has become another one or has another name.
    void SetOnRenamed(std::function<void()> onRenamed) { m_onRenamed = std::move(onRenamed); }

    // Absolute path of the file that was last opened or saved; empty for a new document. Other than
    // the document's m_strFilePath it does not follow a save that failed.
    [[nodiscard]] const std::string& PathName() const { return m_strPathName; }
    // For a person: the path, or "Untitled".
    [[nodiscard]] std::string DisplayName() const;

    // Each asks to save first. False if it came to nothing: a person cancelled, or was told why.
    bool NewDocument();
    bool OpenDocumentFile(const std::string& path);

    // False if the document is not saved.
    bool DoSave();
    bool DoSaveAs();
    // Asks what is to become of changes, if there are any. False: go on working with them.
    bool SaveModified();
    // The same where there is no way back: asks until the changes are saved or given up.
    void SaveOrGiveUp();
    // A person is being asked just now whether to save.
    [[nodiscard]] bool IsAsking() const { return m_bAsking; }

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
};

}  // namespace quorbit
