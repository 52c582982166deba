#include "backup/format/BackupReader.h"

#include "backup/format/BackupError.h"
#include "backup/format/BackupSamples.h"
#include "backup/format/BackupWriter.h"

#include <gtest/gtest.h>

#include <string>

namespace Quillstacks {
namespace {

/// The failure's sentence; empty when the text was read.
std::string failure(const QByteArray& text) {
    try {
        std::ignore = BackupReader::decoded(text);
    } catch (const BackupError& error) {
        return error.errorDescription().toStdString();
    }
    return {};
}

/// The sample with one part in another's place.
QByteArray changed(const QByteArray& part, const QByteArray& into, int occurrence = 0) {
    QByteArray text = sampleText();
    qsizetype at = text.indexOf(part);
    for (int passed = 0; passed < occurrence; ++passed)
        at = text.indexOf(part, at + 1);
    EXPECT_GE(at, 0) << part.constData();
    return text.replace(at, part.size(), into);
}

/// The sample without the line of a key; the commas stay right.
QByteArray withoutLine(const QByteArray& start, int occurrence = 0) {
    QByteArray text = sampleText();
    qsizetype at = text.indexOf(start);
    for (int passed = 0; passed < occurrence; ++passed)
        at = text.indexOf(start, at + 1);
    EXPECT_GE(at, 0) << start.constData();
    const qsizetype end = text.indexOf('\n', at);
    text.remove(at, end - at);
    if (text[end - (end - at) - 1] == ' ' && !text.mid(at).trimmed().startsWith('"')) {
        // It was the last of its object: the comma before it goes, too.
        text.remove(text.lastIndexOf(',', at), 1);
    }
    return text;
}

ExportedData bodyRead(const QByteArray& json) {
    return BackupReader::decoded(changed("\"Summarise {{text}} in three lines.\"", json));
}

TEST(BackupReader, theSampleIsReadWhole) {
    EXPECT_EQ(BackupReader::decoded(sampleText()), sampleData());
}

TEST(BackupReader, theOrderOfKeysAndTheSpacingMeanNothing) {
    const QByteArray text = R"({"prompts":[],"exportedAt":"2025-03-14T09:26:53Z",)"
                            "\r\n\t"
                            R"("tags":[{"updatedAt":"2025-01-02T08:00:00Z","name":"Writing","colorHex":"7C5CFC",
                               "createdAt":"2025-01-02T08:00:00Z","id":"8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11"}],
                               "version":"1.0"} )";
    ExportedData expected = sampleData();
    expected.prompts.clear();
    EXPECT_EQ(BackupReader::decoded(text), expected);
}

TEST(BackupReader, aDocumentWithoutVersionsOnOnePromptIsRefusedWhole) {
    QByteArray text = sampleText();
    const qsizetype start = text.lastIndexOf(",", text.indexOf("\"versions\""));
    const qsizetype end = text.lastIndexOf("]", text.lastIndexOf("]") - 1) + 1;
    text.remove(start, end - start);
    EXPECT_EQ(failure(text), "prompts[0].versions is missing");
}

TEST(BackupReader, theVersionMayBeAnything) {
    EXPECT_EQ(failure(changed("\"1.0\"", "\"9.9\"")), "");
    EXPECT_EQ(BackupReader::decoded(changed("\"1.0\"", "\"\"")).version, QString());
    EXPECT_EQ(failure(changed("\"1.0\"", "1.0")), "version is not a string");
}

TEST(BackupReader, aDateWithAFractionOfASecondIsRefusedWhole) {
    EXPECT_EQ(failure(changed("2025-02-10T17:40:00Z", "2025-02-10T17:40:00.5Z")),
              "prompts[0].versions[0].createdAt is not an ISO 8601 date");
}

