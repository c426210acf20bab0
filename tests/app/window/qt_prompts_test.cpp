// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The real boxes, driven as a person would.

#include "app/window/qt_prompts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>

#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

// Does something with the dialog that opens next.
template <class Dialog>
void Meet(std::function<void(Dialog&)> action)
{
    QTimer::singleShot(0, qApp, [action = std::move(action)] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            Meet<Dialog>(action);
        } else {
            action(*dialog);
        }
    });
}

TEST(QtPromptsTest, CountsAClosedBoxAsTheAnswerThatDoesNothing)
{
    QtPrompts prompts;
    struct Case {
        PromptButtons buttons;
        PromptAnswer entered;
        PromptAnswer closed;
    };
    for (const Case& c :
         {Case{PromptButtons::Ok, PromptAnswer::Ok, PromptAnswer::Ok},
          Case{PromptButtons::YesNo, PromptAnswer::Yes, PromptAnswer::No},
          Case{PromptButtons::YesNoCancel, PromptAnswer::Yes, PromptAnswer::Cancel}}) {
        const auto ask = [&] { return prompts.Ask("Text", "", PromptIcon::Question, c.buttons); };
        Meet<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(ask(), c.closed);
        Meet<QMessageBox>([](QMessageBox& box) { box.close(); });
        EXPECT_EQ(ask(), c.closed);
        Meet<QMessageBox>([](QMessageBox& box) { box.reject(); });
        EXPECT_EQ(ask(), c.closed);
        Meet<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_EQ(ask(), c.entered);
    }
}

TEST(QtPromptsTest, ShowsNamesAsTheyAreAndNotAsMarkup)
{
    QtPrompts prompts;
    Meet<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.text(), QStringLiteral("/<b>a</b>.qrb"));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Quorbit"));
        box.reject();
    });
    (void)prompts.Ask("/<b>a</b>.qrb", "", PromptIcon::Stop, PromptButtons::Ok);
}

class SaveFileTest : public testing::Test {
protected:
    void Type(const std::string& name)
    {
        Meet<QFileDialog>([name](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
                ->setText(QString::fromStdString(name));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    [[nodiscard]] std::string Save()
    {
        FileQuestion question;
        question.folder = folder.Path();
        question.defaultSuffix = "qrb";
        question.filters = {"QRB Files (*.qrb)"};
        const auto path = prompts.AskSaveFile(question);
        return path ? path->substr(folder.Path().size() + 1) : "(cancelled)";
    }

    TempFolder folder;
    QtPrompts prompts;
};

TEST_F(SaveFileTest, AppendsTheSuffixToANameWithoutOne)
{
    for (const auto& [typed, expected] :
         {std::pair{"plain", "plain.qrb"}, std::pair{"full.qrb", "full.qrb"},
          std::pair{"other.txt", "other.txt"}}) {
        Type(typed);
        EXPECT_EQ(Save(), expected);
    }
}

TEST_F(SaveFileTest, AsksBeforeTheNameThatItCompletedReplacesAFile)
{
    WriteContent(folder.Path() + "/old.qrb", "precious");
    std::string question;
    const auto answer = [&question](QMessageBox::StandardButton button) {
        Meet<QMessageBox>([&question, button](QMessageBox& box) {
            question = box.text().toStdString();
            box.button(button)->click();
        });
    };
    Type("old");
    answer(QMessageBox::Yes);
    EXPECT_EQ(Save(), "old.qrb");
    EXPECT_EQ(question, folder.Path() + "/old.qrb already exists.\nDo you want to replace it?");

    // No: the dialog comes back.
    Type("old");
    Meet<QMessageBox>([this](QMessageBox& box) {
        Type("new");
        box.button(QMessageBox::No)->click();
    });
    EXPECT_EQ(Save(), "new.qrb");
}

}  // namespace
}  // namespace quorbit
