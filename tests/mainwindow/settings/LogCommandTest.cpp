// Run by journal-run.sh, where the journal belongs to this test alone.

#include "LogExportHelpView.h"

#include "platform/Journal.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

/// What a shell leaves on the desktop when a user runs the command in it.
QByteArray exportedLog(const QString& home) {
    QProcess shell;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home);
    environment.remove(QStringLiteral("XDG_CONFIG_HOME"));
    shell.setProcessEnvironment(environment);
    shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), LogExportHelpView::command()});
    EXPECT_TRUE(shell.waitForFinished(20'000));
    EXPECT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().constData();
    QFile file(home + QStringLiteral("/Desktop/Quillstacks_logs.txt"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(LogCommand, writesTheLogOfTheLastHourOntoTheDesktop) {
    const QTemporaryDir home;
    QDir(home.path()).mkdir(QStringLiteral("Desktop"));
    const auto sink = Journal::sink();
    ASSERT_TRUE(sink);
    const std::pair<LogLevel, const char*> lines[] = {
        {LogLevel::Debug, "a detail"}, {LogLevel::Info, "a fact"}, {LogLevel::Error, "a failure"}};
    for (const auto& [level, message] : lines)
        sink({.level = level,
              .subsystem = QStringLiteral("app.Quillstacks"),
              .category = QStringLiteral("data"),
              .message = QString::fromLatin1(message)});
    sink({.level = LogLevel::Error,
          .subsystem = QStringLiteral("app.Other"),
          .category = QStringLiteral("data"),
          .message = QStringLiteral("of another program")});
    // The journal takes its time to write down what it was told.
    QByteArray log;
    QElapsedTimer waited;
    waited.start();
    while (!log.contains("a failure") && waited.elapsed() < 20'000) {
        log = exportedLog(home.path());
        QThread::yieldCurrentThread();
    }
    for (const auto& [level, message] : lines)
        EXPECT_TRUE(log.contains(message)) << message;
    EXPECT_FALSE(log.contains("of another program"));
}

} // namespace
} // namespace Quillstacks
