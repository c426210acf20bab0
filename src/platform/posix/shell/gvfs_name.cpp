// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/shell/gvfs_name.h"

#include <QByteArray>
#include <algorithm>
#include <cstddef>
#include <map>

#include "platform/path_text.h"

namespace quorbit {

namespace {

std::string Decode(std::string_view value)
{
    return QByteArray::fromPercentEncoding(
               QByteArray(value.data(), static_cast<qsizetype>(value.size())))
        .toStdString();
}

// Parses "key=value,key=value" and decodes the values.
std::map<std::string_view, std::string> ReadValues(std::string_view text)
{
    std::map<std::string_view, std::string> values;
    while (!text.empty()) {
        const std::string_view pair = text.substr(0, text.find(','));
        text.remove_prefix(std::min(pair.size() + 1, text.size()));
        if (const std::size_t equals = pair.find('='); equals != std::string_view::npos) {
            values[pair.substr(0, equals)] = Decode(pair.substr(equals + 1));
        }
    }
    return values;
}

}  // namespace

std::string GvfsLabel(std::string_view name)
{
    const std::size_t colon = name.find(':');
    if (colon == std::string_view::npos) {
        return Printable(name);
    }
    auto values = ReadValues(name.substr(colon + 1));
    const std::string server = values["server"].empty() ? values["host"] : values["server"];
    if (server.empty()) {
        return Printable(name);
    }
    const std::string share =
        values["share"].empty() ? SplitLast(values["prefix"]).second : values["share"];
    return Printable(share.empty() ? server : share + " on " + server);
}

}  // namespace quorbit
