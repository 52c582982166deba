#pragma once

#include "interface/PlainTextDocument.h"
#include "interface/Theme.h"
#include "platform/FakeDesktop.h"
#include "support/TestPreferences.h"
#include "variables/Coordinator.h"
#include "variables/engine/VariableEngine.h"
#include "variables/TokenDocument.h"
#include "variables/TokenizingTextView.h"
#include "variables/TokenTextView.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace Quillstacks {

/// A document's whole contents in one line for each paragraph, tokens in ⟨name|placeholder⟩.
inline QStringList dump(const QTextDocument& document) {
    QStringList lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QString line =
            QString::fromLatin1(PlainTextDocument::separatorBefore(block).toUtf8().toHex()) + QLatin1Char(':');
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            for (const QChar unit : it.fragment().text()) {
                if (unit != QChar::ObjectReplacementCharacter || format.objectType() == QTextFormat::NoObject)
                    line += unit;
                else
                    line += QStringLiteral("⟨%1|%2⟩").arg(format.stringProperty(TokenDocument::nameProperty),
                                                          format.stringProperty(PlainTextDocument::textProperty));
            }
        }
        lines << line;
    }
    return lines;
}

/// What the full conversion makes of a text.
inline QStringList rebuilt(const QString& text) {
    QTextDocument document;
    TokenDocument::build(document, attributedText(text));
    return dump(document);
}

/// The token editor in a window that has the keyboard.
class TokenEditor : public testing::Test {
protected:
    TokenEditor() {
        FakeDesktop::fresh();
        Theme::shared().refresh();
        editor.resize(600, 400);
        editor.show();
        editor.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&editor));
        view->setFocus();
    }
    ~TokenEditor() override { Theme::shared().refresh(); }

    void open(const QString& text, int caret = -1) {
        editor.setText(text);
        place(caret < 0 ? view->document()->characterCount() - 1 : caret);
    }
    void place(int position) { select(position, position); }
    void select(int anchor, int position) {
        QTextCursor cursor = view->textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        view->setTextCursor(cursor);
    }
    void type(const QString& text) { QTest::keyClicks(view, text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(view, key, modifiers); }
    void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    void paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
    }
    void compose(const QString& text) { commit({}, text); }
    void commit(const QString& text, const QString& composing = {}, int from = 0, int length = 0) {
        QInputMethodEvent event(composing, {});
        event.setCommitString(text, from, length);
        QCoreApplication::sendEvent(view, &event);
    }
    [[nodiscard]] int caret() const { return view->textCursor().position(); }
    [[nodiscard]] bool hasSelection() const { return view->textCursor().hasSelection(); }
    [[nodiscard]] QStringList shown() const { return dump(*view->document()); }
    [[nodiscard]] QStringList tokens() const {
        QStringList names;
        for (const AttributedRun& run : TokenDocument::contents(*view->document()))
            if (run.attachment)
                names << run.attachment->name;
        return names;
    }
    static QString text(const char16_t* characters) { return QString::fromUtf16(characters); }

    TestPreferences preferences;
    TokenizingTextView editor;
    TokenTextView* view = editor.textView();
};

} // namespace Quillstacks
