// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/web_handler.h"

#include <QFile>
#include <QStandardPaths>
#include <array>
#include <utility>

namespace quorbit {
namespace {

constexpr const char* kWebPage = "text/html";

// Returns the value of a key in a group of a key file, or an empty string if there is none.
QString ReadKey(const QString& path, const char* group, const char* key)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return {};
    }
    const QByteArray head = QByteArray("[") + group + "]";
    bool inGroup = false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        const qsizetype equals = line.indexOf('=');
        if (line.startsWith('[')) {
            inGroup = line == head;
        } else if (inGroup && equals > 0 && line.first(equals).trimmed() == key) {
            return QString::fromUtf8(line.mid(equals + 1).trimmed());
        }
    }
    return {};
}

// Returns the path of a desktop entry by its ID, or an empty string. A dash in an ID may stand for
// a folder separator; only the first dash is tried.
QString EntryPath(const QString& id)
{
    QString path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, id);
    if (path.isEmpty()) {
        QString below = id;
        below.replace(below.indexOf(QLatin1Char('-')), 1, QLatin1Char('/'));
        path = id.contains(QLatin1Char('-'))
                   ? QStandardPaths::locate(QStandardPaths::ApplicationsLocation, below)
                   : QString();
    }
    return path;
}

// Returns the command of the first installed program of a list, or an empty string.
QString CommandOfFirst(const QString& list)
{
    const QStringList ids = list.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& id : ids) {
        const QString path = EntryPath(id.trimmed());
        QString command = path.isEmpty() ? path : ReadKey(path, "Desktop Entry", "Exec");
        if (!command.isEmpty()) {
            return command;
        }
    }
    return {};
}

}  // namespace

QString WebHandlerCommand()
{
    struct Source {
        QStandardPaths::StandardLocation place;
        const char* file;
        const char* group;
    };
    constexpr std::array kSources{
        Source{QStandardPaths::GenericConfigLocation, "mimeapps.list", "Default Applications"},
        Source{QStandardPaths::ApplicationsLocation, "mimeapps.list", "Default Applications"},
        Source{QStandardPaths::ApplicationsLocation, "mimeinfo.cache", "MIME Cache"}};
    for (const Source& source : kSources) {
        const QStringList files =
            QStandardPaths::locateAll(source.place, QLatin1String(source.file));
        for (const QString& file : files) {
            QString command = CommandOfFirst(ReadKey(file, source.group, kWebPage));
            if (!command.isEmpty()) {
                return command;
            }
        }
    }
    return {};
}

QString CutAtPlaceholder(const QString& command)
{
    constexpr std::array kPlaces{"\"%u\"", "\"%U\"", "\"%f\"", "\"%F\"", "%u", "%U", "%f", "%F"};
    for (const char* place : kPlaces) {
        const qsizetype at = command.indexOf(QLatin1String(place));
        if (at >= 0) {
            return command.first(at);
        }
    }
    return command;
}

QStringList SplitCommand(const QString& command)
{
    QStringList words;
    QString word;
    bool inWord = false;
    bool quoted = false;
    const auto finish = [&] {
        const bool code = word.size() == 2 && word.front() == QLatin1Char('%');
        if (inWord && !code) {
            words << word.replace(QStringLiteral("%%"), QStringLiteral("%"));
        }
        word.clear();
        inWord = false;
    };
    for (qsizetype i = 0; i < command.size(); ++i) {
        const QChar sign = command[i];
        if (sign == QLatin1Char('"')) {
            quoted = !quoted;
            inWord = true;
        } else if (sign.isSpace() && !quoted) {
            finish();
        } else {
            const bool escape = sign == QLatin1Char('\\') && quoted && i + 1 < command.size();
            word += escape ? command[++i] : sign;
            inWord = true;
        }
    }
    finish();
    return words;
}

}  // namespace quorbit