TEST(BackupReader, onlyUtcInWholeSecondsIsADate) {
    for (const char* text :
         {"2025-03-14T09:26:53", "2025-03-14T09:26:53+00:00", "2025-03-14 09:26:53Z", "2025-03-14",
          "2025-02-29T00:00:00Z", "2025-13-01T00:00:00Z", "2025-00-01T00:00:00Z", "2025-01-00T00:00:00Z",
          "2025-01-01T24:00:00Z", "2025-01-01T23:60:00Z", "2025-01-01T23:59:60Z", "2025-03-14t09:26:53z",
          "+2025-03-14T09:26:53Z", "02025-03-14T09:26:53Z", "2025-3-14T09:26:53Z", "2025-03-14T09:26:5 Z", ""})
        EXPECT_EQ(failure(changed("2025-03-14T09:26:53Z", text)), "exportedAt is not an ISO 8601 date") << text;
    EXPECT_EQ(failure(changed("\"2025-03-14T09:26:53Z\"", "1741944413")), "exportedAt is not an ISO 8601 date");
    EXPECT_EQ(BackupReader::decoded(changed("2025-03-14T09:26:53Z", "2024-02-29T23:59:59Z")).exportedAt,
              sampleDate(2024, 2, 29, 23, 59, 59));
}

TEST(BackupReader, aDateOfThisFormatReadsBackEqualToTheSecond) {
    for (const Date date : {sampleDate(1970, 1, 1, 0, 0, 0), sampleDate(1969, 7, 20, 20, 17, 40),
                            sampleDate(2000, 2, 29, 12, 0, 1), sampleDate(9999, 12, 31, 23, 59, 59)}) {
        ExportedData data = sampleData();
        data.exportedAt = date + std::chrono::milliseconds(750);
        EXPECT_EQ(BackupReader::decoded(BackupWriter::encoded(data)).exportedAt, date);
    }
}

TEST(BackupReader, tagIdsMayNameWhatStandsNowhereInTheTags) {
    const QByteArray text = changed("8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11", "00000000-0000-0000-0000-000000000001");
    EXPECT_EQ(BackupReader::decoded(text).prompts[0].tagIds, sampleData().prompts[0].tagIds);
}

TEST(BackupReader, aUuidMayBeInLowerCase) {
    EXPECT_EQ(
        BackupReader::decoded(changed("8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11", "8f3c6d34-1b34-4b63-a4e4-7b1c2a9f0d11")),
        sampleData());
    for (const char* text : {"{8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11}", "8F3C6D341B344B63A4E47B1C2A9F0D11", "",
                             "8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D1G", "8F3C6D34-1B34-4B63-A4E47-B1C2A9F0D11",
                             "8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11 "})
        EXPECT_EQ(failure(changed("8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11", text)), "tags[0].id is not a UUID") << text;
}

TEST(BackupReader, aBodyWithQuotesBackslashesLineBreaksAndNonAsciiTextComesBackUnchanged) {
    for (const QString& body :
         {QStringLiteral("\"quotes\" \\back\\slashes\\\\ a/b"),
          QStringLiteral("one\ntwo\r\nthree\rfour\u2028five\u0085"), QStringLiteral("Ünïcödé 漢字 😀 \uFFFF\uFDD0"),
          QString(QChar(0)) + QStringLiteral("\u0001\u001f\u007f"), QStringLiteral("\uFEFFmark at the start"),
          QStringLiteral("\uFEFF"), QStringLiteral("\uFEFF\uFEFFtwo"), QString(), QStringLiteral(" \t "),
          QString(100'000, QLatin1Char('\\')), QString(70'000, QLatin1Char('"'))}) {
        ExportedData data = sampleData();
        data.prompts[0].body = data.prompts[0].title = data.prompts[0].versions[0].body = body;
        data.tags[0].name = data.prompts[0].versions[0].tagNames[0] = body;
        EXPECT_EQ(BackupReader::decoded(BackupWriter::encoded(data)), data);
    }
}

TEST(BackupReader, escapesOfAllKindsAreRead) {
    EXPECT_EQ(bodyRead(R"("\"\\\/\b\f\n\r\t\u00e9\u0041\ud83d\ude00\u0000")").prompts[0].body,
              QStringLiteral("\"\\/\b\f\n\r\té") + QStringLiteral("A😀") + QChar(0));
    EXPECT_EQ(failure(changed("\"body\"", R"("\u0062ody")")), "") << "in a key as well";
    EXPECT_EQ(failure(changed("\"tags\"", R"("\u0074ags")")), "");
}

