// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A toolbar with flat buttons that are large enough for their labels. It can dock on all four sides
// and float. User interface thread only.

#pragma once

#include <QMenu>
#include <QSize>
#include <QToolBar>
#include <QToolButton>

#include "look/flat_tool_bar_style.h"

namespace quorbit {

class CFlatToolBar : public QToolBar {
public:
    explicit CFlatToolBar(const QString& title, QWidget* parent = nullptr);
    ~CFlatToolBar() override;

    // Applies FlatToolBarStyle and shows the text of the buttons below the picture.
    void SetFlatLook();

    // Adds a drop-down arrow to the button of command nId. The arrow opens the menu of the button's
    // action, below the button if there is room on the screen. The data of an action is its command
    // number. Returns false if there is no such button or its action has no menu.
    bool SetButtonDropDown(int nId);

    // Returns the button of command nId, or null if there is none.
    [[nodiscard]] QToolButton* Button(int nId) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    bool event(QEvent* event) override;
    void actionEvent(QActionEvent* event) override;

private:
    void PutMargins();
    void DropStaleLight();
    void PutSizes();
    void PlaceMenu(QMenu& menu) const;
    [[nodiscard]] QSize LeastSize() const;

    FlatToolBarStyle m_style;
    bool m_flat = false;
};

}  // namespace quorbit
