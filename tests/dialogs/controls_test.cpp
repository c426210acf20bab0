// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The speed typing box, the two lists, the folder box and the dialogs inside of dialogs.

#include <QLabel>

#include "batch/dir_copy.h"
#include "dialogs/folder_box.h"
#include "dialogs/folder_setup_dialog.h"
#include "dialogs/set_attributes_dialog.h"
#include "dialogs/two_lists.h"
#include "dialogs_test.h"

namespace quorbit {
namespace {

using Names = std::vector<std::string>;

class ControlsTest : public DialogsTest {};

TEST_F(ControlsTest, SpeedBoxCompletesWhatIsTyped)
{
    NameListModel lines;
    CComboBoxEx box;
    box.SetLines(&lines);
    lines.Add({"letter.txt", "Lemon.doc", "notes"});
    EXPECT_EQ(box.currentText(), QString());

    const struct {
        const char* what;
        const char* typed;
        int backspaces;
        const char* text;
        const char* selected;
    } cases[] = {
        {"first line that begins so", "l", 0, "Lemon.doc", "emon.doc"},
        {"case aside", "LET", 0, "letter.txt", "ter.txt"},
        {"no line", "letx", 0, "letx", ""},
        {"nothing after backspace", "let", 1, "let", ""},
        {"another key again", "no", 1, "no", ""},
        {"the whole line", "notes", 0, "notes", ""},
    };
    for (const auto& c : cases) {
        box.Clear();
        QTest::keyClicks(&box, QLatin1String(c.typed));
        for (int i = 0; i < c.backspaces; ++i) {
            QTest::keyClick(&box, Qt::Key_Backspace);
        }
        EXPECT_EQ(box.currentText(), QLatin1String(c.text)) << c.what;
        EXPECT_EQ(box.lineEdit()->selectedText(), QLatin1String(c.selected)) << c.what;
        EXPECT_EQ(box.lineEdit()->cursorPosition(), box.currentText().size()) << c.what;
    }
    QTest::keyClicks(&box, QStringLiteral("t"));
    EXPECT_EQ(box.currentText(), QStringLiteral("notest"));
}

TEST_F(ControlsTest, SpeedBoxKeepsWhatWasTypedWhenLinesCome)
{
    NameListModel lines;
    CComboBoxEx box;
    box.SetLines(&lines);
    QTest::keyClicks(&box, QStringLiteral("le"));
    lines.Add({"alpha", "letter"});
    EXPECT_EQ(box.currentText(), QStringLiteral("le"));
    lines.Add({"beta"});
    EXPECT_EQ(box.currentText(), QStringLiteral("le"));
}

TEST_F(ControlsTest, AddMayCompareBeginningsWhileTypingComparesWholeTexts)
{
    const struct {
        TwoLists::Compare compare;
        Names processed;
    } cases[] = {
        {TwoLists::Compare::WholeText, {"*.c", "*.CPP", "*.txt"}},
        {TwoLists::Compare::Beginning, {"*.CPP", "*.txt"}},
    };
    for (const auto& c : cases) {
        TwoLists lists(QString(), QString(), c.compare, nullptr);
        lists.AddToChoose({"*.txt", "*.c", "*.cpp"});
        lists.AddToProcess({"*.CPP"});
        for (const char* line : {"*.txt", "*.c", "*.cpp"}) {
            SelectLine(lists, "m_lstChoose", line);
        }
        Click(lists, "&Add ->");
        EXPECT_EQ(Lines(lists, "m_lstProcess"), c.processed);
        EXPECT_EQ(Lines(lists, "m_lstChoose"), (Names{"*.c", "*.cpp", "*.txt"}));
        EXPECT_FALSE(Find<QListView>(lists, "m_lstChoose")->selectionModel()->hasSelection());

        SpeedBox(lists)->setEditText(QStringLiteral("*.c"));
        Click(lists, "Add &Entry ->");
        EXPECT_EQ(Lines(lists, "m_lstProcess"), (Names{"*.c", "*.CPP", "*.txt"}));
    }
}

TEST_F(ControlsTest, NamesThatDifferInCaseAreBothTakenIfBothAreThere)
{
    TwoLists lists(QString(), QString(), TwoLists::Compare::WholeText, nullptr);
    lists.AddToChoose({"docs", "Docs", "notes"});
    Find<QListView>(lists, "m_lstChoose")->selectAll();
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), (Names{"Docs", "docs", "notes"}));
    for (const char* typed : {"DOCS", "docs", "NOTES"}) {
        SpeedBox(lists)->setEditText(QLatin1String(typed));
        Click(lists, "Add &Entry ->");
    }
    Find<QListView>(lists, "m_lstChoose")->selectAll();
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), (Names{"Docs", "docs", "notes"}));
}

