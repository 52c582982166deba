#include "backup/format/BackupWriter.h"

#include "backup/format/BackupReader.h"
#include "backup/format/BackupSamples.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

/// The body of a backup with one prompt that has this body.
QByteArray writtenBody(const QString& body) {
    ExportedData data = sampleData();
    data.prompts[0].body = body;
    const QByteArray text = BackupWriter::encoded(data);
    const QByteArray before = "\"body\" : ";
    const qsizetype start = text.indexOf(before) + before.size();
    return text.mid(start, text.indexOf(",\n", start) - start);
}

QByteArray writtenDate(Date date) {
    ExportedData data = sampleData();
    data.exportedAt = date;
    const QByteArray text = BackupWriter::encoded(data);
    const QByteArray before = "\"exportedAt\" : \"";
    const qsizetype start = text.indexOf(before) + before.size();
    return text.mid(start, text.indexOf('"', start) - start);
}

TEST(BackupWriter, theSampleIsWrittenToTheByte) {
    EXPECT_EQ(BackupWriter::encoded(sampleData()).toStdString(), sampleText().toStdString());
}

TEST(BackupWriter, anEmptyLibraryGivesTwoEmptyArraysAndReadsWithoutError) {
    ExportedData data;
    data.version = QStringLiteral("1.0");
    data.exportedAt = sampleDate(2025, 3, 14, 9, 26, 53);
    const QByteArray text = BackupWriter::encoded(data);
    EXPECT_EQ(text.toStdString(), "{\n  \"version\" : \"1.0\",\n  \"exportedAt\" : \"2025-03-14T09:26:53Z\",\n"
                                  "  \"tags\" : [],\n  \"prompts\" : []\n}");
    EXPECT_EQ(BackupReader::decoded(text), data);
}

TEST(BackupWriter, aSlashIsWrittenWithABackslashBeforeIt) {
    EXPECT_EQ(writtenBody(QStringLiteral("and/or")), "\"and\\/or\"");
}

TEST(BackupWriter, whatMayNotStandForItselfIsEscaped) {
    EXPECT_EQ(writtenBody(QStringLiteral("\"\\\b\f\n\r\t")), R"("\"\\\b\f\n\r\t")");
    EXPECT_EQ(writtenBody(QString(QChar(0)) + QChar(0x1F) + QChar(0x7F)), "\"\\u0000\\u001f\x7F\"");
}

TEST(BackupWriter, allOtherTextIsPlainUtf8) {
    EXPECT_EQ(writtenBody(QStringLiteral("Ünïcödé ✓ 😀 \u2028")), QStringLiteral("\"Ünïcödé ✓ 😀 \u2028\"").toUtf8());
}

TEST(BackupWriter, halfASurrogatePairBecomesTheReplacementCharacterAndTheFileStaysReadable) {
    const QString halves = QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("/b") + QChar(0xDE00) + QChar(0xD83D);
    const QString replaced = QStringLiteral("a\uFFFD/b\uFFFD\uFFFD");
    ExportedData data = sampleData();
    data.prompts[0].body = halves;
    EXPECT_EQ(BackupReader::decoded(BackupWriter::encoded(data)).prompts[0].body, replaced);
}

TEST(BackupWriter, datesAreUtcInWholeSecondsAndFractionsAreDropped) {
    const Date date = sampleDate(2025, 3, 14, 9, 26, 53);
    EXPECT_EQ(writtenDate(date + std::chrono::microseconds(999'999)), "2025-03-14T09:26:53Z");
    EXPECT_EQ(writtenDate(sampleDate(1969, 12, 31, 23, 59, 58) + std::chrono::milliseconds(500)),
              "1969-12-31T23:59:58Z");
    EXPECT_EQ(writtenDate(sampleDate(2024, 2, 29, 0, 0, 0)), "2024-02-29T00:00:00Z");
}

TEST(BackupWriter, aDateThatNoFourDigitsHoldBecomesTheNearestOneThatReadsBack) {
    EXPECT_EQ(writtenDate(Date::max()), "9999-12-31T23:59:59Z");
    EXPECT_EQ(writtenDate(distantPast), "0000-01-01T00:00:00Z");
    for (const Date date : {Date::max(), distantPast}) {
        ExportedData data = sampleData();
        data.exportedAt = date;
        EXPECT_NO_THROW(std::ignore = BackupReader::decoded(BackupWriter::encoded(data)));
    }
}

TEST(BackupWriter, otherReadersOfJsonUnderstandIt) {
    ExportedData data = sampleData();
    data.prompts[0].body = QStringLiteral("\"quoted\" \\ back / slash\n\ttab \u0001 é 😀");
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(BackupWriter::encoded(data), &error);
    ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    const QJsonObject prompt = document[QStringLiteral("prompts")].toArray()[0].toObject();
    EXPECT_EQ(prompt[QStringLiteral("body")].toString(), data.prompts[0].body);
    EXPECT_EQ(document[QStringLiteral("version")].toString(), QStringLiteral("1.0"));
}

} // namespace
} // namespace Quillstacks
