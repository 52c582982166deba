// Random edits, against the full conversion: what is shown, the plain text, the caret and undo are always its own.
#include "TokenFixture.h"

#include <random>

namespace Quillstacks {
namespace {

/// The token editor in its plainest form: everything is made anew after every edit. Positions count units.
struct Model {
    QString plain;
    qsizetype caret = 0;

    /// The units on screen: a token in one, each other UTF-16 unit in one.
    [[nodiscard]] QStringList units() const {
        QStringList result;
        for (const AttributedRun& run : attributedText(plain)) {
            if (run.attachment)
                result << run.attachment->originalFormat;
            else
                for (const QChar unit : run.characters)
                    result << QString(unit);
        }
        return result;
    }
    static bool isWithinCharacter(const QStringList& units, qsizetype at) {
        if (at <= 0 || at >= units.size() || units[at].size() != 1 || units[at - 1].size() != 1)
            return false;
        const QChar before = units[at - 1][0];
        const QChar after = units[at][0];
        return (before == u'\r' && after == u'\n') || (before.isHighSurrogate() && after.isLowSurrogate());
    }
    void edit(qsizetype from, qsizetype to, const QString& inserted) {
        const QStringList old = units();
        plain = old.mid(0, from).join(QString()) + inserted + old.mid(to).join(QString());
        moveTo(from + inserted.size());
    }
    void moveTo(qsizetype wanted) {
        const QStringList now = units();
        caret = std::min(wanted, now.size());
        if (isWithinCharacter(now, caret))
            ++caret;
        if (caret < now.size() && now[caret].size() > 1)
            ++caret;
    }
    /// A position of the document: there a line end of two units is one.
    [[nodiscard]] int position(qsizetype unit) const {
        const QStringList now = units();
        qsizetype result = unit;
        for (qsizetype i = 1; i < unit; ++i)
            if (now[i] == QLatin1String("\n") && now[i - 1] == QLatin1String("\r"))
                --result;
        return static_cast<int>(result);
    }
};

class TokenRebuild : public TokenEditor {
protected:
    static std::string readable(QString text) {
        text.replace(u'\r', QStringLiteral("\\r")).replace(u'\n', QStringLiteral("\\n"));
        return '"' + text.toStdString() + '"';
    }
    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random); }

    QString anyText(int longest) {
        static const char16_t* pieces[] = {
            u"{",      u"{",      u"}",      u"}",   u"{{",      u"}}", u"a",          u"b.c",    u" ",
            u"\n",     u"\r",     u"\r\n",   u"{x}", u"{{ y }}", u"!",  u"\u2028",     u"\u2029", u"\u0085",
            u"\u00A0", u"\uFDD0", u"\uFDD1", u"😀",   u"\uFFFC",  u"é",  u"{{\r\nz\n}}"};
        QString result;
        for (int length = number(0, longest); length > 0; --length)
            result += QString::fromUtf16(pieces[number(0, static_cast<int>(std::size(pieces)) - 1)]);
        return result;
    }
    qsizetype anyPlace() {
        const QStringList units = model.units();
        qsizetype place = number(0, static_cast<int>(units.size()));
        while (Model::isWithinCharacter(units, place))
            ++place;
        return place;
    }

