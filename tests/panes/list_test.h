// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fixture for the list panes: a separate profile, scripted answers to prompts, and simulated mouse
// and menu input.

#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include "panes/list_view_ex.h"
#include "panes/pane_services.h"
#include "support/fake_prompts.h"
#include "support/fake_views.h"
#include "support/scoped_variable.h"
#include "support/shell_test.h"
#include "support/widgets.h"

namespace quorbit {

class ListTest : public ShellTest {
protected:
    [[nodiscard]] PaneServices Services()
    {
        PaneServices services;
        services.pDoc = &doc;
        services.pProfile = &profile;
        services.pPrompts = &prompts;
        services.pIcons = &icons;
        services.sendCommand = [this](int nId) {
            sent.push_back(nId);
            if (whileSent) {
                whileSent();
            }
        };
        services.postCommand = [this](int nId) { posted.push_back(nId); };
        services.setActive = [this](CView* active) { activated.push_back(active); };
        services.isFrameMinimised = [this] { return minimised; };
        return services;
    }

    static void Show(CListViewEx& list)
    {
        list.resize(600, 400);
        list.show();
        list.activateWindow();
        list.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
        ASSERT_TRUE(Until([&] { return list.HasFocus(); }));
    }

    // The centre of the first column of a row, in viewport pixels. Scrolls to the row.
    static QPoint PlaceOf(const CListViewEx& list, int row)
    {
        QAbstractItemView& view = list.ActiveView();
        const QModelIndex index = view.model()->index(row, 0);
        view.scrollTo(index);
        return view.visualRect(index).center();
    }
    static void Click(const CListViewEx& list, int row, Qt::KeyboardModifiers keys = Qt::NoModifier,
                      Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(list.ActiveView().viewport(), button, keys, PlaceOf(list, row));
    }
    static void DoubleClick(const CListViewEx& list, int row)
    {
        QTest::mouseDClick(list.ActiveView().viewport(), Qt::LeftButton, {}, PlaceOf(list, row));
    }
    // Right-clicks into the empty area of the list.
    static void RightClickBeside(const CListViewEx& list)
    {
        QWidget* viewport = list.ActiveView().viewport();
        QTest::mouseClick(viewport, Qt::RightButton, {},
                          viewport->rect().bottomRight() - QPoint(3, 3));
    }
    static void PressMenuKey(const CListViewEx& list)
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(&list.ActiveView(), &event);
    }
    // Closes the open menu and returns its item texts, with "-" before disabled ones. Empty if no
    // menu is open.
    static std::vector<std::string> CloseMenu(const CListViewEx& list)
    {
        std::vector<std::string> texts;
        if (list.PopupMenu() == nullptr || !list.PopupMenu()->isVisible()) {
            return texts;
        }
        for (const QAction* action : list.PopupMenu()->actions()) {
            texts.push_back((action->isEnabled() ? "" : "-") +
                            action->text().remove(QLatin1Char('&')).toStdString());
        }
        list.PopupMenu()->close();
        return texts;
    }
    static std::vector<std::string> Column(const CListViewEx& list, int column)
    {
        const QAbstractItemModel& model = *list.Report().model();
        std::vector<std::string> texts;
        for (int row = 0; row < model.rowCount(); ++row) {
            texts.push_back(model.index(row, column).data().toString().toStdString());
        }
        return texts;
    }

    ScopedVariable config{"XDG_CONFIG_HOME", m_folder.Path() + "/config"};
    Profile profile{OpenSettingsStores().profile};
    CQRBDoc doc;
    FakePrompts prompts;
    ItemIcons icons;
    std::vector<int> sent;
    std::vector<int> posted;
    std::vector<CView*> activated;
    std::function<void()> whileSent;  // may be null
    bool minimised = false;
};

}  // namespace quorbit
