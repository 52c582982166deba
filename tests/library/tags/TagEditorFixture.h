#pragma once

#include "ColorDot.h"
#include "ColorSwatch.h"
#include "interface/Sheet.h"
#include "interface/TextField.h"
#include "library/LibraryFixture.h"
#include "library/tags/TagEditorView.h"

namespace Quillstacks {

/// A tag editor on its sheet, in a window that has the keyboard.
class TagEditorFixture : public LibraryFixture {
protected:
    TagEditorFixture() { show(window, QSize(900, 700)); }

    TagEditorView& open(Tag* tag = nullptr) {
        sheet = TagEditorView::present(&window, library.context(), tag, [this](Tag* saved) { handed += saved; });
        view = qobject_cast<TagEditorView*>(sheet->content());
        return *view;
    }
    TextField& field() { return *view->findChild<TextField*>(); }
    Button& button(const char* title) { return *visibleButton(*view, QLatin1String(title)); }
    ColorSwatch& swatch(const char* color) {
        for (ColorSwatch* each : view->findChildren<ColorSwatch*>())
            if (each->colorHex() == QLatin1String(color))
                return *each;
        ADD_FAILURE() << "no swatch " << color;
        return *view->findChild<ColorSwatch*>();
    }
    QStringList ringed() {
        QStringList all;
        for (const ColorSwatch* each : view->findChildren<ColorSwatch*>())
            if (each->isChecked())
                all += each->colorHex();
        return all;
    }
    void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text)); }
    void press(Qt::Key key) { QTest::keyClick(window.windowHandle(), key); }
    QStringList tagNames() { return namesOf(library.context().tags()); }

    QWidget window;
    Sheet* sheet = nullptr;
    TagEditorView* view = nullptr;
    QList<Tag*> handed; ///< what onSave got
};

} // namespace Quillstacks