TEST(BackupReader, keysThatItDoesNotKnowAreIgnored) {
    const QByteArray unknown = R"("other" : {"a": [1, -2.5e+10, true, false, null, "x\n", {}, [], {"a": {}}], "a": 1},
        "number" : 123456789012345678901234567890, "infinite" : 1e999, "other" : "twice", )";
    for (const char* before : {"\"version\"", "\"exportedAt\"", "\"tags\"", "\"prompts\"", "\"id\"", "\"name\"",
                               "\"title\"", "\"versions\"", "\"promptId\"", "\"tagColors\""})
        EXPECT_EQ(BackupReader::decoded(changed(before, unknown + before)), sampleData()) << before;
}

TEST(BackupReader, anIgnoredValueMustBeJsonAsWell) {
    for (const char* value : {"{",
                              "}",
                              "[1,]",
                              "[,1]",
                              "{\"a\"}",
                              "{\"a\":}",
                              "{a:1}",
                              "{\"a\":1,}",
                              "tru",
                              "nulll",
                              "01",
                              "1.",
                              ".5",
                              "+1",
                              "1e",
                              "-",
                              "NaN",
                              "'x'",
                              "\"\\x\"",
                              "\"\\u12g4\"",
                              "\"a\nb\"",
                              "[1}",
                              "{]",
                              "[1 2]",
                              "{\"a\" 1}",
                              "",
                              "\"\\ud800\"",
                              "{\"\\ud800\":1}",
                              "[\"\\udc00\"]"}) {
        for (const char* before : {"\"version\"", "\"tags\"", "\"name\"", "\"title\"", "\"promptId\""})
            EXPECT_NE(failure(changed(before, QByteArray("\"other\" : ") + value + ", " + before)), "")
                << before << ' ' << value;
    }
}

TEST(BackupReader, everyKeyIsRequired) {
    const struct {
        const char* line;
        int occurrence;
        const char* missing;
    } lines[] = {{"\"version\"", 0, "version"},
                 {"\"exportedAt\"", 0, "exportedAt"},
                 {"\"id\"", 0, "tags[0].id"},
                 {"\"name\"", 0, "tags[0].name"},
                 {"\"colorHex\"", 0, "tags[0].colorHex"},
                 {"\"createdAt\"", 0, "tags[0].createdAt"},
                 {"\"updatedAt\"", 0, "tags[0].updatedAt"},
                 {"\"id\"", 1, "prompts[0].id"},
                 {"\"title\"", 0, "prompts[0].title"},
                 {"\"body\"", 0, "prompts[0].body"},
                 {"\"createdAt\"", 1, "prompts[0].createdAt"},
                 {"\"updatedAt\"", 1, "prompts[0].updatedAt"},
                 {"\"id\"", 2, "prompts[0].versions[0].id"},
                 {"\"promptId\"", 0, "prompts[0].versions[0].promptId"},
                 {"\"title\"", 1, "prompts[0].versions[0].title"},
                 {"\"body\"", 1, "prompts[0].versions[0].body"},
                 {"\"createdAt\"", 2, "prompts[0].versions[0].createdAt"}};
    for (const auto& line : lines)
        EXPECT_EQ(failure(withoutLine(line.line, line.occurrence)), std::string(line.missing) + " is missing");
    for (const char* key : {"tags", "prompts"})
        EXPECT_EQ(failure(changed(QByteArray("\"") + key + "\"", "\"other\"")), std::string(key) + " is missing");
    for (const char* key : {"tagIds", "versions"})
        EXPECT_EQ(failure(changed(QByteArray("\"") + key + "\"", "\"other\"")),
                  std::string("prompts[0].") + key + " is missing");
    for (const char* key : {"tagNames", "tagColors"})
        EXPECT_EQ(failure(changed(QByteArray("\"") + key + "\"", "\"other\"")),
                  std::string("prompts[0].versions[0].") + key + " is missing");
}

TEST(BackupReader, numbersForTextsAreRefused) {
    EXPECT_EQ(failure(changed("\"Writing\"", "7")), "tags[0].name is not a string");
    EXPECT_EQ(failure(changed("\"7C5CFC\"", "true")), "tags[0].colorHex is not a string");
    EXPECT_EQ(failure(changed("\"Summarise\"", "null")), "prompts[0].title is not a string");
    EXPECT_EQ(failure(changed("\"Summarise {{text}}.\"", "[]")), "prompts[0].versions[0].body is not a string");
    EXPECT_EQ(failure(changed("\"Writing\"", "1", 1)), "prompts[0].versions[0].tagNames[0] is not a string");
    EXPECT_EQ(failure(changed("\"8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11\"", "1", 1)),
              "prompts[0].tagIds[0] is not a UUID");
}

