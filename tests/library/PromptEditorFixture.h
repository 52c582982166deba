#pragma once

#include "interface/PlainTextEdit.h"
#include "interface/TextField.h"
#include "library/PromptEditorView.h"
#include "LibraryFixture.h"

#include <QInputMethodEvent>
#include <QLabel>
#include <QSignalSpy>

namespace Quillstacks {

/// A prompt editor over a library of its own.
class PromptEditor : public LibraryFixture {
protected:
    PromptEditorView& open(Prompt* prompt = nullptr, std::function<void(Prompt*)> onSave = {}) {
        editor = std::make_unique<PromptEditorView>(library.context(), prompt, std::move(onSave));
        closed = std::make_unique<QSignalSpy>(editor.get(), &PromptEditorView::closed);
        return *editor;
    }
    /// The same on a sheet, as the list shows it.
    PromptEditorView& present(Prompt* prompt = nullptr) {
        show(window, QSize(1280, 800));
        auto content = std::make_unique<PromptEditorView>(library.context(), prompt);
        PromptEditorView& view = *content;
        closed = std::make_unique<QSignalSpy>(&view, &PromptEditorView::closed);
        Sheet* sheet = Sheet::present(&window, std::move(content), PromptEditorView::sheetOptions(prompt));
        QObject::connect(&view, &PromptEditorView::closed, sheet, &Sheet::dismiss);
        return view;
    }
    /// A text that an input method composes and has not handed over.
    static void compose(QWidget& field, const QString& text) {
        field.setFocus();
        QInputMethodEvent event(text, {});
        QApplication::sendEvent(&field, &event);
    }
    static QLabel* placeholder(const PromptEditorView& view) {
        for (QLabel* label : view.findChildren<QLabel*>())
            if (label->text() == QStringLiteral("Write your prompt…"))
                return label;
        return nullptr;
    }
    static TextField& titleField(const PromptEditorView& view) { return *view.findChild<TextField*>(); }
    static PlainTextEdit& bodyField(const PromptEditorView& view) { return *view.findChild<PlainTextEdit*>(); }
    static QString tagNames(const Prompt& prompt) { return namesOf(prompt.tags()).join(QLatin1Char(' ')); }

    QWidget window;
    std::unique_ptr<PromptEditorView> editor;
    std::unique_ptr<QSignalSpy> closed;
};

} // namespace Quillstacks
