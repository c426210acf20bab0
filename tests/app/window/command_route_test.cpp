// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/command_route.h"

#include <gtest/gtest.h>

#include <vector>

#include "document/qrb_doc.h"
#include "support/fake_views.h"

namespace quorbit {
namespace {

TEST(CommandRouteTest, AsksActiveViewDocumentFrameApplicationAndThenTheOtherViewsUntilOneTakesIt)
{
    constexpr int kCommand = 4711;
    CQRBDoc doc;
    FakeView list(ViewKind::FileList), tree(ViewKind::DriveTree), entries(ViewKind::EntryList);
    FakeView document = list, frame = list, app = list;  // serve as plain command targets
    CommandRoute route(doc, {&document, &frame, &app});
    for (FakeView* view : {&list, &tree, &entries}) {
        doc.AddView(view);
    }
    const std::vector<FakeView*> way{&tree, &document, &frame, &app, &list, &entries};
    std::vector<const FakeView*> asked;
    for (FakeView* target : way) {
        target->asked = &asked;
    }
    route.SetActiveView(&tree);

    EXPECT_FALSE(route.StateOf(kCommand).enabled) << "nobody can carry it out";
    asked.clear();
    EXPECT_FALSE(route.OnCmdMsg(kCommand));
    EXPECT_EQ(asked, std::vector<const FakeView*>(way.begin(), way.end()));
    for (std::size_t length = way.size(); length > 0; --length) {
        way[length - 1]->commands = {{kCommand, {true, false}}};
        asked.clear();
        EXPECT_TRUE(route.OnCmdMsg(kCommand));
        EXPECT_EQ(asked.size(), length);
        EXPECT_TRUE(route.StateOf(kCommand).enabled);
    }
}

}  // namespace
}  // namespace quorbit