TEST_F(ControlsTest, EnterInTheSpeedBoxAddsTheEntry)
{
    TwoLists lists(QString(), QString(), TwoLists::Compare::WholeText, nullptr);
    QTest::keyClicks(SpeedBox(lists), QStringLiteral("one"));
    QTest::keyClick(SpeedBox(lists), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return lists.ProcessNames() == Names{"one"}; }));
    EXPECT_TRUE(SpeedBox(lists)->currentText().isEmpty());
    QTest::keyClicks(SpeedBox(lists), QStringLiteral("ONE"));
    QTest::keyClick(SpeedBox(lists), Qt::Key_Enter);
    QTest::qWait(20);
    EXPECT_EQ(lists.ProcessNames(), Names{"one"});
    EXPECT_EQ(SpeedBox(lists)->currentText(), QStringLiteral("ONE"));
}

TEST_F(ControlsTest, RemovesEverySelectedLine)
{
    TwoLists lists(QString(), QString(), TwoLists::Compare::WholeText, nullptr);
    lists.AddToProcess({"a", "b", "c", "d", "e"});
    for (const char* line : {"a", "b", "d"}) {
        SelectLine(lists, "m_lstProcess", line);
    }
    Click(lists, "<- &Remove");
    EXPECT_EQ(lists.ProcessNames(), (Names{"c", "e"}));
    EXPECT_FALSE(Find<QListView>(lists, "m_lstProcess")->selectionModel()->hasSelection());
}

TEST_F(ControlsTest, NothingIsMovedThatTheFilterHides)
{
    TwoLists lists(QString(), QString(), TwoLists::Compare::WholeText, nullptr);
    lists.AddToChoose({"*.c", "*.cpp", "*.doc", "a b"});
    auto* choose = Find<QListView>(lists, "m_lstChoose");
    auto* filter = Find<QLineEdit>(lists, "m_edtFilter");
    choose->selectAll();
    QTest::keyClicks(choose, QStringLiteral("CP"));
    EXPECT_EQ(Lines(lists, "m_lstChoose"), Names{"*.cpp"});
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), Names{"*.cpp"});
    lists.AddToChoose({"*.cpx", "*.cxx"});
    EXPECT_EQ(Lines(lists, "m_lstChoose"), (Names{"*.cpp", "*.cpx"}));
    filter->clear();
    EXPECT_EQ(choose->model()->rowCount(), 6);
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), Names{"*.cpp"});
    filter->setText(QStringLiteral("."));
    QTest::keyClick(filter, Qt::Key_Down);
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), (Names{"*.c", "*.cpp"}));
}

