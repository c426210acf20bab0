// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fixture for the drive tree: a fake mount table and a drive D: in a temporary folder.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "panes/drive_view.h"
#include "panes/pane_hints.h"
#include "support/fake_prompts.h"
#include "support/fake_views.h"
#include "support/shell_test.h"
#include "support/widgets.h"

namespace quorbit {

// Stands in for the file list and records the path of the folder to show.
class FolderView final : public FakeView {
public:
    FolderView() : FakeView(ViewKind::FileList) {}
    void OnUpdate(CView* sender, int nHint, const HintObject* object) override
    {
        FakeView::OnUpdate(sender, nHint, object);
        if (const auto* tree = dynamic_cast<const TreeItemHint*>(object)) {
            folder = CShellPidl::GetItemName(*tree->Item().m_pFolder, tree->Item().m_pidlItem,
                                             SHGDN_FORPARSING)
                         .value_or("");
        }
    }
    std::string folder;
};

class DriveTest : public ShellTest {
protected:
    // Creates the tree view; `items` is the content of drive D:.
    void Make(const TreeLines& items, std::uint32_t nRunMode = 0)
    {
        m_drives["D:"] = Path("d");
        WriteTree(Path("d"), items);
        m_doc.AddView(&m_list);
        m_view = std::make_unique<CDriveView>(
            PaneServices{.pDoc = &m_doc,
                         .pProfile = &m_profile,
                         .pPrompts = &m_prompts,
                         .pIcons = &m_icons,
                         .desktop = Desktop(),
                         .nRunMode = nRunMode,
                         .sendCommand =
                             [this](int id) {
                                 m_sent.push_back(id);
                                 m_sentInDeleteMode.push_back(m_view->DeleteMode());
                                 m_deletePath = m_view->GetDeletePath();
                             },
                         .postCommand = [this](int id) { m_posted.push_back(id); },
                         .setActive = {},
                         .isFrameMinimised = [this] { return m_minimised; }});
        m_doc.AddView(m_view.get());
        m_view->resize(400, 300);
        m_view->show();
        Settle();
    }
    ~DriveTest() override
    {
        if (m_view != nullptr) {
            m_doc.RemoveView(m_view.get());
        }
    }

    // Waits until the tree has read all pending folders.
    void Settle()
    {
        EXPECT_TRUE(Until([this] { return !m_view->IsFilling(); }));
    }
    // Selects a folder, reading its parents as needed. Returns its node, or null if there is none.
    ShellTreeNode* GoTo(const std::string& path)
    {
        m_view->GoToPath(path);
        Settle();
        return m_view->FindNodeByPath(path);
    }
    ShellTreeNode* Expand(const std::string& path)
    {
        ShellTreeNode* node = GoTo(path);
        if (node != nullptr) {
            node->setExpanded(true);
            Settle();
        }
        return node;
    }
    void Refresh()
    {
        EXPECT_TRUE(m_view->OnCommand(CMD_REFRESH));
        Settle();
    }
    static std::vector<std::string> Texts(const QTreeWidgetItem* node)
    {
        std::vector<std::string> texts;
        for (int i = 0; node != nullptr && i < node->childCount(); ++i) {
            texts.push_back(node->child(i)->text(0).toStdString());
        }
        return texts;
    }
    [[nodiscard]] std::vector<std::string> Texts(const std::string& path) const
    {
        return Texts(m_view->FindNodeByPath(path));
    }

    CQRBDoc m_doc;
    FolderView m_list;
    Profile m_profile{SettingsStore(Path("profile.ini"))};
    FakePrompts m_prompts;
    ItemIcons m_icons;
    std::vector<int> m_sent;
    std::vector<bool> m_sentInDeleteMode;
    std::string m_deletePath;  // at the time of the last sent command
    std::vector<int> m_posted;
    bool m_minimised = false;
    std::unique_ptr<CDriveView> m_view;
};

}  // namespace quorbit
