// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Views and panes for a document: they keep what they are told and answer as the test sets them.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "document/entry_dialogs.h"
#include "document/view.h"

namespace quorbit {

class FakeView : public CView {
public:
    explicit FakeView(ViewKind kind) : m_kind(kind) {}

    std::map<int, CommandState> commands;  // those that it takes
    std::vector<int> hints;
    std::vector<int> carriedOut;
    std::vector<const FakeView*>* asked = nullptr;  // gets this view at each question; may be null

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

class FakeTree : public FakeView, public DrivePane {
public:
    FakeTree() : FakeView(ViewKind::DriveTree) {}

    std::string source, dest, deleted, current, drop;
    bool deleteMode = false;

    [[nodiscard]] std::string GetSourcePath() const override { return source; }
    [[nodiscard]] std::string GetDestPath() const override { return dest; }
    [[nodiscard]] std::string GetDeletePath() const override { return deleted; }
    [[nodiscard]] bool DeleteMode() const override { return deleteMode; }
    [[nodiscard]] std::string CurrentPath() const override { return current; }
    [[nodiscard]] std::string DropText() const override { return drop; }
};

class FakeList : public FakeView, public FilePane {
public:
    FakeList() : FakeView(ViewKind::FileList) {}

    std::vector<std::string> names;
    bool files = true;
    bool deleteMode = false;

    [[nodiscard]] bool FilesSelected() const override { return files; }
    [[nodiscard]] bool DeleteMode() const override { return deleteMode; }
    [[nodiscard]] std::vector<std::string> GetSelectedNames() const override { return names; }
};

}  // namespace quorbit
