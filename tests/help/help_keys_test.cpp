// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_keys.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include "batch/help_topic.h"
#include "batch/help_topics.h"

namespace quorbit {
namespace {

// A dialog with a control that has a topic, one that lies in a box that has one, one that has none,
// a label of the first and a button of a command.
class HelpKeysTest : public testing::Test {
protected:
    HelpKeysTest()
    {
        SetHelpTopics({{own, kTopicSync}, {box, kTopicRelation}, {&action, kTopicRefresh}});
        label->setBuddy(own);
        command->setDefaultAction(&action);
        for (QWidget* widget : {static_cast<QWidget*>(own), box, static_cast<QWidget*>(none),
                                static_cast<QWidget*>(label), static_cast<QWidget*>(command)}) {
            column->addWidget(widget);
        }
        (new QVBoxLayout(box))->addWidget(inner);
        dialog.show();
        dialog.activateWindow();
    }
    ~HelpKeysTest() override { QWhatsThis::leaveWhatsThisMode(); }

    // The title of the topic that was shown last; empty if none was since.
    std::string Shown()
    {
        const QString text = std::exchange(shown, {});
        return text.mid(6, text.indexOf(u"</b>") - 6).toStdString();
    }
    std::string ShownFor(Qt::Key key, QWidget* focus)
    {
        QTest::keyClick(focus, key);
        return Shown();
    }

    HelpPages pages;
    QString shown;
    QUrl opened;
    HelpKeys keys{pages, [this](const QUrl& page) { opened = page; },
                  [this](const QPoint&, const QString& text, QWidget*) { shown = text; }};
    QDialog dialog;
    QVBoxLayout* column = new QVBoxLayout(&dialog);
    QPushButton* own = new QPushButton;
    QWidget* box = new QWidget;
    QLineEdit* inner = new QLineEdit;
    QPushButton* none = new QPushButton;
    QLabel* label = new QLabel(QStringLiteral("label"));
    QToolButton* command = new QToolButton;
    QAction action;
};

TEST_F(HelpKeysTest, F1ShowsTheTopicOfTheControlElseOfWhatItLiesIn)
{
    EXPECT_EQ(ShownFor(Qt::Key_F1, own), "Sync files");
    EXPECT_EQ(ShownFor(Qt::Key_F1, inner), "Attribute relationship");
    EXPECT_EQ(ShownFor(Qt::Key_F1, command), "Refresh");
    EXPECT_EQ(ShownFor(Qt::Key_F2, own), "");
    own->setEnabled(false);
    EXPECT_EQ(HelpTopicAt(label), kTopicSync);
}

TEST_F(HelpKeysTest, F1OpensTheHelpWhereThereIsNoTopic)
{
    EXPECT_EQ(ShownFor(Qt::Key_F1, none), "");
    EXPECT_EQ(opened, pages.Contents());
    QMessageBox message;
    message.addButton(QMessageBox::Ok);
    message.show();
    EXPECT_EQ(ShownFor(Qt::Key_F1, message.button(QMessageBox::Ok)), "");
    EXPECT_EQ(opened, pages.Page(QStringLiteral("troubleshooting.html")));
    // The window that the dialog stands over has nothing to say about the dialog.
    SetHelpTopic(dialog, kTopicSource);
    QDialog above(&dialog);
    EXPECT_EQ(HelpTopicAt(&above), kTopicNone);
}

TEST_F(HelpKeysTest, ShiftF1ShowsTheTopicOfWhatIsClickedNextAndLeavesTheRestAlone)
{
    int pressed = 0;
    QObject::connect(own, &QPushButton::clicked, [&] { ++pressed; });
    for (QWidget* widget : {static_cast<QWidget*>(own), static_cast<QWidget*>(label)}) {
        QTest::keyClick(none, Qt::Key_F1, Qt::ShiftModifier);
        ASSERT_TRUE(QWhatsThis::inWhatsThisMode());
        QTest::mouseClick(widget, Qt::LeftButton);
        EXPECT_EQ(Shown(), "Sync files");
        QWhatsThis::leaveWhatsThisMode();  // as the pop-up does
    }
    own->setEnabled(false);
    QTest::keyClick(none, Qt::Key_F1, Qt::ShiftModifier);
    QTest::mouseClick(own, Qt::LeftButton);
    EXPECT_EQ(Shown(), "Sync files") << "also of a control that cannot be used";
    EXPECT_EQ(pressed, 0);
}

TEST_F(HelpKeysTest, ItemsOfMenusCarryTheirTopicsOnceSomebodyAsks)
{
    dialog.addAction(&action);
    action.setParent(&dialog);
    EXPECT_TRUE(action.whatsThis().isEmpty());
    QTest::keyClick(none, Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_EQ(action.whatsThis(), pages.Topic(kTopicRefresh)->text);
    action.setParent(nullptr);
}

TEST_F(HelpKeysTest, TheLinkOfAPopUpOpensTheChapter)
{
    QWhatsThisClickedEvent clicked(QStringLiteral("../kinds.html#sync"));
    QCoreApplication::sendEvent(own, &clicked);
    EXPECT_EQ(opened, pages.Page(QStringLiteral("kinds.html#sync")));
}

TEST_F(HelpKeysTest, EscClosesThePopUpAndNotTheDialog)
{
    const HelpKeys real(pages, [](const QUrl&) {});
    const auto popUp = [] { return QApplication::activePopupWidget(); };
    QTest::keyClick(own, Qt::Key_F1);
    ASSERT_NE(popUp(), nullptr);
    QTest::keyClick(popUp(), Qt::Key_Escape);
    EXPECT_EQ(popUp(), nullptr);
    EXPECT_TRUE(dialog.isVisible());
}

}  // namespace
}  // namespace quorbit
