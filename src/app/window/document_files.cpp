// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/document_files.h"

#include <utility>

#include "app/window/program_names.h"
#include "platform/path_text.h"

namespace quorbit {

DocumentFiles::DocumentFiles(CQRBDoc& doc, Prompts& prompts, DocumentFilesServices services)
    : m_doc(doc), m_prompts(prompts), m_services(std::move(services))
{
}

std::string DocumentFiles::DisplayName() const
{
    return m_strPathName.empty() ? kUntitled : Printable(m_strPathName);
}

void DocumentFiles::Rename(const std::string& path)
{
    m_strPathName = path;
    if (m_onRenamed) {
        m_onRenamed();
    }
}

bool DocumentFiles::NewDocument()
{
    if (!SaveModified()) {
        return false;
    }
    m_doc.OnNewDocument();
    Rename({});
    return true;
}

bool DocumentFiles::OpenDocumentFile(const std::string& path)
{
    if (!SaveModified()) {
        return false;
    }
    const std::string whole = MakeAbsolute(path);
    const BatchFileStatus opened = m_doc.OnOpenDocument(whole);
    if (!opened) {
        (void)m_prompts.Ask(Printable(whole) + "\n" + opened.GetError().Text(), {},
                            PromptIcon::Exclamation, PromptButtons::Ok);
        return false;
    }
    Rename(whole);
    m_services.addRecent(whole);
    return true;
}

bool DocumentFiles::DoSave()
{
    return m_strPathName.empty() ? DoSaveAs() : SaveTo(m_strPathName);
}

bool DocumentFiles::DoSaveAs()
{
    FileQuestion question;
    question.filters = {kDocumentFilter, kAllFilesFilter};
    question.defaultSuffix = kDocumentSuffix;
    if (m_strPathName.empty()) {
        question.folder = m_services.standardFolder();
        question.name = std::string(kUntitled) + "." + kDocumentSuffix;
    } else {
        question.folder = ParentFolder(m_strPathName);
        question.name = SplitLast(m_strPathName).second;
    }
    const auto chosen = m_prompts.AskSaveFile(question);
    return chosen && SaveTo(MakeAbsolute(*chosen));
}

bool DocumentFiles::SaveTo(const std::string& path)
{
    const BatchFileStatus saved = m_doc.OnSaveDocument(path);
    if (!saved) {
        (void)m_prompts.Ask(Printable(path) + "\n" + saved.GetError().Text(), {},
                            PromptIcon::Exclamation, PromptButtons::Ok);
        return false;
    }
    Rename(path);
    m_services.addRecent(path);
    return true;
}

PromptAnswer DocumentFiles::AskToSave(PromptButtons buttons)
{
    m_bAsking = true;
    ++m_nQuestions;
    const PromptAnswer answer = m_prompts.Ask("Save changes to " + DisplayName() + "?", {},
                                              PromptIcon::Exclamation, buttons);
    m_bAsking = false;
    return answer;
}

bool DocumentFiles::SaveModified()
{
    if (!m_doc.IsModified()) {
        return true;
    }
    const PromptAnswer answer = AskToSave(PromptButtons::YesNoCancel);
    return answer == PromptAnswer::No || (answer == PromptAnswer::Yes && DoSave());
}

void DocumentFiles::SaveOrGiveUp()
{
    while (m_doc.IsModified() && AskToSave(PromptButtons::YesNo) == PromptAnswer::Yes) {
        // Saving may fail because of the folder, so offer another one.
        if (DoSave() || (!m_strPathName.empty() && DoSaveAs())) {
            return;
        }
    }
}

const CommandMap<DocumentFiles>& DocumentFiles::Commands()
{
    static const CommandMap<DocumentFiles> map{
        {CMD_FILE_SAVE, &DocumentFiles::DoSave},
        {CMD_FILE_SAVE_AS, &DocumentFiles::DoSaveAs},
    };
    return map;
}

bool DocumentFiles::OnCommand(int nId)
{
    return Commands().Run(*this, nId);
}

bool DocumentFiles::OnUpdateCommand(int nId, CommandState& state)
{
    return Commands().Update(*this, nId, state);
}

}  // namespace quorbit
