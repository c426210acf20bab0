// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/dialog_fitter.h"

#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

namespace quorbit {
namespace {

// The frame of the window manager is unknown before a window is shown, so only the title bar is
// subtracted.
QSize MostFor(const QDialog& dialog)
{
    const int title = dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &dialog);
    return dialog.screen()->availableSize() - QSize(0, title);
}

}  // namespace

void FitToScreen(QDialog& dialog)
{
    QLayout* layout = dialog.layout();
    const QSize most = MostFor(dialog);
    if (layout == nullptr) {
        return;
    }
    const QSize least = layout->totalMinimumSize().expandedTo(dialog.minimumSize());
    if (least.boundedTo(most) == least) {
        return;
    }
    // A child of the dialog from the start: the tab order is lost if the controls change the
    // window.
    auto* content = new QWidget(&dialog);
    content->setLayout(layout);
    auto* scroll = new QScrollArea(&dialog);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidgetResizable(true);
    scroll->setWidget(content);
    auto* outer = new QVBoxLayout(&dialog);
    outer->setContentsMargins({});
    outer->addWidget(scroll);
    dialog.setMinimumSize(0, 0);
    const int bar = scroll->verticalScrollBar()->sizeHint().width();
    dialog.resize((content->sizeHint() + QSize(bar, bar)).boundedTo(most));
}

bool DialogFitter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Polish) {
        auto* dialog = dynamic_cast<QDialog*>(watched);
        if (dialog != nullptr && dynamic_cast<QMessageBox*>(dialog) == nullptr &&
            dynamic_cast<QFileDialog*>(dialog) == nullptr) {
            FitToScreen(*dialog);
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace quorbit
