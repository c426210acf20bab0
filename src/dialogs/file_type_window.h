// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The window of a file type entry, which selects files by masks. User interface thread only.

#pragma once

#include "dialogs/entry_window.h"
#include "dialogs/file_type_form.h"

namespace quorbit {

class FileTypeWindow final : public EntryWindow {
public:
    // Shows the form and loads the masks. `services` must outlive the window.
    FileTypeWindow(const DialogServices& services, FileTypeForm form);

    // The edited form; valid after OK.
    [[nodiscard]] const FileTypeForm& Form() const { return m_form; }

    void accept() override;

protected:
    void OnBox(EntryBox box, bool on) override;
    std::uint32_t& Flags() override { return m_form.flags; }

private:
    void ShowForm();

    FileTypeForm m_form;
};

}  // namespace quorbit
