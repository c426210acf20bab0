// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A fake text editor that records the files to open.

#pragma once

#include <string>
#include <vector>

#include "engine/dialog/text_editor.h"

namespace quorbit {

class FakeEditor : public TextEditor {
public:
    std::vector<std::string> opened;

    EditorStart Open(const std::string& path) override
    {
        opened.push_back(path);
        return EditorStart::Started;
    }
};

}  // namespace quorbit
