// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests that dialogs that are larger than the screen stay usable.

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include "look/dialog_fitter.h"

namespace quorbit {
namespace {

TEST(DialogFitterTest, ScrollsALargeDialogAndKeepsItsTabOrder)
{
    for (const int height : {30, 300}) {
        QDialog dialog;
        auto* column = new QVBoxLayout(&dialog);
        QLineEdit* edits[4];
        for (QLineEdit*& edit : edits) {
            edit = new QLineEdit(&dialog);
            edit->setMinimumHeight(height);
            column->addWidget(edit);
        }
        edits[3]->hide();
        QWidget::setTabOrder(edits[2], edits[0]);
        QWidget::setTabOrder(edits[0], edits[1]);
        FitToScreen(dialog);
        edits[2]->setFocus();
        dialog.show();
        EXPECT_LE(dialog.height(), dialog.screen()->availableSize().height());
        EXPECT_EQ(dialog.findChild<QScrollArea*>() != nullptr, height == 300);
        EXPECT_FALSE(edits[3]->isVisible());
        EXPECT_EQ(dialog.focusWidget(), edits[2]);
        EXPECT_EQ(edits[2]->nextInFocusChain(), edits[0]);
        EXPECT_EQ(edits[0]->nextInFocusChain(), edits[1]);
    }
}

}  // namespace
}  // namespace quorbit
