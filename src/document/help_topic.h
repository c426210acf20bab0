// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Stores the help topic of a control in a dynamic property. Topics are the numbers of
// document/help_topics.h; 0 means none. User interface thread only.

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

// A control and its topic. The control is not owned and must not be null.
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
