// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the document asks of a person and of the panes. The windows implement these; a test answers
// for them. User interface thread only.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "batch/dir_copy.h"

namespace quorbit {

class CQRBDoc;

// What a dialog has gathered. Valid after it ended with OK.
struct EntryValues {
    std::string m_strSource;
    std::string m_strDest;
    std::uint32_t m_dwFlags = 0;
    std::vector<std::string> m_listItems;
    std::vector<std::string> m_listFolderTypes;
};

// Each DoModal runs the dialog, filled from the entry that is edited, or for a new one if that is
// null. Nothing if it did not end with OK. The entry is not owned.
class FileTypeDialog {
public:
    virtual ~FileTypeDialog() = default;
    virtual bool DoModal(CQRBDoc& doc, const CDirCopy* entry, bool bDelete,
                         EntryValues& values) = 0;
};

class FileDialog {
public:
    virtual ~FileDialog() = default;
    // bFiles: the items are files, else folders.
    virtual bool DoModal(CQRBDoc& doc, bool bFiles, const CDirCopy* entry, bool bDelete,
                         EntryValues& values) = 0;
};

class ScriptDialog {
public:
    virtual ~ScriptDialog() = default;
    // The script is m_strSource of the values.
    virtual bool DoModal(CQRBDoc& doc, const CDirCopy* entry, EntryValues& values) = 0;
};

// The dialog in which a run happens.
class RunDialog {
public:
    virtual ~RunDialog() = default;
    // Returns when the run is over and the dialog is closed.
    virtual void DoModal(CQRBDoc& doc) = 0;
};

// What the tree has selected.
class DrivePane {
public:
    virtual ~DrivePane() = default;
    [[nodiscard]] virtual std::string GetSourcePath() const = 0;
    [[nodiscard]] virtual std::string GetDestPath() const = 0;
    [[nodiscard]] virtual std::string GetDeletePath() const = 0;
    [[nodiscard]] virtual bool DeleteMode() const = 0;  // m_bDeleteMode
    // Folder that the list of files shows; "My Computer" for the drives.
    [[nodiscard]] virtual std::string CurrentPath() const = 0;  // m_strCurrentPath
    // The last drop: D and a path, or F and names with ", " between them; empty if there was none.
    [[nodiscard]] virtual std::string DropText() const = 0;  // m_strDropText
};

// What the list of files has selected.
class FilePane {
public:
    virtual ~FilePane() = default;
    [[nodiscard]] virtual bool FilesSelected() const = 0;  // m_nSelectionKind says files
    [[nodiscard]] virtual bool DeleteMode() const = 0;     // m_bDeleteMode
    [[nodiscard]] virtual std::vector<std::string> GetSelectedNames() const = 0;
};

}  // namespace quorbit
