#pragma once

#include "backup/DataExportImportViewModel.h"
#include "backup/format/BackupSamples.h"
#include "backup/format/BackupWriter.h"
#include "foundation/Clock.h"
#include "foundation/MainQueue.h"
#include "library/model/TestLibrary.h"
#include "support/LogCapture.h"

#include <QCoreApplication>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {

/// While one is alive, each question after the time moves it on, so that every slice of work is as short as it can be.
class TickingClock final {
public:
    TickingClock() { Clock::setSource({systemNow, tick}); }
    ~TickingClock() { Clock::setSource({}); }
    Q_DISABLE_COPY_MOVE(TickingClock)

private:
    static Date systemNow() { return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now()); }
    static std::chrono::nanoseconds tick() {
        static std::chrono::nanoseconds now{0};
        return now += std::chrono::milliseconds(6);
    }
};

/// A library, a folder for backup files, and the log.
class BackupFixture : public testing::Test {
protected:
    [[nodiscard]] QString filePath(const char* name = "Backup.json") const {
        return files.filePath(QString::fromLatin1(name));
    }
    QString makeFile(const QByteArray& bytes, const char* name = "Backup.json") const {
        QFile file(filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }
    QString makeFile(const ExportedData& data) const { return makeFile(BackupWriter::encoded(data)); }
    [[nodiscard]] static QByteArray contents(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Imports to the end.
    ImportResult import(const QString& path) {
        model.importData(path, library.context());
        EXPECT_TRUE(model.isImporting());
        EXPECT_TRUE(QTest::qWaitFor([this] { return !model.isImporting(); }, 60'000));
        return model.importResult().value_or(ImportResult());
    }
    [[nodiscard]] QStringList infos() const { return log.messages(category, LogLevel::Info); }
    [[nodiscard]] QStringList errors() const { return log.messages(category, LogLevel::Error); }

    const QString category = QStringLiteral("importExport");
    QTemporaryDir files;
    TestLibrary library;
    DataExportImportViewModel model;
    LogCapture log;
};

/// A prompt as it stands in a file.
inline ExportedPrompt filePrompt(const QString& title, const QString& body = {}, const QList<Uuid>& tagIds = {}) {
    ExportedPrompt prompt = sampleData().prompts[0];
    prompt.id = randomUuid();
    prompt.title = title;
    prompt.body = body;
    prompt.tagIds = tagIds;
    prompt.versions.clear();
    return prompt;
}

inline ExportedTag fileTag(const QString& name, const QString& colorHex = QStringLiteral("3B82F6")) {
    ExportedTag tag = sampleData().tags[0];
    tag.id = randomUuid();
    tag.name = name;
    tag.colorHex = colorHex;
    return tag;
}

inline ExportedData fileData(const QList<ExportedTag>& tags, const QList<ExportedPrompt>& prompts) {
    ExportedData data = sampleData();
    data.tags = tags;
    data.prompts = prompts;
    return data;
}

} // namespace Quillstacks
