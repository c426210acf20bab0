// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The window in which an entry that names single files or folders is set up. User interface thread
// only.

#pragma once

#include <optional>

#include "dialogs/entry_window.h"
#include "dialogs/file_entry_form.h"
#include "dialogs/folder_listing.h"

namespace quorbit {

class FileEntryWindow final : public EntryWindow {
public:
    // Shows the form and begins to read its source folder. services outlive the window.
    FileEntryWindow(const DialogServices& services, FileEntryForm form);

    // As OK has left it.
    [[nodiscard]] const FileEntryForm& Form() const { return m_form; }

    void accept() override;

protected:
    void OnBox(EntryBox box, bool on) override;
    std::uint32_t& Flags() override { return m_form.flags; }

private:
    bool AcceptsEntry(const std::string& text) const;

    FileEntryForm m_form;
    std::optional<FolderListing> m_listing;
};

}  // namespace quorbit
