#include "foundation/Log.h"

#include "foundation/LocalizedError.h"

#include <cstdio>
#include <memory>
#include <mutex>

namespace Quillstacks {
namespace {

/// What all threads share. Never destroyed, so that a log line in a late destructor still finds it.
struct Shared {
    std::mutex mutex;
    std::shared_ptr<const Log::Sink> sink;
    QString shortVersion;
    QString build;
};

Shared& shared() {
    static Shared& instance = *new Shared;
    return instance;
}

QLatin1String levelName(LogLevel level) {
    switch (level) {
    case LogLevel::Debug:
        return QLatin1String("debug");
    case LogLevel::Info:
        return QLatin1String("info");
    case LogLevel::Default:
        return QLatin1String("default");
    case LogLevel::Error:
        return QLatin1String("error");
    case LogLevel::Fault:
        return QLatin1String("fault");
    }
    return QLatin1String("default");
}

} // namespace

void Logger::write(LogLevel level, const QString& message) const {
    std::shared_ptr<const Log::Sink> sink;
    {
        const std::lock_guard lock(shared().mutex);
        sink = shared().sink;
    }
    const LogRecord record{level, QStringLiteral("app.Quillstacks"), QString::fromLatin1(category), message};
    // Called without the lock, so that a sink may log or be replaced while it runs.
    if (sink)
        (*sink)(record);
    else
        Log::writeToStandardError(record);
}

void Logger::debug(const QString& message) const {
    write(LogLevel::Debug, message);
}

void Logger::info(const QString& message) const {
    write(LogLevel::Info, message);
}

void Logger::standard(const QString& message) const {
    write(LogLevel::Default, message);
}

void Logger::error(const QString& message) const {
    write(LogLevel::Error, message);
}

void Logger::fault(const QString& message) const {
    write(LogLevel::Fault, message);
}

Log::Sink Log::setSink(Sink sink) {
    auto replacement = sink ? std::make_shared<const Sink>(std::move(sink)) : nullptr;
    const std::lock_guard lock(shared().mutex);
    shared().sink.swap(replacement);
    return replacement ? *replacement : Sink();
}

void Log::writeToStandardError(const LogRecord& record) {
    const QByteArray line = QStringLiteral("Quillstacks[%1] %2: %3\n")
                                .arg(record.category, levelName(record.level), record.message)
                                .toUtf8();
    // One call per line keeps lines of several threads apart.
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
}

QString Log::redacted(const QString&) {
    return QStringLiteral("<private>");
}

void Log::logAppStart() {
    QString shortVersion;
    QString build;
    {
        const std::lock_guard lock(shared().mutex);
        shortVersion = shared().shortVersion;
        build = shared().build;
    }
    general.info(QStringLiteral("Quillstacks initialized - version: ") + versionText(shortVersion, build));
}

void Log::logDataError(const QString& context, const std::exception& error) {
    data.error(QStringLiteral("Data error in %1: %2").arg(context, localizedDescription(error)));
}

void Log::logStorageLocation(const QString& path) {
    data.info(QStringLiteral("Data storage location: ") + path);
}

void Log::logHotkeyRegistration(qint64 keyCode, qint64 modifiers, bool success) {
    const QString values =
        QStringLiteral("keyCode: %1, modifiers: %2").arg(QString::number(keyCode), QString::number(modifiers));
    if (success)
        hotkey.info(QStringLiteral("Hotkey registered - ") + values);
    else
        hotkey.error(QStringLiteral("Failed to register hotkey - ") + values);
}

void Log::logPermission(const QString& name, bool granted) {
    if (granted)
        permissions.info(QStringLiteral("Permission granted: ") + name);
    else
        permissions.standard(QStringLiteral("Permission denied: ") + name);
}

void Log::logOperation(const QString& name, bool success, qint64 itemCount) {
    if (success)
        importExport.info(name + QStringLiteral(" completed - items: ") + QString::number(itemCount));
    else
        importExport.error(name + QStringLiteral(" failed"));
}

QString Log::versionText(const QString& shortVersion, const QString& build) {
    const auto orUnknown = [](const QString& value) { return value.isEmpty() ? QStringLiteral("Unknown") : value; };
    return orUnknown(shortVersion) + QStringLiteral(" (") + orUnknown(build) + QLatin1Char(')');
}

void Log::setVersion(const QString& shortVersion, const QString& build) {
    const std::lock_guard lock(shared().mutex);
    shared().shortVersion = shortVersion;
    shared().build = build;
}

} // namespace Quillstacks
