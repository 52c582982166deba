#include "platform/Journal.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

#define SD_JOURNAL_SUPPRESS_LOCATION // ours are written by one helper, whose own place in the code tells nothing
#include <sys/uio.h>
#include <syslog.h>
#include <systemd/sd-journal.h>

namespace Quillstacks::Journal {

namespace {

constexpr const char* journalSocket = "/run/systemd/journal/socket";

int priority(LogLevel level) {
    switch (level) {
    case LogLevel::Debug:
        return LOG_DEBUG;
    case LogLevel::Info:
        return LOG_INFO;
    case LogLevel::Default:
        return LOG_NOTICE;
    case LogLevel::Error:
        return LOG_ERR;
    case LogLevel::Fault:
        return LOG_CRIT;
    }
    return LOG_NOTICE;
}

QByteArray field(const char* name, const QString& value) {
    return QByteArray(name) + '=' + value.toUtf8();
}

iovec part(QByteArray& text) {
    return {text.data(), static_cast<size_t>(text.size())};
}

void send(const LogRecord& record) {
    // One buffer per field, not a format string: a message may hold line ends and per cent signs.
    std::array<QByteArray, 5> fields = {
        field("MESSAGE", record.message),
        field("PRIORITY", QString::number(priority(record.level))),
        field("SYSLOG_IDENTIFIER", record.subsystem),
        field("SUBSYSTEM", record.subsystem),
        field("CATEGORY", record.category),
    };
    std::array<iovec, 5> parts{};
    std::ranges::transform(fields, parts.begin(), part);
    if (sd_journal_sendv(parts.data(), static_cast<int>(parts.size())) < 0)
        Log::writeToStandardError(record);
}

} // namespace

Log::Sink sink() {
    // Sending succeeds even where nobody listens, so look for the socket first. An empty sink is standard error.
    if (!QFileInfo::exists(QString::fromLatin1(journalSocket)))
        return {};
    return send;
}

} // namespace Quillstacks::Journal
