// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialogs that the document opens. The windows implement them, and tests replace them. User
// interface thread only.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/batch.h"
#include "batch/dir_copy.h"
#include "document/pane_answers.h"

namespace quorbit {

// The values that a dialog returns. Valid after it ended with OK.
struct EntryValues {
    std::string m_strSource;
    std::string m_strDest;
    std::uint32_t m_dwFlags = 0;
    std::vector<std::string> m_listItems;
    std::vector<std::string> m_listFolderTypes;
};

// Each DoModal runs the dialog to edit `entry`, or to create one from what the panes had selected
// if that is null. Returns whether it ended with OK. The entry is not owned.
class FileTypeDialog {
public:
    virtual ~FileTypeDialog() = default;
    virtual bool DoModal(const PaneAnswers& panes, const CDirCopy* entry, bool bDelete,
                         EntryValues& values) = 0;
};

class FileDialog {
public:
    virtual ~FileDialog() = default;
    // bFiles: the items are files, else folders.
    virtual bool DoModal(const PaneAnswers& panes, bool bFiles, const CDirCopy* entry, bool bDelete,
                         EntryValues& values) = 0;
};

class ScriptDialog {
public:
    virtual ~ScriptDialog() = default;
    // The script is m_strSource of the values.
    virtual bool DoModal(const CDirCopy* entry, EntryValues& values) = 0;
};

// The dialog in which a run happens.
class RunDialog {
public:
    virtual ~RunDialog() = default;
    // Returns when the run is over and the dialog is closed.
    virtual void DoModal(const Batch& batch) = 0;
};

}  // namespace quorbit
