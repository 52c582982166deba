#include "interface/PlainTextDocument.h"

#include <QTextCursor>
#include <QTextDocument>

#include <random>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

QString roundTrip(const QString& text) {
    QTextDocument document;
    PlainTextDocument::setText(document, text);
    return PlainTextDocument::text(document);
}

/// Texts full of what the toolkit would change.
class RandomText {
public:
    explicit RandomText(unsigned seed) : engine(seed) {}

    QString next(int longest) {
        static const QString pieces[] = {
            QStringLiteral("a"),    QStringLiteral("word "), QStringLiteral("\n"),   QStringLiteral("\r"),
            QStringLiteral("\r\n"), QString(QChar(0x85)),    QString(QChar(0x2028)), QString(QChar(0x2029)),
            QString(QChar(0xA0)),   QString(QChar(0xFDD0)),  QString(QChar(0xFDD1)), QString(QChar(0xFFFC)),
            QString(QChar(0)),      QString(QChar(0xD800)),  QString(QChar(0xFFFF)), QStringLiteral("\t"),
            QStringLiteral("é"),    QStringLiteral("😀"),     QString(QChar(0x0B)),   QString(QChar(0x0C))};
        QString text;
        for (int i = number(0, longest); i > 0; --i)
            text += pieces[number(0, static_cast<int>(std::size(pieces)) - 1)];
        return text;
    }
    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(engine); }

private:
    std::mt19937 engine;
};

TEST(PlainTextDocument, everySeparatorComesBackAsItWentIn) {
    for (const char16_t* text : {u"", u"\n", u"\r", u"\r\n", u"\n\r", u"a\rb\nc\r\nd", u"\r\r\n\n",
                                 u"a\u2028b\u2029c\u0085d", u"\u2029", u"ends\r\n", u"\n\n\n"}) {
        const QString whole = QString::fromUtf16(text);
        EXPECT_EQ(roundTrip(whole), whole);
    }
}

TEST(PlainTextDocument, noBreakSpacesAndNonCharactersComeBack) {
    const QString text =
        QString::fromUtf16(u"a\u00A0b") + QChar(0xFDD0) + QChar(0xFDD1) + QChar(0xFFFC) + QChar(0) + QChar(0xDC00);
    EXPECT_EQ(roundTrip(text), text);
}

TEST(PlainTextDocument, anyTextComesBack) {
    RandomText random(7);
    for (int i = 0; i < 400; ++i) {
        const QString text = random.next(30);
        ASSERT_EQ(roundTrip(text), text);
    }
}

TEST(PlainTextDocument, anyEditLeavesTheRestAlone) {
    RandomText random(11);
    for (int run = 0; run < 60; ++run) {
        QTextDocument document;
        QString model = random.next(20);
        PlainTextDocument::setText(document, model);
        std::vector<QString> history{model};
        for (int step = 0; step < 12; ++step) {
            QTextCursor cursor(&document);
            const int last = document.characterCount() - 1;
            cursor.setPosition(random.number(0, last));
            cursor.setPosition(random.number(0, last), QTextCursor::KeepAnchor);
            const auto from = PlainTextDocument::textPosition(document, cursor.selectionStart());
            const auto to = PlainTextDocument::textPosition(document, cursor.selectionEnd());
            ASSERT_EQ(PlainTextDocument::selectedText(cursor), model.mid(from, to - from));
            const QString inserted = random.next(6);
            model.replace(from, to - from, inserted);
            PlainTextDocument::insert(cursor, inserted);
            ASSERT_EQ(PlainTextDocument::text(document), model);
            history.push_back(model);
        }
        while (document.isUndoAvailable())
            document.undo();
        ASSERT_EQ(PlainTextDocument::text(document), history.front());
        while (document.isRedoAvailable())
            document.redo();
        ASSERT_EQ(PlainTextDocument::text(document), history.back());
    }
}

TEST(PlainTextDocument, deletingASeparatorTakesThatOneOnly) {
    QTextDocument document;
    PlainTextDocument::setText(document, QStringLiteral("z\r\n\nB"));
    QTextCursor cursor(&document);
    cursor.setPosition(2);
    cursor.deleteChar();
    EXPECT_EQ(PlainTextDocument::text(document), QStringLiteral("z\r\nB"));
}

TEST(PlainTextDocument, anObjectStandsForItsText) {
    QTextDocument document;
    PlainTextDocument::setText(document, QStringLiteral("ab"));
    QTextCursor cursor(&document);
    cursor.setPosition(1);
    PlainTextDocument::insertObject(cursor, QTextFormat::UserObject + 1, QStringLiteral("{{topic}}"));
    EXPECT_EQ(document.characterCount() - 1, 3);
    EXPECT_EQ(PlainTextDocument::text(document), QStringLiteral("a{{topic}}b"));
    EXPECT_EQ(PlainTextDocument::text(document, 1, 2), QStringLiteral("{{topic}}"));
}

TEST(PlainTextDocument, aCharacterTypedBehindAnObjectIsItself) {
    QTextDocument document;
    QTextCursor cursor(&document);
    PlainTextDocument::insertObject(cursor, QTextFormat::UserObject + 1, QStringLiteral("{{topic}}"));
    cursor.insertText(QString(QChar(QChar::ObjectReplacementCharacter))); // keeps the format but for the object's type
    EXPECT_EQ(PlainTextDocument::text(document),
              QStringLiteral("{{topic}}") + QChar(QChar::ObjectReplacementCharacter));
}

TEST(PlainTextDocument, piecesTellHowManyPositionsTheyTake) {
    QTextDocument document;
    PlainTextDocument::setText(document, QStringLiteral("ab\r\ncd"));
    QTextCursor cursor(&document);
    cursor.setPosition(4);
    PlainTextDocument::insertObject(cursor, QTextFormat::UserObject + 1, QStringLiteral("{x}"));
    QStringList pieces;
    PlainTextDocument::forEachPiece(document, 1, 6, [&](int positions, const QString& text) {
        pieces << QString::number(positions) + QLatin1Char(':') + text;
    });
    EXPECT_EQ(pieces, QStringList({QStringLiteral("1:b"), QStringLiteral("1:\r\n"), QStringLiteral("1:c"),
                                   QStringLiteral("1:{x}"), QStringLiteral("1:d")}));
}

TEST(PlainTextDocument, positionsGoThereAndBack) {
    QTextDocument document;
    PlainTextDocument::setText(document, QStringLiteral("a\r\nb") + QChar(0xFDD0) + QStringLiteral("c\r\n"));
    const QString text = PlainTextDocument::text(document);
    for (int position = 0; position < document.characterCount(); ++position) {
        const auto inText = PlainTextDocument::textPosition(document, position);
        EXPECT_EQ(PlainTextDocument::documentPosition(document, inText), position);
        EXPECT_EQ(PlainTextDocument::text(document, 0, position), text.left(inText));
    }
}

TEST(PlainTextDocument, settingATextLeavesNothingToUndo) {
    QTextDocument document;
    PlainTextDocument::setText(document, QStringLiteral("one"));
    PlainTextDocument::setText(document, QStringLiteral("two"));
    EXPECT_FALSE(document.isUndoAvailable());
    EXPECT_TRUE(document.isUndoRedoEnabled());
}

} // namespace
} // namespace Quillstacks
