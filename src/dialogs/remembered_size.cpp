// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/remembered_size.h"

#include <QScreen>
#include <QStringList>
#include <QStyle>

namespace quorbit {
namespace {

// Returns the largest size that fits the screen. The frame size is unknown until the window is
// shown, so only the title bar is subtracted.
QSize MostFor(const QDialog& dialog)
{
    const int title = dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &dialog);
    return dialog.screen()->availableSize() - QSize(0, title);
}

void StoreSize(const QDialog& dialog, const Profile& profile, Setting setting)
{
    const QSize size = dialog.isMaximized() ? dialog.normalGeometry().size() : dialog.size();
    const std::string text = std::to_string(size.width()) + 'x' + std::to_string(size.height());
    if (size.isValid() && text != profile.GetProfileString(setting)) {
        profile.WriteProfileString(setting, text);
    }
}

}  // namespace

QSize SizeOfText(const std::string& text)
{
    const QStringList parts = QString::fromStdString(text).split(QLatin1Char('x'));
    if (parts.size() != 2) {
        return {};
    }
    bool hasWidth = false;
    bool hasHeight = false;
    const QSize size(parts[0].toInt(&hasWidth), parts[1].toInt(&hasHeight));
    return hasWidth && hasHeight && !size.isEmpty() ? size : QSize();
}

void RememberSize(QDialog& dialog, const Profile* profile, Setting setting)
{
    if (profile == nullptr) {
        return;
    }
    if (const QSize stored = SizeOfText(profile->GetProfileString(setting)); stored.isValid()) {
        dialog.resize(stored.boundedTo(MostFor(dialog)));
    }
    QObject::connect(&dialog, &QDialog::finished, &dialog,
                     [&dialog, profile, setting] { StoreSize(dialog, *profile, setting); });
}

}  // namespace quorbit