TEST_F(ControlsTest, EnterAndEscapeInAFilterDoNotCloseItsDialog)
{
    QDialog dialog;
    auto* ok = new QPushButton(&dialog);
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
    TwoLists lists(QString(), QString(), TwoLists::Compare::WholeText, &dialog);
    auto* filter = Find<QLineEdit>(lists, "m_edtFilter");
    dialog.show();
    QTest::keyClicks(filter, QStringLiteral("x"));
    QTest::keyClick(filter, Qt::Key_Return);
    QTest::keyClick(filter, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(filter->text().isEmpty());
    QTest::keyClick(filter, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ControlsTest, SelectionStaysWithItsLinesWhileOthersCome)
{
    TwoLists lists(QString(), QString(), TwoLists::Compare::WholeText, nullptr);
    lists.AddToChoose({"m", "z"});
    SelectLine(lists, "m_lstChoose", "m");
    lists.AddToChoose({"q", "B", "a"});
    EXPECT_EQ(Lines(lists, "m_lstChoose"), (Names{"a", "B", "m", "q", "z"}));
    Click(lists, "&Add ->");
    EXPECT_EQ(lists.ProcessNames(), Names{"m"});
}

TEST_F(ControlsTest, NamesKeepTheirBytes)
{
    const std::string name = "bad\xff\nname";
    TwoLists lists(QString(), QString(), TwoLists::Compare::WholeText, nullptr);
    lists.AddToChoose({name, "other"});
    QTest::keyClicks(SpeedBox(lists), QStringLiteral("b"));
    Click(lists, "Add &Entry ->");
    EXPECT_EQ(lists.ProcessNames(), Names{name});
}

TEST_F(ControlsTest, FolderBoxHintsAtAMissingFolder)
{
    const std::string link = Path("gone-\xff");
    using Role = FolderBox::Role;
    const struct {
        Role role;
        std::string text;
        bool hint;
    } cases[] = {
        {Role::Source, folder.Path(), false},    {Role::Source, Path("new"), true},
        {Role::Destination, Path("new"), false}, {Role::Destination, Path("new/below"), true},
        {Role::Source, "My Computer", false},    {Role::Source, "", false},
        {Role::Source, "Q:\\docs", true},        {Role::Source, link, true},
    };
    for (const auto& c : cases) {
        QWidget window;
        FolderBox box(services, c.role, QStringLiteral("folder"), {}, &window);
        box.SetFolder(c.text);
        auto* hint = box.findChild<QLabel*>();
        EXPECT_TRUE(QTest::qWaitFor([&] { return hint->isVisibleTo(&window); },
                                    c.hint ? 5000 : 50) == c.hint)
            << c.text;
        EXPECT_EQ(box.Folder(), c.text);

        // A text that is being typed is not looked at before the box is left.
        box.Edit()->setText(QStringLiteral("/gone/further/down"));
        EXPECT_FALSE(hint->isVisibleTo(&window));
        Q_EMIT box.Edit()->editingFinished();
        EXPECT_TRUE(QTest::qWaitFor([&] { return hint->isVisibleTo(&window); })) << c.text;
        // However narrow the box, every line of it is seen.
        window.show();
        box.resize(box.minimumSizeHint().width(), 1);
        EXPECT_GE(box.minimumSizeHint().height(),
                  box.Edit()->sizeHint().height() + hint->heightForWidth(box.width()));
    }
}

TEST_F(ControlsTest, FolderBoxTakesWhatWasTypedAndWhatWasPicked)
{
    std::optional<std::string> answer;
    std::string start;
    const auto pick = [&](const std::string& from) {
        start = from;
        return answer;
    };
    FolderBox box(services, FolderBox::Role::Source, QStringLiteral("folder"), pick, nullptr);
    box.SetFolder("/a");
    QTest::keyClicks(box.Edit(), QStringLiteral("/typed"));
    EXPECT_EQ(box.Folder(), "/typed/a");  // the caret stands in front
    Click(box, "...");
    EXPECT_EQ(start, "/typed/a");
    EXPECT_EQ(box.Folder(), "/typed/a");
    answer = "/picked";
    Click(box, "...");
    EXPECT_EQ(box.Folder(), "/picked");
}

TEST_F(ControlsTest, AttributeDialogRewritesTheWordOnOk)
{
    std::uint32_t word = DCF_NO_ATTRS | DCF_SYNC;
    CSetAttributes cancelled(nullptr);
    InNextDialog([&](QDialog& dialog) {
        EXPECT_FALSE(Button(dialog, "&AND")->isEnabled());
        Click(dialog, "Don't apply attributes");
        Click(dialog, "Cancel");
    });
    cancelled.DoModal(word);
    EXPECT_EQ(word, DCF_NO_ATTRS | DCF_SYNC);

    CSetAttributes dialog(nullptr);
    InNextDialog([&](QDialog& shown) {
        Click(shown, "Don't apply attributes");
        EXPECT_TRUE(Button(shown, "&OR")->isChecked());
        Click(shown, "&AND");
        Click(shown, "&Hidden files");
        Click(shown, "OK");
    });
    dialog.DoModal(word);
    EXPECT_EQ(word, DCF_ATTR_AND | DCF_ATTR_HIDDEN);

    word = DCF_SUBFOLDERS;
    CSetAttributes none(nullptr);
    InNextDialog([&](QDialog& shown) {
        EXPECT_FALSE(Button(shown, "&OR")->isChecked());
        EXPECT_FALSE(Button(shown, "&AND")->isChecked());
        Click(shown, "OK");
    });
    none.DoModal(word);
    EXPECT_EQ(word, 0U);
}

TEST_F(ControlsTest, FolderTypesChangeOnOkAlone)
{
    const struct {
        const char* what;
        Names before;
        bool click;
        const char* button;
        Names after;
    } cases[] = {
        {"unchanged", {"*.a", "*.b"}, false, "&OK", {"*.a", "*.b"}},
        {"every type", {"*.a"}, true, "&OK", {"*.*"}},
        {"every type stays", {"*.*", "*.a"}, false, "&OK", {"*.*"}},
        {"lines behind every type", {"*.*", "*.a"}, true, "&OK", {"*.a"}},
        {"cancelled", {"*.a"}, true, "Can&cel", {"*.a"}},
        {"none", {}, false, "&OK", {}},
    };
    for (const auto& c : cases) {
        Names types = c.before;
        CFolderSetupDlg dialog(services, nullptr);
        InNextDialog([&](QDialog& shown) {
            if (c.click) {
                Click(shown, "Process all file t&ypes (*.*)");
            }
            EXPECT_EQ(Button(shown, "&Add ->")->isEnabled(),
                      !Button(shown, "Process all file t&ypes (*.*)")->isChecked());
            Click(shown, c.button);
        });
        dialog.DoModal(types);
        EXPECT_EQ(types, c.after) << c.what;
    }
}

}  // namespace
}  // namespace quorbit
