// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/ok_cancel_row.h"

#include <QPushButton>

#include "document/help_topic.h"
#include "document/help_topics.h"

namespace quorbit {

QHBoxLayout* MakeOkCancelRow(QDialog& dialog, const QString& ok, const QString& cancel)
{
    auto* accepts = new QPushButton(ok, &dialog);
    auto* rejects = new QPushButton(cancel, &dialog);
    accepts->setDefault(true);
    SetHelpTopics({{accepts, kTopicOk}, {rejects, kTopicCancel}});
    QObject::connect(accepts, &QPushButton::clicked, &dialog, &QDialog::accept);
    QObject::connect(rejects, &QPushButton::clicked, &dialog, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(accepts);
    row->addWidget(rejects);
    return row;
}

}  // namespace quorbit
