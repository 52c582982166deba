#pragma once

#include "interface/LazyList.h"
#include "interface/Sheet.h"
#include "library/PromptListView.h"
#include "LibraryFixture.h"

#include <QContextMenuEvent>
#include <QLabel>

namespace Quillstacks {

/// A prompt list over a library of its own.
class PromptList : public LibraryFixture {
protected:
    PromptListView& view() {
        if (!made)
            made = std::make_unique<PromptListView>(library.context());
        return *made;
    }
    PromptListView& shownView() {
        show(view(), QSize(960, 720));
        view().setFocus();
        return view();
    }
    [[nodiscard]] QStringList visibleTitles() { return titlesOf(view().filteredPrompts()); }
    LazyList& rows() { return *view().findChild<LazyList*>(); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : &view(), static_cast<Qt::Key>(key), modifiers);
    }
    /// The texts that can be seen, but for those of buttons.
    QStringList texts(const QWidget& within) {
        QStringList result;
        for (const QLabel* label : within.findChildren<QLabel*>())
            if (label->isVisibleTo(&within))
                result += label->text();
        return result;
    }
    void rightClick(const QPoint& at) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, rows().viewport()->mapToGlobal(at));
        QApplication::sendEvent(rows().viewport(), &event);
    }
    void answerAlert(const QString& title) {
        Sheet* sheet = Sheet::top(&view());
        ASSERT_TRUE(sheet);
        Button* button = visibleButton(*sheet, title);
        ASSERT_TRUE(button);
        button->click();
    }

    std::unique_ptr<PromptListView> made;
};

} // namespace Quillstacks
