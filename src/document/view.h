// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A view: something that shows a part of the document or of the disk, is told of changes, and
// handles commands. User interface thread only.

#pragma once

#include "document/command_target.h"
#include "document/pane_answers.h"

namespace quorbit {

// What a view is told.
enum : int {
    HINT_NONE = 0,                 // the document is another one
    HINT_FOLDER_SELECTED = 1124,   // tree to list: show the folder of the object
    HINT_FOLDER_OPENED = 1125,     // list to tree: go down into the folder of the object
    HINT_FOLDER_NOT_FOUND = 1126,  // tree: that folder is no node; no view acts on it
    HINT_DELETE = 1127,            // the delete command: whoever has the focus acts
    HINT_REFRESH_ENTRIES = 1128,   // fill the entry list again
};

// What comes with a hint, by the hint; the panes derive what they need.
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
    // sender: the view that caused it, not told itself; null if none. object is only valid during
    // the call; may be null.
    virtual void OnUpdate(CView* sender, int nHint, const HintObject* object) = 0;
    // A pane that entries are made from fills its part of the answers.
    virtual void AnswerDocument(PaneAnswers& /*answers*/) const {}
};

}  // namespace quorbit
