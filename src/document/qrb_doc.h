// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The document: one batch, and the commands that change it. It knows no window: the dialogs and
// panes that it asks are given to it. User interface thread only; during a run the worker reads the
// batch, which nothing changes then.

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

namespace quorbit {

// What "Add Default" makes an entry of.
struct DefaultEntry {
    std::uint32_t fileBits = 1;
    std::string fileTypes = "Default";
};

// What the document asks. Nothing is owned, all of it outlives the document. A command whose dialog
// is null does nothing.
struct DocumentServices {
    FileTypeDialog* fileTypeDialog = nullptr;
    FileDialog* fileDialog = nullptr;
    ScriptDialog* scriptDialog = nullptr;
    RunDialog* runDialog = nullptr;
    std::function<DefaultEntry()> readDefaultEntry;  // read anew at each use
};

class CQRBDoc : public CommandTarget, public Batch {
public:
    CQRBDoc() = default;
    explicit CQRBDoc(DocumentServices services) : m_services(std::move(services)) {}

    // Becomes a new, empty document.
    void OnNewDocument();
    // Replaces the contents by those of the file. On failure nothing changes.
    BatchFileStatus OnOpenDocument(const std::string& path);
    // m_strFilePath becomes path even if the save fails; the file is replaced whole or left as it
    // was.
    BatchFileStatus OnSaveDocument(const std::string& path);
    // Drops all entries; tells nobody.
    void DeleteContents();

    [[nodiscard]] bool IsModified() const { return m_bModified; }
    void SetModifiedFlag(bool modified = true) { m_bModified = modified; }

    [[nodiscard]] const CDirCopy& GetEntry(std::size_t index) const { return m_arrEntries[index]; }
    // The smallest number that no entry has.
    [[nodiscard]] std::uint32_t GetNextId() const;
    // Runs the dialog that fits the entry and puts what comes of it in the entry's place. An id
    // that no entry has does nothing.
    void EditEntry(std::uint32_t id);
    void DeleteEntry(std::uint32_t id);

    // Whether the file list has files selected, not folders.
    [[nodiscard]] bool IsFileSelection() const { return AskPanes().FilesSelected(); }

    // Views are told of changes in the order in which they were added. Not owned: a view leaves
    // before it goes.
    void AddView(CView* view);
    void RemoveView(CView* view);
    // The first view of a kind; null if there is none.
    [[nodiscard]] CView* GetView(ViewKind kind) const;
    void UpdateAllViews(CView* sender, int nHint, const HintObject* object = nullptr);
    // Offers a command to every view but one; true at the first that takes it.
    bool RouteCmdToViews(CView* activeView, int nId);
    bool RouteUpdateToViews(CView* activeView, int nId, CommandState& state);

    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

private:
    [[nodiscard]] static const CommandMap<CQRBDoc>& Commands();

    void OnNewFileTypeEntry();
    void OnNewFileEntry();
    void OnNewScriptEntry();
    // fileTypes: masks, one after the other.
    void AddDefault(std::uint32_t dwFlags, const std::string& fileTypes);
    [[nodiscard]] DefaultEntry Standard() const;
    void OnStartBatch();

    void Append(CDirCopy entry);
    bool RunDialogFor(const CDirCopy& entry, EntryValues& values);
    // Fills the entry list again.
    void RefreshEntries();
    [[nodiscard]] PaneAnswers AskPanes() const;

    DocumentServices m_services;
    std::vector<CView*> m_views;
    bool m_bModified = false;
};

// Cuts a run of masks with nothing between them ("*.txt*.doc") into masks. A text without any gives
// "*.*".
[[nodiscard]] std::vector<std::string> SplitMasks(const std::string& text);

}  // namespace quorbit
