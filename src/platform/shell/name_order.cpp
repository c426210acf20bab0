// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/shell/name_order.h"

#include <QLocale>
#include <QString>

namespace quorbit {

namespace {

// The C locale compares code points and supports neither numeric order nor case folding.
QLocale LanguageToSortBy()
{
    const QLocale user;
    return user.language() == QLocale::C ? QLocale(QLocale::English) : user;
}

QString ToText(std::string_view name)
{
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

NameOrder::NameOrder() : m_collator(LanguageToSortBy())
{
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

int NameOrder::Compare(std::string_view first, std::string_view second) const
{
    if (first == second) {
        return 0;
    }
    const QString firstText = ToText(first);
    const QString secondText = ToText(second);
    const std::lock_guard lock(m_mutex);
    const int order = m_collator.compare(firstText, secondText);
    return order != 0 ? order : first.compare(second);
}

}  // namespace quorbit
