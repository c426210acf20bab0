// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The window of a file entry, which names individual files or folders. User interface thread only.

#pragma once

#include <optional>

#include "dialogs/entry_window.h"
#include "dialogs/file_entry_form.h"
#include "dialogs/folder_listing.h"

namespace quorbit {

class FileEntryWindow final : public EntryWindow {
public:
    // Shows the form and starts to read its source folder. `services` must outlive the window.
    FileEntryWindow(const DialogServices& services, FileEntryForm form);

    // The edited form; valid after OK.
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