TEST(BackupReader, nullForArraysIsRefused) {
    const QByteArray head = R"({"version":"1.0","exportedAt":"2025-03-14T09:26:53Z",)";
    EXPECT_EQ(failure(head + R"("tags":null,"prompts":[]})"), "tags is not an array");
    EXPECT_EQ(failure(head + R"("tags":[],"prompts":{}})"), "prompts is not an array");
    EXPECT_EQ(failure(head + R"("tags":[null],"prompts":[]})"), "tags[0] is not an object");
    EXPECT_EQ(failure(head + R"("tags":[],"prompts":[[]]})"), "prompts[0] is not an object");
    EXPECT_EQ(failure(changed("[\n            \"Writing\"\n          ]", "null")),
              "prompts[0].versions[0].tagNames is not an array");
}

TEST(BackupReader, aKeyThatStandsTwiceIsRefused) {
    EXPECT_EQ(failure(changed("\"version\"", R"("version" : "1.0", "version")")), "version stands there twice");
    EXPECT_EQ(failure(changed("\"tags\"", R"("tags" : [], "tags")")), "tags stands there twice");
    EXPECT_EQ(failure(changed("\"name\"", R"("name" : "x", "name")")), "tags[0].name stands there twice");
    EXPECT_EQ(failure(changed("\"body\"", R"("body" : "x", "\u0062ody")", 1)),
              "prompts[0].versions[0].body stands there twice");
}

TEST(BackupReader, aTextThatIsNotJsonIsRefused) {
    for (const char* text : {"",
                             " ",
                             "\n",
                             "hello",
                             "{",
                             "}",
                             "[]",
                             "{}x",
                             "{} {}",
                             "\"text\"",
                             "null",
                             "7",
                             "{\"version\"}",
                             "{\"version\":}",
                             "{version:1}",
                             "{,}",
                             "{\"version\":\"1\",}",
                             "<html></html>",
                             "{\"tags\":[",
                             "{\"tags\":[{}",
                             "{\"tags\":[{]}",
                             "{\"tags\":[,]}",
                             "{\"tags\":[{},]}",
                             "{\"tags\":[{}{}]}",
                             "{\"tags\":[{\"id\":\"",
                             "{\"tags\"",
                             "{\"tags",
                             "{\"a\":[1}}",
                             "{\"a\" \"b\"}"})
        EXPECT_NE(failure(text), "") << text;
    EXPECT_EQ(failure("[]"), "The file is not a JSON object");
    EXPECT_EQ(failure(sampleText() + "x"), "The file is not valid JSON: something stands after its end");
    EXPECT_EQ(failure(sampleText() + QByteArray(1, '\0')),
              "The file is not valid JSON: something stands after its end");
    EXPECT_EQ(failure(sampleText() + "\n \t\r"), "");
}

TEST(BackupReader, aTextThatIsCutAtAnyByteIsRefused) {
    const QByteArray text = sampleText();
    for (qsizetype size = 0; size < text.size(); ++size)
        EXPECT_NE(failure(text.first(size)), "") << size;
}

TEST(BackupReader, aTextWithAnyByteMissingOrSpoiltDoesNoHarm) {
    const QByteArray text = sampleText();
    for (qsizetype at = 0; at < text.size(); ++at) {
        QByteArray shorter = text;
        std::ignore = failure(shorter.remove(at, 1));
        for (const char byte : {'\0', '"', '\\', '{', '}', '[', ']', ',', ':', '\x80', '\xFF'}) {
            QByteArray spoilt = text;
            spoilt[at] = byte;
            try {
                // Whatever is still read is written and read back as it is.
                const ExportedData data = BackupReader::decoded(spoilt);
                EXPECT_EQ(BackupReader::decoded(BackupWriter::encoded(data)), data) << at;
            } catch (const BackupError& error) {
                EXPECT_FALSE(error.errorDescription().isEmpty());
                EXPECT_FALSE(error.errorDescription().contains(QLatin1Char('\n'))) << "one line";
            }
        }
    }
}

