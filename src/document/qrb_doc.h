// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The document: a batch and the commands that change it. Uses the dialogs and views only through
// interfaces. User interface thread only. During a run the worker thread reads the batch, so it
// must not change.

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "batch/batch.h"
#include "batch/batch_file.h"
#include "document/command_map.h"
#include "document/command_target.h"
#include "document/entry_dialogs.h"
#include "document/view.h"
#include "platform/code_page.h"

namespace quorbit {

// Flags and masks of the entries that "Add Default" creates.
struct DefaultEntry {
    std::uint32_t fileBits = 1;
    std::string fileTypes = "Default";
};

// Services used by the document. Pointers are not owned and must outlive it. A command whose dialog
// is null does nothing.
struct DocumentServices {
    FileTypeDialog* fileTypeDialog = nullptr;
    FileDialog* fileDialog = nullptr;
    ScriptDialog* scriptDialog = nullptr;
    RunDialog* runDialog = nullptr;
    std::function<DefaultEntry()> readDefaultEntry;  // called at each use
    // Returns the code page of batch files (platform/code_page.h); called at each use.
    std::function<std::int32_t()> readCodePage = [] { return kDefaultCodePage; };
};

class CQRBDoc : public CommandTarget, public Batch {
public:
    CQRBDoc() = default;
    explicit CQRBDoc(DocumentServices services) : m_services(std::move(services)) {}

    // Resets the document to a new, empty one.
    void OnNewDocument();
    // Replaces the contents with those of a batch file. Changes nothing on failure.
    BatchFileStatus OnOpenDocument(const std::string& path);
    // Writes the batch file and replaces it atomically; on failure the old file and
    // m_strFilePath, which names the log of the next run, are unchanged.
    BatchFileStatus OnSaveDocument(const std::string& path);
    // Removes all entries without updating the views.
    void DeleteContents();

    [[nodiscard]] bool IsModified() const { return m_bModified; }
    void SetModifiedFlag(bool modified = true) { m_bModified = modified; }

    [[nodiscard]] const CDirCopy& GetEntry(std::size_t index) const { return m_arrEntries[index]; }
    // Returns the lowest number that no entry has.
    [[nodiscard]] std::uint32_t GetNextId() const;
    // Edits an entry in the dialog of its kind and replaces it on OK. The edited entry gets the
    // lowest free number. Does nothing if there is no such entry.
    void EditEntry(std::uint32_t id);
    void DeleteEntry(std::uint32_t id);

    // Returns true if files, not folders, are selected in the file list.
    [[nodiscard]] bool IsFileSelection() const { return AskPanes().FilesSelected(); }

    // Views are updated in the order in which they were added. Not owned; a view must be removed
    // before it is destroyed.
    void AddView(CView* view);
    void RemoveView(CView* view);
    // Returns the first view of a kind, or null.
    [[nodiscard]] CView* GetView(ViewKind kind) const;
    void UpdateAllViews(CView* sender, int nHint, const HintObject* object = nullptr);
    // Passes a command to all views except one, until one handles it. Returns true if one did.
    bool RouteCmdToViews(CView* activeView, int nId);
    bool RouteUpdateToViews(CView* activeView, int nId, CommandState& state);

    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

private:
    [[nodiscard]] static const CommandMap<CQRBDoc>& Commands();

    void OnNewFileTypeEntry();
    void OnNewFileEntry();
    void OnNewScriptEntry();
    // fileTypes: masks as for SplitMasks.
    void AddDefault(std::uint32_t dwFlags, const std::string& fileTypes);
    [[nodiscard]] DefaultEntry Standard() const;
    void OnStartBatch();

    void Append(CDirCopy entry);
    bool RunDialogFor(const CDirCopy& entry, EntryValues& values);
    // Refills the entry list.
    void RefreshEntries();
    [[nodiscard]] PaneAnswers AskPanes() const;

    DocumentServices m_services;
    std::vector<CView*> m_views;
    bool m_bModified = false;
};

// Splits masks that are joined without a separator ("*.txt*.doc"). Returns "*.*" if there is none.
[[nodiscard]] std::vector<std::string> SplitMasks(const std::string& text);

}  // namespace quorbit
