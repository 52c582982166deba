#pragma once

#include "foundation/Log.h"

#include <QStringList>

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

namespace Quillstacks {

/// While one is alive, log records come here instead of to the sink before it.
class LogCapture final {
public:
    LogCapture() {
        previous = Log::setSink([held = held](const LogRecord& record) {
            const std::lock_guard lock(held->mutex);
            held->records.push_back(record);
        });
    }
    ~LogCapture() { Log::setSink(previous); }
    Q_DISABLE_COPY_MOVE(LogCapture)

    [[nodiscard]] std::vector<LogRecord> records() const {
        const std::lock_guard lock(held->mutex);
        return held->records;
    }
    /// All lines as "category level: message", in the order in which they came.
    [[nodiscard]] QStringList lines() const {
        static constexpr const char* names[] = {"debug", "info", "default", "error", "fault"};
        QStringList result;
        for (const LogRecord& record : records())
            result += record.category + QLatin1Char(' ') + QLatin1String(names[static_cast<int>(record.level)]) +
                      QStringLiteral(": ") + record.message;
        return result;
    }
    /// The messages of one category and level.
    [[nodiscard]] QStringList messages(const QString& category, LogLevel level) const {
        QStringList result;
        for (const LogRecord& record : records())
            if (record.category == category && record.level == level)
                result += record.message;
        return result;
    }
    [[nodiscard]] bool contains(const QString& message) const {
        const auto all = records();
        return std::any_of(all.begin(), all.end(), [&](const LogRecord& record) { return record.message == message; });
    }
    void clear() {
        const std::lock_guard lock(held->mutex);
        held->records.clear();
    }

private:
    struct Held {
        mutable std::mutex mutex;
        std::vector<LogRecord> records;
    };
    // Shared with the sink, which another thread may still be calling when the capture ends.
    std::shared_ptr<Held> held = std::make_shared<Held>();
    Log::Sink previous;
};

} // namespace Quillstacks
