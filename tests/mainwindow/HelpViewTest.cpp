#include "mainwindow/HelpView.h"

#include "hotkey/HotkeyPreferences.h"
#include "interface/IconButton.h"
#include "interface/KeyCap.h"
#include "interface/Label.h"
#include "interface/ScrollArea.h"
#include "interface/Sheet.h"
#include "interface/TextField.h"
#include "library/LibraryFixture.h"
#include "library/PromptListView.h"
#include "mainwindow/ContentView.h"
#include "ShortcutRow.h"

#include <QScrollBar>

namespace Quillstacks {
namespace {

class Help : public LibraryFixture {
protected:
    ContentView& open(const QSize& size = {1280, 720}) {
        made = std::make_unique<ContentView>(library.context());
        show(*made, size);
        return *made;
    }
    void openHelp(const QSize& size = {1280, 720}) {
        open(size).presentHelp();
        QCoreApplication::processEvents(); // lays it out
        ASSERT_TRUE(help());
    }
    /// A key as the window system delivers it: to whatever has the keyboard.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(made->windowHandle(), key, modifiers);
    }
    [[nodiscard]] IconButton* item() const { return named<IconButton>(*made, QStringLiteral("Help")); }
    [[nodiscard]] HelpView* help() const {
        const Sheet* sheet = Sheet::top(made.get());
        return sheet ? qobject_cast<HelpView*>(sheet->content()) : nullptr;
    }
    [[nodiscard]] QList<ShortcutRow*> rows() const { return help()->findChildren<ShortcutRow*>(); }
    [[nodiscard]] QRect place(const QWidget* widget) const {
        return {widget->mapTo(help(), QPoint(0, 0)), widget->size()};
    }

    std::unique_ptr<ContentView> made;
};

TEST_F(Help, listsTheShortcutsInTheirOrder) {
    openHelp();
    using Rows = std::vector<std::pair<QString, QString>>;
    Rows shown;
    for (const ShortcutRow* row : rows()) {
        EXPECT_EQ(row->findChild<Label*>()->text(), row->title);
        shown.emplace_back(row->title, row->shortcut);
    }
    EXPECT_EQ(shown, (Rows{{QStringLiteral("Quick Access"), QString::fromUtf16(u"⇧⌘Space (default)")},
                           {QStringLiteral("New Prompt"), QString::fromUtf16(u"P or ⌘N")},
                           {QStringLiteral("Edit Selected Prompt"), QStringLiteral("Return or E")},
                           {QStringLiteral("New Tag"), QStringLiteral("T")},
                           {QStringLiteral("Save Prompt"), QString::fromUtf16(u"⌘S")},
                           {QStringLiteral("Navigate Prompts"), QString::fromUtf16(u"↑↓")},
                           {QStringLiteral("Settings"), QString::fromUtf16(u"⌘,")},
                           {QStringLiteral("Help"), QString::fromUtf16(u"⌘H")}}));
    EXPECT_EQ(help()->findChild<Label*>(QString(), Qt::FindDirectChildrenOnly)->text(),
              QStringLiteral("Keyboard Shortcuts"));
}

TEST_F(Help, withAChangedGlobalShortcutTheFirstRowStillShowsTheDefault) {
    globalHotkeyModifiersPreference().set(0x100000);
    globalHotkeyKeyCodePreference().set(40);
    openHelp();
    EXPECT_EQ(rows().constFirst()->shortcut, QString::fromUtf16(u"⇧⌘Space (default)"));
    globalHotkeyKeyCodePreference().set(45);
    EXPECT_EQ(rows().constFirst()->shortcut, QString::fromUtf16(u"⇧⌘Space (default)"));
}

TEST_F(Help, aShortcutIsSpelledForAPcKeyboardInItsToolTipAndName) {
    openHelp();
    const auto* newPrompt = rows().at(1)->findChild<KeyCap*>();
    EXPECT_EQ(newPrompt->accessibleName(), QStringLiteral("P or Ctrl+N"));
    EXPECT_EQ(newPrompt->toolTip(), QStringLiteral("P or Ctrl+N"));
    EXPECT_EQ(rows().constFirst()->findChild<KeyCap*>()->toolTip(), QStringLiteral("Ctrl+Shift+Space (default)"));
}

TEST_F(Help, keepsItsDistances) {
    openHelp();
    EXPECT_EQ(help()->width(), 480);
    const auto* heading = help()->findChild<Label*>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_EQ(place(heading).topLeft(), QPoint(32, 32));
    EXPECT_EQ(heading->height(), textLineHeight(TextStyle::largeTitle));
    EXPECT_EQ(place(rows().constFirst()).top(), place(heading).bottom() + 1 + 24);
    for (qsizetype i = 1; i < rows().size(); ++i)
        EXPECT_EQ(place(rows()[i]).top(), place(rows()[i - 1]).bottom() + 1 + 16);
    const QRect close = place(visibleButton(*help(), QStringLiteral("Close")));
    EXPECT_EQ(close.right(), 480 - 32 - 1);
    EXPECT_EQ(close.top(), place(rows().constLast()).bottom() + 1 + 28);
    EXPECT_EQ(close.bottom(), help()->height() - 24 - 1);
}

TEST_F(Help, theToolbarsItemOpensIt) {
    open();
    EXPECT_FALSE(made->isPresentingHelp());
    ASSERT_TRUE(item());
    EXPECT_EQ(item()->symbol(), QStringLiteral("questionmark.circle"));
    EXPECT_EQ(item()->toolTip(), QStringLiteral("Help"));
    EXPECT_EQ(item()->mapTo(made.get(), QPoint(0, 0)), QPoint(1280 - 20 - 32, 16));
    QTest::mouseClick(item(), Qt::LeftButton);
    EXPECT_TRUE(made->isPresentingHelp());
    EXPECT_TRUE(help());
}

TEST_F(Help, controlAndHOpensItAlsoFromTheSearchField) {
    open();
    made->findChild<TextField*>()->setFocus();
    QTest::keyClicks(made->findChild<TextField*>(), QStringLiteral("ab"));
    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_TRUE(help());
    EXPECT_EQ(made->searchText(), QStringLiteral("ab"));
}

TEST_F(Help, closeReturnAndEscapeCloseIt) {
    openHelp();
    QTest::mouseClick(visibleButton(*help(), QStringLiteral("Close")), Qt::LeftButton);
    EXPECT_FALSE(made->isPresentingHelp());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        press(Qt::Key_H, Qt::ControlModifier);
        ASSERT_TRUE(help());
        press(key);
        EXPECT_FALSE(made->isPresentingHelp());
        EXPECT_FALSE(help());
    }
}

TEST_F(Help, underAnotherSheetTheShortcutDoesNothing) {
    open().promptList().newPrompt();
    press(Qt::Key_H, Qt::ControlModifier);
    made->presentHelp();
    EXPECT_FALSE(made->isPresentingHelp());
    Sheet::top(made.get())->dismiss();
    press(Qt::Key_H, Qt::ControlModifier);
    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(made->findChildren<HelpView*>().size(), 1);
}

TEST_F(Help, inALowWindowItScrollsAndReturnStillClosesIt) {
    openHelp({1280, 320});
    const auto* scroll = Sheet::of(help())->findChild<ScrollArea*>();
    EXPECT_LE(Sheet::of(help())->cardGeometry().height(), 320);
    EXPECT_GT(scroll->verticalScrollBar()->maximum(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(scroll->verticalScrollBar()->value(), scroll->verticalScrollBar()->maximum());
    press(Qt::Key_Return);
    EXPECT_FALSE(help());
}

} // namespace
} // namespace Quillstacks
