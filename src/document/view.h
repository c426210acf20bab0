// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A view shows a part of the document or of the file system, receives update hints and handles
// commands. User interface thread only.

#pragma once

#include "document/command_target.h"
#include "document/pane_answers.h"

namespace quorbit {

// Update hints.
enum : int {
    HINT_NONE = 0,                 // the document was replaced
    HINT_FOLDER_SELECTED = 1124,   // tree to file list: show the folder of the object
    HINT_FOLDER_OPENED = 1125,     // file list to tree: select the node of the object
    HINT_FOLDER_NOT_FOUND = 1126,  // sent by the tree if it has no such node; no view handles it
    HINT_DELETE = 1127,            // the delete command: the view with the focus handles it
    HINT_REFRESH_ENTRIES = 1128,   // refill the entry list
    HINT_PARENT_FOLDER = 1129,     // file list to tree: select the parent of the selected folder
};

// Data of a hint; the panes derive their own types.
class HintObject {
public:
    virtual ~HintObject() = default;
};

enum class ViewKind {
    FileList = 0,
    DriveTree = 1,
    EntryList = 2,
};

class CView : public CommandTarget {
public:
    [[nodiscard]] virtual ViewKind Kind() const = 0;
    // Handles a hint. `sender` is the view that caused it, which is not called itself; may be null.
    // `object` may be null and is valid only during the call.
    virtual void OnUpdate(CView* sender, int nHint, const HintObject* object) = 0;
    // Fills the view's part of the answers, if it has one.
    virtual void AnswerDocument(PaneAnswers& /*answers*/) const {}
};

}  // namespace quorbit
