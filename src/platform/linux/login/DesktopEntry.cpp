#include "login/DesktopEntry.h"

#include <QFile>
#include <QFileInfo>

namespace Quillstacks {

namespace {

constexpr qint64 largestFile = 1024 * 1024;
constexpr auto mainGroup = "[Desktop Entry]";

/// \s \n \t \r \\ as the specification has them; another letter after a backslash stays with it, as "\;" in lists.
QString unescaped(const QString& value) {
    QString result;
    for (qsizetype at = 0; at < value.size(); ++at) {
        if (value[at] != u'\\' || at + 1 == value.size()) {
            result += value[at];
            continue;
        }
        const QChar letter = value[++at];
        const qsizetype known = QStringLiteral("sntr\\").indexOf(letter);
        if (known < 0)
            result += u'\\';
        result += known < 0 ? letter : QStringLiteral(" \n\t\r\\")[known];
    }
    return result;
}

/// What stands between the quotes at the beginning of a command; empty when they are not closed.
QString quotedArgument(const QString& command) {
    QString result;
    for (qsizetype at = 1; at < command.size(); ++at) {
        if (command[at] == u'"')
            return result;
        if (command[at] == u'\\' && at + 1 < command.size())
            ++at;
        result += command[at];
    }
    return {};
}

} // namespace

DesktopEntry::DesktopEntry(const QByteArray& contents) {
    bool isInGroup = false;
    for (const QByteArray& each : contents.split('\n')) {
        const QByteArray line = each.trimmed();
        if (line.startsWith('[')) {
            isInGroup = line == mainGroup;
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (isInGroup && equals > 0 && !line.startsWith('#'))
            values.insert(line.first(equals).trimmed(), line.mid(equals + 1).trimmed());
    }
}

std::optional<DesktopEntry> DesktopEntry::read(const QString& path) {
    // Only a regular file: opening a pipe would wait for somebody to write into it.
    const QFileInfo info(path);
    QFile file(path);
    if (!info.isFile() || info.size() > largestFile || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return DesktopEntry(file.read(largestFile));
}

QString DesktopEntry::text(const QByteArray& key) const {
    return unescaped(QString::fromUtf8(values.value(key)));
}

bool DesktopEntry::boolean(const QByteArray& key, bool fallback) const {
    const QByteArray value = values.value(key);
    if (value == "true")
        return true;
    return value == "false" ? false : fallback;
}

QStringList DesktopEntry::list(const QByteArray& key) const {
    return text(key).split(u';', Qt::SkipEmptyParts);
}

QString DesktopEntry::program() const {
    const QString command = text("Exec").trimmed();
    QString result = command.startsWith(u'"') ? quotedArgument(command) : command.section(u' ', 0, 0);
    return result.replace(QStringLiteral("%%"), QStringLiteral("%"));
}

QString DesktopEntry::execOf(const QString& path) {
    // Quoted for the command line first, then escaped as any text of a desktop file.
    QString result;
    for (const QChar letter : path) {
        if (QStringLiteral("\"`$\\").contains(letter))
            result += u'\\';
        result += letter;
        if (letter == u'%')
            result += letter;
    }
    result = u'"' + result + u'"';
    result.replace(u'\\', QStringLiteral("\\\\"));
    return result.replace(u'\n', QStringLiteral("\\n"))
        .replace(u'\t', QStringLiteral("\\t"))
        .replace(u'\r', QStringLiteral("\\r"));
}

} // namespace Quillstacks
