// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Which topic of the help tells of a control: a number that the control carries. 0: none. The
// numbers are those of document/help_topics.h. User interface thread only.

#pragma once

#include <QObject>
#include <QVariant>
#include <initializer_list>

namespace quorbit {

inline constexpr char kHelpTopicProperty[] = "helpTopic";

inline void SetHelpTopic(QObject& control, int topic)
{
    control.setProperty(kHelpTopicProperty, topic);
}

[[nodiscard]] inline int HelpTopicOf(const QObject& control)
{
    return control.property(kHelpTopicProperty).toInt();
}

// A row of a dialog's table of controls and topics. The control is not owned and never null.
struct ControlTopic {
    QObject* control;
    int topic;
};

inline void SetHelpTopics(std::initializer_list<ControlTopic> table)
{
    for (const ControlTopic& row : table) {
        SetHelpTopic(*row.control, row.topic);
    }
}

}  // namespace quorbit
