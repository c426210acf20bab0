// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The style of the application: that of the desktop, without pictures on the buttons of dialogs.
// Those of message boxes then look like those of all other dialogs. User interface thread only.

#pragma once

#include <QProxyStyle>

namespace quorbit {

class ButtonStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

}  // namespace quorbit