    /// One edit in the editor and in the model.
    void editSomewhere() {
        const qsizetype anchor = anyPlace();
        const qsizetype position = number(0, 2) == 0 ? anyPlace() : anchor;
        const auto [from, to] = std::minmax(anchor, position);
        select(model.position(anchor), model.position(position));
        const QString before = model.plain;
        const qsizetype caretBefore = to;
        lastEdit = QStringLiteral("from %1 to %2").arg(anchor).arg(position);
        switch (number(0, 3)) {
        case 0:
            if (from == to)
                backspace(from);
            else
                erase(from, to);
            break;
        case 1: {
            const QString inserted = anyText(3);
            if (!inserted.isEmpty()) {
                paste(inserted);
                model.edit(from, to, inserted);
            }
            break;
        }
        default: {
            const QString inserted = anyText(2);
            if (!inserted.isEmpty()) {
                commit(inserted);
                model.edit(from, to, inserted);
            }
        }
        }
        if (model.plain == before)
            return;
        undone.clear();
        done.push_back({before, caretBefore});
    }
    void erase(qsizetype from, qsizetype to) {
        press(Qt::Key_Delete);
        model.edit(from, to, {});
    }
    void backspace(qsizetype at) {
        if (at == 0)
            return;
        press(Qt::Key_Backspace);
        const qsizetype length = Model::isWithinCharacter(model.units(), at - 1) ? 2 : 1;
        model.edit(at - length, at, {});
    }
    void undoOne() {
        ASSERT_TRUE(editor.coordinator().canUndo());
        undone.push_back(model);
        undo();
        // Characters deleted in a row make one step, so the text of some step before comes back.
        while (!done.empty() && done.back().plain != editor.text())
            done.pop_back();
        ASSERT_FALSE(done.empty()) << "a text that never was";
        model.plain = done.back().plain;
        model.moveTo(done.back().caret);
        done.pop_back();
    }
    void check() {
        ASSERT_EQ(editor.text(), model.plain);
        ASSERT_EQ(PlainTextDocument::text(*view->document()), model.plain);
        ASSERT_EQ(shown(), rebuilt(model.plain));
        ASSERT_EQ(plainText(TokenDocument::contents(*view->document())), model.plain);
        ASSERT_FALSE(hasSelection());
    }

    QString lastEdit;
    std::mt19937 random{17};
    Model model;
    std::vector<Model> done;
    std::vector<Model> undone;
};

TEST_F(TokenRebuild, anyEditLeavesWhatTheFullConversionWouldLeave) {
    for (int run = 0; run < 80; ++run) {
        model = {anyText(14), 0};
        editor.setText(model.plain);
        for (int step = 0; step < 25; ++step) {
            const QString before = model.plain;
            ASSERT_NO_FATAL_FAILURE(editSomewhere());
            SCOPED_TRACE(testing::Message() << "run " << run << " step " << step << ": " << readable(before) << " to "
                                            << readable(editor.text()) << ", selected " << lastEdit.toStdString());
            ASSERT_EQ(editor.text(), model.plain);
            ASSERT_EQ(shown(), rebuilt(model.plain));
            if (model.plain == before)
                continue;
            ASSERT_NO_FATAL_FAILURE(check());
            ASSERT_EQ(caret(), model.position(model.caret));
        }
    }
}

TEST_F(TokenRebuild, undoAndRedoGoBackAndForthThroughAnyEdits) {
    for (int run = 0; run < 60; ++run) {
        model = {anyText(10), 0};
        const QString first = model.plain;
        editor.setText(model.plain + QLatin1Char('.')); // an equal text would leave the history
        editor.setText(model.plain);
        done.clear();
        undone.clear();
        for (int step = 0; step < 15; ++step) {
            ASSERT_NO_FATAL_FAILURE(editSomewhere());
            ASSERT_EQ(editor.coordinator().canUndo(), !done.empty());
            if (!done.empty() && number(0, 3) == 0) {
                ASSERT_NO_FATAL_FAILURE(undoOne());
                ASSERT_NO_FATAL_FAILURE(check());
            }
        }
        const QString last = undone.empty() ? model.plain : undone.front().plain;
        while (editor.coordinator().canUndo()) {
            ASSERT_NO_FATAL_FAILURE(undoOne());
            ASSERT_NO_FATAL_FAILURE(check());
            ASSERT_EQ(caret(), model.position(model.caret));
        }
        ASSERT_EQ(editor.text(), first);
        for (; !undone.empty(); undone.pop_back()) {
            ASSERT_TRUE(editor.coordinator().canRedo());
            redo();
            ASSERT_EQ(editor.text(), undone.back().plain);
            ASSERT_EQ(shown(), rebuilt(editor.text()));
        }
        ASSERT_FALSE(editor.coordinator().canRedo());
        ASSERT_EQ(editor.text(), last);
    }
}

TEST_F(TokenRebuild, onlyTheChangedParagraphIsTouched) {
    QString text;
    for (int i = 0; i < 50; ++i)
        text += QStringLiteral("line with {{name}} and text\n");
    open(text, 30);
    int largest = 0;
    QObject::connect(view->document(), &QTextDocument::contentsChange, &editor, [&](int, int removed, int added) {
        largest = std::max({largest, removed, added});
    });
    type(QStringLiteral(" {{x}} and more"));
    press(Qt::Key_Backspace);
    EXPECT_LT(largest, 40);
}

} // namespace
} // namespace Quillstacks
