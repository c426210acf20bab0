// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drag_payload.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace quorbit {

namespace {

constexpr std::string_view kMark = "QRB";
constexpr std::size_t kBlock = 4096;
constexpr char kButton[] = "quorbitButton";

QString PlainText()
{
    return QStringLiteral("text/plain");
}

}  // namespace

std::string FolderPayload(std::string_view path)
{
    std::string payload(kMark);
    payload.append("D").append(path).push_back('\0');
    return payload;
}

std::string ListPayload(const std::vector<std::string>& names)
{
    std::string payload(kMark);
    payload += 'F';
    const char* between = "";
    for (const std::string& name : names) {
        payload.append(between).append(name);
        between = ", ";
    }
    payload.resize((payload.size() + kBlock - 1) / kBlock * kBlock);
    return payload;
}

std::optional<std::string> ReadPayload(std::string_view block)
{
    const std::string_view text = block.substr(0, block.find('\0'));
    return text.starts_with(kMark) ? std::optional<std::string>(text.substr(kMark.size()))
                                   : std::nullopt;
}

std::unique_ptr<QMimeData> MakeDragData(std::string_view payload, Qt::MouseButton button)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(PlainText(), QByteArray(payload.data(), static_cast<qsizetype>(payload.size())));
    data->setProperty(kButton, static_cast<int>(button));
    return data;
}

std::optional<std::string> TextOf(const QMimeData& data)
{
    if (data.hasFormat(PlainText())) {
        return data.data(PlainText()).toStdString();
    }
    return data.hasText() ? std::optional(data.text().toStdString()) : std::nullopt;
}

Qt::MouseButton ButtonOf(const QMimeData& data)
{
    return static_cast<Qt::MouseButton>(data.property(kButton).toInt());
}

}  // namespace quorbit
