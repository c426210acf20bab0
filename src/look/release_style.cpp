// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/release_style.h"

#include <QApplication>
#include <QWidget>

namespace quorbit {

void ReleaseStyle(const QStyle& style)
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->style() == &style) {
            widget->setStyle(nullptr);
        }
    }
}

}  // namespace quorbit
