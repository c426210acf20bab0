// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/lock_indicators.h"

#include <QApplication>
#include <QEvent>
#include <cstddef>

#include "app/window/lock_keys.h"

namespace quorbit {
namespace {

constexpr std::array<const char*, 3> kTexts{"CAP", "NUM", "SCRL"};
constexpr std::array<const char*, 3> kNames{"Caps Lock", "Num Lock", "Scroll Lock"};

}  // namespace

LockIndicators::LockIndicators(QStatusBar& bar) : QObject(&bar)
{
    for (std::size_t i = 0; i < kTexts.size(); ++i) {
        auto* label = new QLabel(QLatin1String(kTexts[i]), &bar);
        label->setAccessibleName(QLatin1String(kNames[i]));
        label->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Sunken);
        label->setMinimumWidth(label->sizeHint().width());
        bar.addPermanentWidget(label);
        m_labels[i] = label;
    }
    qApp->installEventFilter(this);
    Update();
}

// Update on key events, and on activation because the keys may have changed while another program
// had the keyboard.
bool LockIndicators::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease ||
        type == QEvent::ApplicationActivate || type == QEvent::WindowActivate) {
        Update();
    }
    return QObject::eventFilter(watched, event);
}

void LockIndicators::Update()
{
    const auto keys = ReadLockKeys();
    const std::array<bool, 3> locked =
        keys ? std::array<bool, 3>{keys->caps, keys->num, keys->scroll} : std::array<bool, 3>{};
    for (std::size_t i = 0; i < m_labels.size(); ++i) {
        m_labels[i]->setVisible(keys.has_value());
        m_labels[i]->setText(locked[i] ? QLatin1String(kTexts[i]) : QLatin1String());
    }
}

}  // namespace quorbit
