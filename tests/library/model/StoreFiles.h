#pragma once

#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillstacks {

using FolderBytes = QMap<QString, QByteArray>;

/// The names and bytes of all files of a folder. Not while this process has one of them open as a store.
[[nodiscard]] inline FolderBytes bytesOf(const QString& folder) {
    FolderBytes bytes;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        QFile file(QDir(folder).filePath(name));
        if (file.open(QIODevice::ReadOnly))
            bytes.insert(name, file.readAll());
    }
    return bytes;
}

[[nodiscard]] inline int modeOf(const QString& path) {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? static_cast<int>(status.st_mode & 07777) : -1;
}

inline void setMode(const QString& path, mode_t mode) {
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0) << qPrintable(path);
}

inline void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << qPrintable(path);
    ASSERT_EQ(file.write(bytes), bytes.size());
}

/// While one is alive, the rights of files count also where the tests run as root.
class OrdinaryUser final {
public:
    explicit OrdinaryUser(const QString& folder) {
        if (::geteuid() != 0)
            return;
        own(folder);
        for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
            own(file.filePath());
        changed = ::seteuid(nobody) == 0;
    }
    ~OrdinaryUser() {
        if (changed)
            (void)::seteuid(0);
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

private:
    static constexpr uid_t nobody = 65534;
    static void own(const QString& path) { (void)::chown(QFile::encodeName(path).constData(), nobody, nobody); }
    bool changed = false;
};

/// The test's second process; killed where it is still alive at the end.
class StoreProcess final {
public:
    StoreProcess(const char* mode, const QString& store) {
        process.start(QStringLiteral(STORE_PROCESS), {QLatin1String(mode), store});
    }
    ~StoreProcess() { kill(); }
    Q_DISABLE_COPY_MOVE(StoreProcess)

    /// The next line that it tells.
    QString line() {
        while (!process.canReadLine()) {
            if (!process.waitForReadyRead(20'000))
                return {};
        }
        return QString::fromUtf8(process.readLine()).trimmed();
    }
    QString rest() { return QString::fromUtf8(process.readAll()); }
    void kill() {
        if (process.state() == QProcess::NotRunning)
            return;
        process.kill();
        process.waitForFinished();
    }
    int finish() {
        process.closeWriteChannel();
        process.waitForFinished();
        return process.exitCode();
    }

private:
    QProcess process;
};

} // namespace Quillstacks
