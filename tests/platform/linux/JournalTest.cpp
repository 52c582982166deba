// Run by private-run.sh, where /run belongs to this test alone.

#include "platform/Journal.h"

#include <QDir>
#include <QFile>
#include <QMap>

#include <cstring>
#include <utility>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace Quillstacks {

namespace {

constexpr const char* socketPath = "/run/systemd/journal/socket";

/// Listens where the journal would.
class FakeJournal final {
public:
    FakeJournal() {
        QDir().mkpath(QStringLiteral("/run/systemd/journal"));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strcpy(address.sun_path, socketPath);
        number = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        EXPECT_EQ(::bind(number, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }
    ~FakeJournal() {
        ::close(number);
        ::unlink(socketPath);
    }
    Q_DISABLE_COPY_MOVE(FakeJournal)

    /// The name stays, and nobody listens there any more.
    void stop() { ::close(std::exchange(number, -1)); }
    /// The fields of the next record, by name; empty when none has come.
    QMap<QByteArray, QByteArray> next() {
        QByteArray bytes(65536, '\0');
        const ssize_t size = ::recv(number, bytes.data(), static_cast<size_t>(bytes.size()), 0);
        bytes.truncate(std::max<ssize_t>(size, 0));
        QMap<QByteArray, QByteArray> fields;
        while (!bytes.isEmpty()) {
            const qsizetype end = bytes.indexOf('\n');
            const QByteArray head = bytes.left(end);
            bytes.remove(0, end + 1);
            if (const qsizetype equals = head.indexOf('='); equals >= 0) {
                fields.insert(head.left(equals), head.mid(equals + 1));
                continue;
            }
            // A value with line ends: its length in eight bytes, the least first, then the value and a line end.
            quint64 length = 0;
            for (int index = 7; index >= 0; --index)
                length = length << 8 | static_cast<quint8>(bytes.at(index));
            fields.insert(head, bytes.mid(8, static_cast<qsizetype>(length)));
            bytes.remove(0, 8 + static_cast<qsizetype>(length) + 1);
        }
        return fields;
    }

private:
    int number = -1;
};

LogRecord record(LogLevel level, const char* message) {
    return {.level = level,
            .subsystem = QStringLiteral("app.Quillstacks"),
            .category = QStringLiteral("hotkey"),
            .message = QString::fromUtf8(message)};
}

TEST(Journal, aLineCarriesItsSubsystemCategoryAndPriority) {
    FakeJournal journal;
    const auto sink = Journal::sink();
    ASSERT_TRUE(sink);
    sink(record(LogLevel::Info, "Hotkey registered"));
    const auto fields = journal.next();
    EXPECT_EQ(fields.value("MESSAGE"), "Hotkey registered");
    EXPECT_EQ(fields.value("PRIORITY"), "6");
    EXPECT_EQ(fields.value("SYSLOG_IDENTIFIER"), "app.Quillstacks");
    EXPECT_EQ(fields.value("SUBSYSTEM"), "app.Quillstacks");
    EXPECT_EQ(fields.value("CATEGORY"), "hotkey");
    EXPECT_EQ(fields.size(), 5);
    EXPECT_TRUE(journal.next().isEmpty()) << "one line, one record";
}

TEST(Journal, eachLevelHasItsPriority) {
    FakeJournal journal;
    const auto sink = Journal::sink();
    ASSERT_TRUE(sink);
    const std::vector<std::pair<LogLevel, QByteArray>> priorities = {{LogLevel::Debug, "7"},
                                                                     {LogLevel::Info, "6"},
                                                                     {LogLevel::Default, "5"},
                                                                     {LogLevel::Error, "3"},
                                                                     {LogLevel::Fault, "2"}};
    for (const auto& [level, priority] : priorities) {
        sink(record(level, "x"));
        EXPECT_EQ(journal.next().value("PRIORITY"), priority);
    }
}

TEST(Journal, anyTextArrivesWhole) {
    FakeJournal journal;
    const auto sink = Journal::sink();
    ASSERT_TRUE(sink);
    for (const char* text : {"100 %s %n", "two\nlines\n", "ünï → 🙂", ""}) {
        sink(record(LogLevel::Error, text));
        EXPECT_EQ(journal.next().value("MESSAGE"), QByteArray(text));
    }
}

TEST(Journal, aLineThatItDoesNotTakeGoesToStandardErrorWithItsLevel) {
    FakeJournal journal;
    const auto sink = Journal::sink();
    ASSERT_TRUE(sink);
    journal.stop();
    testing::internal::CaptureStderr();
    sink(record(LogLevel::Error, "100 %s"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Quillstacks[hotkey] error: 100 %s\n");
}

TEST(Journal, withoutOneTheSinkIsStandardErrors) {
    ASSERT_FALSE(QFile::exists(QString::fromLatin1(socketPath)));
    EXPECT_FALSE(Journal::sink());
}

} // namespace
} // namespace Quillstacks
