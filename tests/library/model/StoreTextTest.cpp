#include "StoreText.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Quillstacks;

namespace {

struct StoredValue : testing::Test {
    SQLite::Database database{":memory:", SQLite::OPEN_READWRITE};

    template <typename Read>
    void expectRefused(const char* expression, Read read) {
        SQLite::Statement select(database, std::string("SELECT ") + expression);
        select.executeStep();
        EXPECT_THROW((void)read(select.getColumn(0)), SQLite::Exception) << expression;
    }
    QString typeOf(const QString& text) {
        SQLite::Statement select(database, "SELECT typeof(?)");
        StoreText::bind(select, 1, text);
        select.executeStep();
        return QString::fromStdString(select.getColumn(0).getString());
    }
};

} // namespace

TEST_F(StoredValue, textIsReadableForOtherToolsWhereverUtf8CarriesIt) {
    EXPECT_EQ(typeOf(QStringLiteral("Grüße 😀")), QStringLiteral("text"));
    EXPECT_EQ(typeOf(QString()), QStringLiteral("text"));
    EXPECT_EQ(typeOf(QString(QChar(0xD800))), QStringLiteral("blob"));
    EXPECT_EQ(typeOf(QString(QChar::Null)), QStringLiteral("blob"));
    EXPECT_EQ(typeOf(QString(QChar::ByteOrderMark)), QStringLiteral("blob"));
}

TEST_F(StoredValue, aNullTextIsStoredAsAnEmptyOne) {
    SQLite::Statement select(database, "SELECT ? IS NULL");
    StoreText::bind(select, 1, QString());
    select.executeStep();
    EXPECT_EQ(select.getColumn(0).getInt(), 0);
}

TEST_F(StoredValue, listsOfTextsComeBackAsTheyWere) {
    const QStringList empty;
    const QStringList oneEmpty{QString()};
    const QStringList several{QStringLiteral("a"), QString(), QString(QChar(0xDC00)), QStringLiteral("ü\n")};
    for (const QStringList& list : {empty, oneEmpty, several})
        EXPECT_EQ(StoreText::unpacked(StoreText::packed(list)), list);
}

TEST_F(StoredValue, aListThatEndsTooEarlyIsRefused) {
    const QByteArray whole = StoreText::packed({QStringLiteral("ab"), QStringLiteral("c")});
    const qsizetype wholeTexts[] = {0, 8, whole.size()};
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        const bool complete = std::find(std::begin(wholeTexts), std::end(wholeTexts), size) != std::end(wholeTexts);
        EXPECT_EQ(StoreText::unpacked(QByteArrayView(whole).first(size)).has_value(), complete) << size;
    }
    EXPECT_FALSE(StoreText::unpacked(QByteArrayView("\xff\xff\xff\xff", 4)).has_value());
}

TEST_F(StoredValue, valuesOfAnotherTypeAreRefused) {
    expectRefused("NULL", StoreText::text);
    expectRefused("7", StoreText::text);
    expectRefused("x'41'", StoreText::text);
    expectRefused("'text'", StoreText::textList);
    expectRefused("x'01'", StoreText::textList);
    expectRefused("x'00112233'", StoreText::uuid);
    expectRefused("'0123456789abcdef'", StoreText::uuid);
    expectRefused("NULL", StoreText::date);
    expectRefused("1.5", StoreText::date);
    expectRefused("'1'", StoreText::integer);
}

TEST_F(StoredValue, anAbsentDateIsNull) {
    SQLite::Statement select(database, "SELECT ?, ?");
    StoreText::bind(select, 1, std::optional<Date>());
    StoreText::bind(select, 2, std::optional<Date>(Date::min()));
    select.executeStep();
    EXPECT_EQ(StoreText::optionalDate(select.getColumn(0)), std::nullopt);
    EXPECT_EQ(StoreText::optionalDate(select.getColumn(1)), Date::min());
}
