// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/report_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardItemModel>
#include <QTest>

namespace quorbit {
namespace {

class ReportViewTest : public testing::Test {
protected:
    ReportViewTest()
    {
        for (int row = 0; row < 2; ++row) {
            model.appendRow(
                {new QStandardItem(QStringLiteral("x")), new QStandardItem(QStringLiteral("y"))});
        }
        view.setModel(&model);
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.setIconSize({16, 16});
        view.resize(500, 200);
        view.setColumnWidth(0, 100);
        view.setColumnWidth(1, 100);
        QPalette palette;
        palette.setColor(QPalette::Highlight, Qt::blue);
        palette.setColor(QPalette::Base, Qt::white);
        view.setPalette(palette);
        view.show();
        view.selectionModel()->select(
            model.index(0, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    // Whether the row is highlighted there.
    [[nodiscard]] bool IsBlue(int row, int x)
    {
        const QImage image = view.viewport()->grab().toImage();
        return image.pixelColor(x, view.visualRect(model.index(row, 0)).bottom() - 2) ==
               QColor(Qt::blue);
    }

    QStandardItemModel model;
    ReportView view{nullptr};
};

TEST_F(ReportViewTest, HighlightRunsFromTheTextToTheEdgeOfTheWindow)
{
    EXPECT_FALSE(IsBlue(0, 5)) << "the icon lies outside";
    EXPECT_TRUE(IsBlue(0, 90));
    EXPECT_TRUE(IsBlue(0, 190));
    EXPECT_TRUE(IsBlue(0, 450)) << "beyond the columns";
    EXPECT_FALSE(IsBlue(1, 90));
    view.SetFullRow(false);
    EXPECT_TRUE(IsBlue(0, 21)) << "the text alone";
    EXPECT_FALSE(IsBlue(0, 90));
    EXPECT_FALSE(IsBlue(0, 190));
}

TEST_F(ReportViewTest, WithoutTheFocusASelectionMayHideButADropTargetShows)
{
    QWidget other;
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    other.activateWindow();
    other.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !view.hasFocus(); }));
    EXPECT_TRUE(IsBlue(0, 90));
    view.SetKeepsSelection(false);
    EXPECT_FALSE(IsBlue(0, 90));
    view.SetDropRow(1);
    EXPECT_TRUE(IsBlue(1, 90));
}

TEST_F(ReportViewTest, OnlyTheFirstCellIsHitUnlessTheWholeRowCounts)
{
    const int y = view.visualRect(model.index(1, 0)).center().y();
    EXPECT_EQ(view.indexAt(QPoint(150, y)).row(), 1);
    view.SetFullRow(false);
    EXPECT_EQ(view.indexAt(QPoint(50, y)).row(), 1);
    EXPECT_FALSE(view.indexAt(QPoint(150, y)).isValid());
}

}  // namespace
}  // namespace quorbit