TEST(BackupReader, invalidUtf8IsRefused) {
    for (const char* bytes : {"\xFF", "\xC3", "\xC0\xAF", "\xE2\x82", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80"}) {
        EXPECT_EQ(failure(changed("Summarise {{text}}.", bytes)), "prompts[0] is not valid UTF-8") << bytes;
        EXPECT_NE(failure(changed("1.0", bytes)), "");
        EXPECT_NE(failure(changed("\"version\"", QByteArray("\"") + bytes + "\" : 1, \"version\"")), "");
        EXPECT_NE(failure(QByteArray(bytes) + sampleText()), "");
        EXPECT_NE(failure(sampleText() + bytes), "");
    }
}

TEST(BackupReader, aByteOrderMarkIsRefused) {
    EXPECT_EQ(failure("\xEF\xBB\xBF" + sampleText()), "The file is not valid JSON: it begins with a byte order mark");
    EXPECT_NE(failure(QByteArray("\xFF\xFE{\0}\0", 6)), "");
}

TEST(BackupReader, loneSurrogatesAreRefused) {
    for (const char* text : {R"("\ud83d")", R"("\ude00")", R"("\ud83d\ud83d")", R"("\ud83dx")", R"("\ude00\ud83d")",
                             R"("x\udfff")", R"("\ud83d\u0041")"})
        EXPECT_EQ(failure(changed("\"Summarise {{text}}.\"", text)),
                  "prompts[0].versions[0].body is not valid JSON: a string has a wrong escape")
            << text;
}

TEST(BackupReader, aHundredThousandLevelsOfNestingAreRefused) {
    constexpr int levels = 100'000;
    QByteArray objects;
    for (int level = 0; level < levels; ++level)
        objects += "{\"a\":";
    objects += "1" + QByteArray(levels, '}');
    const QByteArray lists = QByteArray(levels, '[') + QByteArray(levels, ']');
    EXPECT_NE(failure(lists), "");
    EXPECT_NE(failure(objects), "");
    for (const QByteArray& nested : {lists, objects}) {
        EXPECT_EQ(failure(changed("\"version\"", "\"a\" : " + nested + ", \"version\"")),
                  "A value of an unknown key is nested too deeply");
        EXPECT_EQ(failure(changed("\"title\"", "\"a\" : " + nested + ", \"title\"")),
                  "prompts[0].a is nested too deeply");
        EXPECT_NE(failure(changed("\"Summarise\"", nested)), "");
        EXPECT_NE(failure("{\"tags\":" + nested + "}"), "");
    }
    EXPECT_NE(failure("{\"tags\":" + QByteArray(levels, '[')), "");
}

TEST(BackupReader, theFailureIsOneShortLineWhateverTheKeysAre) {
    for (const QByteArray& key :
         {QByteArray("a\\nb"), QByteArray("\xE2\x9C\x93"), QByteArray(100'000, 'k'), QByteArray("")})
        EXPECT_EQ(failure(changed("\"title\"", "\"" + key + "\" : tru, \"title\"")), "prompts[0].… is not valid JSON");
}

TEST(BackupReader, aThousandLevelsOfNestingInAnIgnoredValueAreRead) {
    const QByteArray nested = QByteArray(1000, '[') + QByteArray(1000, ']');
    EXPECT_EQ(BackupReader::decoded(changed("\"title\"", "\"a\" : " + nested + ", \"title\"")), sampleData());
}

TEST(BackupReader, itReadsAPieceAtATimeAndTellsHowFarItIs) {
    ExportedData data = sampleData();
    for (int copy = 0; copy < 99; ++copy)
        data.prompts.append(data.prompts[0]);
    BackupReader reader(BackupWriter::encoded(data));
    int steps = 0;
    double before = reader.fraction();
    EXPECT_EQ(before, 0);
    while (reader.step()) {
        ++steps;
        EXPECT_GE(reader.fraction(), before);
        before = reader.fraction();
    }
    EXPECT_GT(steps, 100);
    EXPECT_EQ(reader.fraction(), 1);
    EXPECT_EQ(reader.take(), data);
}

} // namespace
} // namespace Quillstacks
