// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drag_payload.h"

#include <QByteArray>
#include <QString>
#include <QUuid>
#include <QVariant>
#include <utility>

#include "platform/path_text.h"

namespace quorbit {

namespace {

constexpr std::string_view kMark = "QRB";
constexpr std::size_t kBlock = 4096;
constexpr char kButton[] = "quorbitButton";

QString PlainText()
{
    return QStringLiteral("text/plain");
}

QString NamesFormat()
{
    return QStringLiteral("application/x-quorbit-names");
}

// Differs in every process, also on different machines that share a display.
const std::string& ThisProcess()
{
    static const std::string id = QUuid::createUuid().toByteArray().toStdString();
    return id;
}

QByteArray Bytes(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

QByteArray EncodeNames(const std::vector<std::string>& names)
{
    std::string encoded = ThisProcess() + '\0';
    for (const std::string& name : names) {
        encoded.append(name).push_back('\0');
    }
    return Bytes(encoded);
}

// Returns nullopt if the names are from another process.
std::optional<std::vector<std::string>> DecodeNames(const QByteArray& data)
{
    std::vector<std::string> names;
    for (const QByteArray& name : data.split('\0')) {
        names.push_back(name.toStdString());
    }
    if (names.front() != ThisProcess()) {
        return std::nullopt;
    }
    names.erase(names.begin());
    if (!names.empty()) {
        names.pop_back();  // after the last zero byte
    }
    return names;
}

// Returns the plain text of a drag from any program, or nullopt if it has none.
std::optional<std::string> TextOf(const QMimeData& data)
{
    if (data.hasFormat(PlainText())) {
        return data.data(PlainText()).toStdString();
    }
    return data.hasText() ? std::optional(data.text().toStdString()) : std::nullopt;
}

bool IsAbsolute(std::string_view path)
{
    return path.starts_with('/') || IsDrivePath(path);
}

}  // namespace

DragContent FolderDrag(std::string_view path)
{
    return {.text = std::string("D").append(path), .names = {}};
}

DragContent ListDrag(std::vector<std::string> names)
{
    std::string text = "F";
    const char* between = "";
    for (const std::string& name : names) {
        text.append(between).append(name);
        between = ", ";
    }
    return {.text = std::move(text), .names = std::move(names)};
}

std::string PayloadOf(const DragContent& content)
{
    std::string payload = std::string(kMark) + content.text;
    const std::size_t blocks = (payload.size() + kBlock - 1) / kBlock;
    payload.resize(content.IsList() ? blocks * kBlock : payload.size() + 1);
    return payload;
}

std::optional<std::string> ReadPayload(std::string_view block)
{
    const std::string_view text = block.substr(0, block.find('\0'));
    return text.starts_with(kMark) ? std::optional<std::string>(text.substr(kMark.size()))
                                   : std::nullopt;
}

std::unique_ptr<QMimeData> MakeDragData(const DragContent& content, Qt::MouseButton button)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(PlainText(), Bytes(PayloadOf(content)));
    if (!content.names.empty()) {
        data->setData(NamesFormat(), EncodeNames(content.names));
    }
    data->setProperty(kButton, static_cast<int>(button));
    return data;
}

std::optional<DragContent> ReadDrag(const QMimeData& data)
{
    const auto block = TextOf(data);
    auto text = block ? ReadPayload(*block) : std::nullopt;
    if (!text) {
        return std::nullopt;
    }
    DragContent content{.text = std::move(*text), .names = {}};
    if (!content.IsList()) {
        const bool valid = content.text.starts_with('D') && IsAbsolute(content.FolderPath());
        return valid ? std::optional(std::move(content)) : std::nullopt;
    }
    if (data.hasFormat(NamesFormat())) {
        auto names = DecodeNames(data.data(NamesFormat()));
        if (!names) {
            return std::nullopt;
        }
        content.names = std::move(*names);
    }
    return content;
}

Qt::MouseButton ButtonOf(const QMimeData& data)
{
    return static_cast<Qt::MouseButton>(data.property(kButton).toInt());
}

}  // namespace quorbit
