// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A toolbar in the flat look, whose buttons are roomy and never cut a label. It docks on all four
// sides and floats. User interface thread only.

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

    // Gripper and separators as the class says, flat buttons with the text below the picture.
    void SetFlatLook();

    // Gives the button of a command an arrow that opens the menu of its action, at the bottom left
    // corner of the button. The number of a button's command is the data of its action. False if
    // there is no such button or no such menu.
    bool SetButtonDropDown(int nId);

    // Null if there is no such button.
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
