// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fake views and panes of a document: they record calls and return the values that the test sets.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "document/pane_answers.h"
#include "document/view.h"

namespace quorbit {

class FakeView : public CView {
public:
    explicit FakeView(ViewKind kind) : m_kind(kind) {}

    std::map<int, CommandState> commands;  // those that it handles
    std::vector<int> hints;
    std::vector<int> carriedOut;
    std::vector<const FakeView*>* asked = nullptr;  // appended to at each query; may be null

    [[nodiscard]] ViewKind Kind() const override { return m_kind; }
    void OnUpdate(CView*, int nHint, const HintObject*) override { hints.push_back(nHint); }
    bool OnCommand(int nId) override
    {
        if (!Takes(nId)) {
            return false;
        }
        carriedOut.push_back(nId);
        return true;
    }
    bool OnUpdateCommand(int nId, CommandState& state) override
    {
        if (!Takes(nId)) {
            return false;
        }
        state = commands[nId];
        return true;
    }

private:
    [[nodiscard]] bool Takes(int nId) const
    {
        if (asked != nullptr) {
            asked->push_back(this);
        }
        return commands.contains(nId);
    }

    ViewKind m_kind;
};

class FakeTree : public FakeView {
public:
    FakeTree() : FakeView(ViewKind::DriveTree) {}
    TreeAnswers answers;
    void AnswerDocument(PaneAnswers& panes) const override { panes.tree = answers; }
};

class FakeList : public FakeView {
public:
    FakeList() : FakeView(ViewKind::FileList) {}
    ListAnswers answers{.filesSelected = true, .selectedNames = {}};
    void AnswerDocument(PaneAnswers& panes) const override { panes.list = answers; }
};

}  // namespace quorbit
