// The token editor: a key in a body of 100 KB with 1,000 placeholders up to the picture of its result (budget: one
// frame of 16 ms), beside the same key in the toolkit's plain editor; and a body of 10 MB from its text to its first
// picture (budget: 3 s), scrolled to its end, with a key, and read back.
#include "foundation/Preferences.h"
#include "interface/PlainTextEdit.h"
#include "interface/TextStyle.h"
#include "variables/Coordinator.h"
#include "variables/engine/VariableEngine.h"
#include "variables/TokenizingTextView.h"
#include "variables/TokenTextView.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace Quillstacks {
namespace {

constexpr qsizetype small = 100 * 1024;
constexpr qsizetype large = 10 * 1024 * 1024;
constexpr int placeholders = 1000;

/// Lines of some eighty characters, with as many placeholders, evenly spread.
QString body(qsizetype length, qsizetype tokens) {
    const qsizetype stretch = length / tokens;
    QString text;
    text.reserve(length + stretch);
    for (qsizetype i = 0; text.size() < length; ++i) {
        const qsizetype end = (i + 1) * stretch;
        text += QStringLiteral("{{name_%1}} ").arg(i % 40);
        while (text.size() < end)
            text += text.size() % 7 == 0 ? QStringLiteral("review the change.\n") : QStringLiteral("and list its ");
    }
    return text;
}

void key(QWidget& field, int code, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&field, &press);
}

class Picture {
public:
    explicit Picture(QWidget& given) : widget(given), image(given.size(), QImage::Format_ARGB32_Premultiplied) {}
    void paint() {
        widget.render(&image);
        benchmark::DoNotOptimize(image.constBits());
    }

private:
    QWidget& widget;
    QImage image;
};

class Editor {
public:
    Editor() {
        view.textView()->setLineFormat(textFont(TextStyle::monoBody), 24);
        view.resize(640, 600);
        view.show();
        view.textView()->setFocus();
    }
    void open(const QString& text, double part) {
        view.setText(text);
        QTextCursor cursor = view.textView()->textCursor();
        cursor.setPosition(static_cast<int>(view.textView()->document()->characterCount() * part));
        view.textView()->setTextCursor(cursor);
        view.textView()->ensureCursorVisible();
    }
    TokenizingTextView view;
};

void letterToPicture(benchmark::State& state) {
    Editor editor;
    editor.open(body(small, placeholders), static_cast<double>(state.range(0)) / 100);
    Picture picture(editor.view);
    picture.paint();
    for (auto _ : state) {
        key(*editor.view.textView(), Qt::Key_X, QStringLiteral("x"));
        picture.paint();
    }
}
BENCHMARK(letterToPicture)->ArgName("place_percent")->Arg(0)->Arg(50)->Arg(99)->Unit(benchmark::kMillisecond);

void lastBraceToPicture(benchmark::State& state) {
    Editor editor;
    editor.open(body(small, placeholders), 0.5);
    Picture picture(editor.view);
    for (const QChar unit : QStringLiteral(" {{name}"))
        key(*editor.view.textView(), 0, unit);
    for (auto _ : state) {
        key(*editor.view.textView(), Qt::Key_BraceRight, QStringLiteral("}"));
        picture.paint();
        state.PauseTiming();
        editor.view.coordinator().undo();
        picture.paint();
        state.ResumeTiming();
    }
}
BENCHMARK(lastBraceToPicture)->Unit(benchmark::kMillisecond);

void undoOfATokenToPicture(benchmark::State& state) {
    Editor editor;
    editor.open(body(small, placeholders), 0.5);
    Picture picture(editor.view);
    for (const QChar unit : QStringLiteral(" {{name}}"))
        key(*editor.view.textView(), 0, unit);
    for (auto _ : state) {
        editor.view.coordinator().undo();
        picture.paint();
        state.PauseTiming();
        editor.view.coordinator().redo();
        picture.paint();
        state.ResumeTiming();
    }
}
BENCHMARK(undoOfATokenToPicture)->Unit(benchmark::kMillisecond);

/// What the panel beside the editor does with the same key.
void variablesOfTheBody(benchmark::State& state) {
    const QString text = body(small, placeholders);
    for (auto _ : state)
        benchmark::DoNotOptimize(extractVariables(text));
}
BENCHMARK(variablesOfTheBody)->Unit(benchmark::kMillisecond);

void peerPlainEditorLetterToPicture(benchmark::State& state) {
    QPlainTextEdit peer;
    peer.resize(640, 600);
    peer.setPlainText(body(small, placeholders));
    peer.show();
    QTextCursor cursor = peer.textCursor();
    cursor.setPosition(static_cast<int>(peer.document()->characterCount() * state.range(0) / 100));
    peer.setTextCursor(cursor);
    Picture picture(peer);
    picture.paint();
    for (auto _ : state) {
        key(peer, Qt::Key_X, QStringLiteral("x"));
        benchmark::DoNotOptimize(peer.toPlainText());
        picture.paint();
    }
}
BENCHMARK(peerPlainEditorLetterToPicture)->ArgName("place_percent")->Arg(50)->Unit(benchmark::kMillisecond);

void largeBodyOpens(benchmark::State& state) {
    const QString text = body(large, 100 * placeholders);
    for (auto _ : state) {
        Editor editor;
        editor.view.setText(text);
        Picture(editor.view).paint();
        state.PauseTiming();
        if (editor.view.text() != text)
            state.SkipWithError("the text came back as another");
        state.ResumeTiming();
    }
}
BENCHMARK(largeBodyOpens)->Unit(benchmark::kMillisecond)->Iterations(2);

void largeBodyScrollsToItsEnd(benchmark::State& state) {
    const QString text = body(large, 100 * placeholders);
    for (auto _ : state) {
        state.PauseTiming();
        Editor editor;
        editor.view.setText(text);
        Picture picture(editor.view);
        picture.paint();
        state.ResumeTiming();
        editor.view.textView()->moveCursor(QTextCursor::End);
        picture.paint();
    }
}
BENCHMARK(largeBodyScrollsToItsEnd)->Unit(benchmark::kMillisecond)->Iterations(2);

void largeBodyLetterToPicture(benchmark::State& state) {
    QString text = body(large, 100 * placeholders);
    Editor editor;
    editor.view.setText(text);
    editor.view.textView()->moveCursor(QTextCursor::End);
    Picture picture(editor.view);
    picture.paint();
    for (auto _ : state) {
        key(*editor.view.textView(), Qt::Key_X, QStringLiteral("x"));
        text += QLatin1Char('x');
        picture.paint();
    }
    if (editor.view.text() != text)
        state.SkipWithError("the text came back as another");
}
BENCHMARK(largeBodyLetterToPicture)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
} // namespace Quillstacks

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir folder;
    QApplication application(argc, argv);
    Quillstacks::Preferences preferences(folder.filePath(QStringLiteral("preferences.json")));
    Quillstacks::Preferences::setStandard(&preferences);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    Quillstacks::Preferences::setStandard(nullptr);
    return 0;
}
