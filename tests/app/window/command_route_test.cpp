// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/command_route.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace quorbit {
namespace {

using Names = std::vector<std::string>;

// Writes down that it was asked; takes the commands that it is told to take.
class Stop : public CView {
public:
    Stop(std::string name, Names& asked) : m_name(std::move(name)), m_asked(asked) {}
    std::set<int> taken;
    bool enabled = true;
    bool checked = false;

    [[nodiscard]] ViewKind Kind() const override { return ViewKind::FileList; }
    void OnUpdate(CView*, int, const HintObject*) override {}
    bool OnCommand(int nId) override
    {
        m_asked.push_back(m_name);
        return taken.contains(nId);
    }
    bool OnUpdateCommand(int nId, CommandState& state) override
    {
        m_asked.push_back(m_name);
        if (!taken.contains(nId)) {
            return false;
        }
        state.enabled = enabled;
        state.checked = checked;
        return true;
    }

private:
    std::string m_name;
    Names& m_asked;
};

class CommandRouteTest : public testing::Test {
protected:
    static constexpr int kCommand = 4711;

    void SetUp() override
    {
        for (Stop* view : {&list, &tree, &entries}) {
            doc.AddView(view);
        }
    }

    Names asked;
    CQRBDoc doc;
    Stop list{"list", asked}, tree{"tree", asked}, entries{"entries", asked};
    Stop document{"document", asked}, frame{"frame", asked}, app{"app", asked};
    CommandRoute route{doc, {&document, &frame, &app}};
};

TEST_F(CommandRouteTest, AsksActiveViewDocumentFrameApplicationAndThenTheOtherViews)
{
    route.SetActiveView(&tree);
    const Names wholeWay{"tree", "document", "frame", "app", "list", "entries"};

    EXPECT_FALSE(route.OnCmdMsg(kCommand));
    EXPECT_EQ(asked, wholeWay);
    asked.clear();
    EXPECT_FALSE(route.StateOf(kCommand).enabled) << "nobody can carry it out";
    EXPECT_EQ(asked, wholeWay);
}

TEST_F(CommandRouteTest, EndsWithTheFirstThatTakesTheCommand)
{
    route.SetActiveView(&tree);
    const std::vector<Stop*> way{&entries, &list, &app, &frame, &document, &tree};
    for (std::size_t i = 0; i < way.size(); ++i) {
        way[i]->taken = {kCommand};
        asked.clear();
        EXPECT_TRUE(route.OnCmdMsg(kCommand));
        EXPECT_EQ(asked.size(), way.size() - i);
        asked.clear();
        EXPECT_TRUE(route.StateOf(kCommand).enabled);
        EXPECT_EQ(asked.size(), way.size() - i);
    }
}

TEST_F(CommandRouteTest, FindsTheCommandsOfPanesWhileNoneIsActive)
{
    entries.taken = {kCommand};
    entries.checked = true;
    EXPECT_TRUE(route.OnCmdMsg(kCommand));
    EXPECT_TRUE(route.StateOf(kCommand).checked);
    entries.enabled = false;
    EXPECT_FALSE(route.StateOf(kCommand).enabled);
}

}  // namespace
}  // namespace quorbit
