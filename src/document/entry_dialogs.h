// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Interfaces of the dialogs that the document opens. Tests replace the implementations. User
// interface thread only.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/batch.h"
#include "batch/dir_copy.h"
#include "document/pane_answers.h"

namespace quorbit {

// Values of an edited entry. Valid only if the dialog ended with OK.
struct EntryValues {
    std::string m_strSource;
    std::string m_strDest;
    std::uint32_t m_dwFlags = 0;
    std::vector<std::string> m_listItems;
    std::vector<std::string> m_listFolderTypes;
};

// DoModal runs the dialog to edit `entry` or, if it is null, to create an entry from the selection
// of the panes. Returns true on OK. `entry` is not owned.
class FileTypeDialog {
public:
    virtual ~FileTypeDialog() = default;
    virtual bool DoModal(const PaneAnswers& panes, const CDirCopy* entry, bool bDelete,
                         EntryValues& values) = 0;
};

class FileDialog {
public:
    virtual ~FileDialog() = default;
    // bFiles: the items are files, otherwise folders.
    virtual bool DoModal(const PaneAnswers& panes, bool bFiles, const CDirCopy* entry, bool bDelete,
                         EntryValues& values) = 0;
};

class ScriptDialog {
public:
    virtual ~ScriptDialog() = default;
    // The path of the script is values.m_strSource.
    virtual bool DoModal(const CDirCopy* entry, EntryValues& values) = 0;
};

// The dialog that executes a run and shows its progress.
class RunDialog {
public:
    virtual ~RunDialog() = default;
    // Returns when the run has ended and the dialog is closed. `batch` must not change until then.
    virtual void DoModal(const Batch& batch) = 0;
};

}  // namespace quorbit
