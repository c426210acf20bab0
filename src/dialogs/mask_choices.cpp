// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/mask_choices.h"

#include <QApplication>
#include <QCursor>

#include "dialogs/mask_list.h"

namespace quorbit {

std::vector<std::string> MaskChoices(Prompts* prompts)
{
    QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    std::vector<std::string> masks = LoadMasks();
    QApplication::restoreOverrideCursor();
    if (masks.empty() && prompts != nullptr) {
        prompts->Ask("Ooopsie! Problem opening a registry key!", "", PromptIcon::Exclamation,
                     PromptButtons::Ok);
    }
    return masks;
}

}  // namespace quorbit
