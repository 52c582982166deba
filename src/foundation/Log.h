#pragma once

#include <QString>

#include <exception>
#include <functional>

namespace Quillstacks {

enum class LogLevel { Debug, Info, Default, Error, Fault };

/// One line of the log, as it reaches the sink.
struct LogRecord {
    LogLevel level = LogLevel::Default;
    QString subsystem; ///< "app.Quillstacks"
    QString category;  ///< one of the six
    QString message;   ///< private values already replaced by "<private>"
};

/// A subject of the log. Use the six shared ones in Log.
class Logger final {
public:
    explicit constexpr Logger(const char* name) : category(name) {}

    void debug(const QString& message) const;
    void info(const QString& message) const;
    void standard(const QString& message) const; ///< level "default"
    void error(const QString& message) const;
    void fault(const QString& message) const;
    void write(LogLevel level, const QString& message) const;

private:
    const char* category;
};

/// The program's diagnostics. Bodies of prompts never go here.
namespace Log {

inline constexpr Logger general{"general"};
inline constexpr Logger data{"data"};
inline constexpr Logger hotkey{"hotkey"};
inline constexpr Logger permissions{"permissions"};
inline constexpr Logger ui{"ui"};
inline constexpr Logger importExport{"importExport"};

using Sink = std::function<void(const LogRecord&)>;
/// Puts a sink in the place of the present one and returns that one. An empty sink is standard error, a line each:
/// "Quillstacks[category] level: message".
Sink setSink(Sink sink);

/// One such line. For a sink that can't get rid of a record.
void writeToStandardError(const LogRecord& record);

/// Stands in a message for a value that must not be readable: "<private>", whatever the value.
[[nodiscard]] QString redacted(const QString& value);

void logAppStart();
void logDataError(const QString& context, const std::exception& error);
void logStorageLocation(const QString& path);
void logHotkeyRegistration(qint64 keyCode, qint64 modifiers, bool success);
void logPermission(const QString& name, bool granted);
void logOperation(const QString& name, bool success, qint64 itemCount);

/// What logAppStart() appends: "short version (build)". A value that is empty reads as "Unknown".
[[nodiscard]] QString versionText(const QString& shortVersion, const QString& build);
/// The two values that versionText() is fed with; the shell sets them once from the build. Empty until then.
void setVersion(const QString& shortVersion, const QString& build);

} // namespace Log
} // namespace Quillstacks
