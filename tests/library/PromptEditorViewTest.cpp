#include "library/PromptEditorView.h"

#include "foundation/Clock.h"
#include "FullDisk.h"
#include "interface/PlainTextEdit.h"
#include "interface/TextField.h"
#include "library/LibraryPreferences.h"
#include "LibraryFixture.h"
#include "variables/VariablePreferences.h"
#include "variables/VariableSubstitutionView.h"

#include <QFile>
#include <QInputMethodEvent>
#include <QLabel>
#include <QSignalSpy>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

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

} // namespace

// Making

TEST_F(PromptEditor, createInsertsThePromptTrimmedSavesAndCloses) {
    const LogCapture log;
    open().setTitle(QStringLiteral("  Title\n"));
    editor->setEditorBody(QStringLiteral("\n\tBody \n text \n"));
    editor->savePrompt();
    const Prompt* prompt = library.prompt(QStringLiteral("Title"));
    ASSERT_TRUE(prompt);
    EXPECT_EQ(prompt->body(), QStringLiteral("Body \n text"));
    EXPECT_FALSE(prompt->hasVersions());
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(closed->count(), 1);
    EXPECT_EQ(log.lines(), (QStringList{QStringLiteral("data info: New prompt created: 'Title'"),
                                        QStringLiteral("data info: Prompt saved successfully")}));
}

TEST_F(PromptEditor, onSaveHearsOfANewPromptBeforeTheStoreIsSavedAndNeverOfAnEdit) {
    int calls = 0;
    bool wasSaved = true;
    const auto onSave = [&](Prompt*) {
        ++calls;
        wasSaved = !library.context().hasChanges();
    };
    open(nullptr, onSave).setTitle(QStringLiteral("a"));
    editor->setEditorBody(QStringLiteral("b"));
    editor->savePrompt();
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(wasSaved);
    open(library.prompt(QStringLiteral("a")), onSave).savePrompt();
    EXPECT_EQ(calls, 1);
}

TEST_F(PromptEditor, aTitleOfOnlySpacesKeepsTheSaveButtonDisabledAndCtrlSDoesNothing) {
    PromptEditorView& view = present();
    view.setTitle(QStringLiteral("   "));
    view.setEditorBody(QStringLiteral("body"));
    EXPECT_FALSE(view.canSave());
    EXPECT_FALSE(visibleButton(view, QStringLiteral("Create"))->isEnabled());
    QTest::keyClick(&titleField(view), Qt::Key_S, Qt::ControlModifier);
    view.savePrompt();
    EXPECT_TRUE(library.context().prompts().isEmpty());
    EXPECT_EQ(closed->count(), 0);
}

TEST_F(PromptEditor, aBodyOfOnlyLineEndsIsNotSaved) {
    open().setTitle(QStringLiteral("a"));
    editor->setEditorBody(QStringLiteral(" \n\r\n\u2028"));
    EXPECT_FALSE(editor->canSave());
    editor->savePrompt();
    EXPECT_TRUE(library.context().prompts().isEmpty());
}

TEST_F(PromptEditor, aNewPromptHasNoCopyAndNoHistoryAndNoDeleteButton) {
    open();
    EXPECT_FALSE(visibleButton(*editor, QStringLiteral("Copy")));
    EXPECT_FALSE(visibleButton(*editor, QStringLiteral("History")));
    EXPECT_FALSE(visibleButton(*editor, QStringLiteral("Delete")));
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Cancel")));
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Create")));
}

TEST_F(PromptEditor, deleteWithoutAPromptDoesNothingAtAll) {
    const LogCapture log;
    open().deletePrompt();
    EXPECT_EQ(closed->count(), 0);
    EXPECT_TRUE(log.lines().isEmpty());
}

// Editing

TEST_F(PromptEditor, opensWithThePromptsTextAndTags) {
    Tag* tag = addTag(QStringLiteral("Work"));
    open(addPrompt(QStringLiteral("t"), QStringLiteral("b"), {tag}));
    EXPECT_EQ(editor->title(), QStringLiteral("t"));
    EXPECT_EQ(editor->editorBody(), QStringLiteral("b"));
    EXPECT_EQ(editor->selectedTags(), QSet<Tag*>{tag});
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Copy")));
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Delete")));
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Save")));
}

TEST_F(PromptEditor, aChangedTextMakesAVersionOfTheOldOne) {
    Prompt* prompt = addPrompt(QStringLiteral("old title"), QStringLiteral("old body"));
    open(prompt).setTitle(QStringLiteral("new title"));
    editor->savePrompt();
    EXPECT_EQ(prompt->title(), QStringLiteral("new title"));
    ASSERT_EQ(prompt->versions().size(), 1);
    EXPECT_EQ(prompt->versions().first()->title(), QStringLiteral("old title"));
    EXPECT_EQ(prompt->versions().first()->body(), QStringLiteral("old body"));
    EXPECT_EQ(prompt->updatedAt(), Clock::now());
    EXPECT_FALSE(library.context().hasChanges());
}

TEST_F(PromptEditor, textWithSpacesAroundItIsStoredTrimmedSoThatAResaveMakesNoVersion) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    open(prompt).setTitle(QStringLiteral(" t2 "));
    editor->setEditorBody(QStringLiteral("\nb2\n"));
    editor->savePrompt();
    EXPECT_EQ(prompt->title(), QStringLiteral("t2"));
    EXPECT_EQ(prompt->body(), QStringLiteral("b2"));
    EXPECT_EQ(prompt->versions().size(), 1);
    open(prompt).savePrompt();
    EXPECT_EQ(prompt->versions().size(), 1);
}

TEST_F(PromptEditor, changingOnlyTheTagsAndSavingWritesTheTagsAndMakesNoVersion) {
    Tag* tag = addTag(QStringLiteral("Work"));
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    open(prompt).setSelectedTags({tag});
    editor->savePrompt();
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("Work"));
    EXPECT_FALSE(prompt->hasVersions());
}

TEST_F(PromptEditor, savingAPromptThatChangedNeitherInTextNorInTagsStillMovesUpdatedAt) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    const Date before = prompt->updatedAt();
    clock.advance(5s);
    open(prompt).savePrompt();
    EXPECT_GT(prompt->updatedAt(), before);
    EXPECT_EQ(prompt->updatedAt(), Clock::now());
    EXPECT_FALSE(prompt->hasVersions());
    EXPECT_EQ(closed->count(), 1);
}

TEST_F(PromptEditor, aTagDeletedElsewhereBeforeTheSaveIsLeftOut) {
    Tag* kept = addTag(QStringLiteral("kept"));
    Tag* gone = addTag(QStringLiteral("gone"));
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    open(prompt).setSelectedTags({kept, gone});
    library.context().remove(gone);
    editor->savePrompt();
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("kept"));
}

TEST_F(PromptEditor, tagsAreWrittenInTheOrderOfAllTags) {
    Tag* b = addTag(QStringLiteral("b"));
    Tag* c = addTag(QStringLiteral("c"));
    Tag* a = addTag(QStringLiteral("a"));
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("x"), {c, b, a});
    open(prompt).savePrompt();
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("a b c"));
}

TEST_F(PromptEditor, theVersionLimitIsThatOfThePreference) {
    EXPECT_EQ(versionHistoryLimitPreference().value(), 50);
    versionHistoryLimitPreference().set(2);
    Prompt* prompt = addPrompt(QStringLiteral("0"));
    for (int i = 1; i <= 5; ++i) {
        clock.advance(1s);
        open(prompt).setTitle(QString::number(i));
        editor->savePrompt();
    }
    EXPECT_EQ(titlesOf(prompt->versions()), (QStringList{QStringLiteral("3"), QStringLiteral("4")}));
}

TEST_F(PromptEditor, cancelWritesNothing) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    open(prompt).setTitle(QStringLiteral("typed"));
    editor->cancel();
    EXPECT_EQ(closed->count(), 1);
    EXPECT_EQ(prompt->title(), QStringLiteral("t"));
    EXPECT_FALSE(library.context().hasChanges());
}

TEST_F(PromptEditor, loadingAgainTakesTheStoredTextAndDropsWhatWasTyped) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    open(prompt).setTitle(QStringLiteral("typed"));
    prompt->setBody(QStringLiteral("restored"));
    editor->loadPrompt();
    EXPECT_EQ(editor->title(), QStringLiteral("t"));
    EXPECT_EQ(editor->editorBody(), QStringLiteral("restored"));
}

TEST_F(PromptEditor, aFailedSaveIsLoggedAndTheSheetClosesAllTheSame) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    open(prompt).setTitle(QStringLiteral("new"));
    const LogCapture log;
    {
        const FullDisk disk;
        editor->savePrompt();
    }
    EXPECT_EQ(closed->count(), 1);
    const QStringList errors = log.messages(QStringLiteral("data"), LogLevel::Error);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().startsWith(QStringLiteral("Data error in saving prompt: ")));
    EXPECT_FALSE(log.contains(QStringLiteral("Prompt saved successfully")));
    EXPECT_EQ(prompt->title(), QStringLiteral("new"));
    EXPECT_TRUE(library.context().hasChanges());
}

TEST_F(PromptEditor, whereTheHistoryCanNotBeReadNothingIsWrittenAndTheSheetStays) {
    library.addVersion(addPrompt(QStringLiteral("t")), QStringLiteral("earlier"));
    library.saveAndReopen();
    QFile file(library.path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    constexpr qint64 firstPage = 4096; // holds the schema, and is in memory
    ASSERT_TRUE(file.seek(firstPage));
    file.write(QByteArray(file.size() - firstPage, '\xFF'));
    file.close();
    Prompt* prompt = library.prompt(QStringLiteral("t"));
    open(prompt).setTitle(QStringLiteral("typed"));
    const LogCapture log;
    editor->savePrompt();
    EXPECT_EQ(closed->count(), 0);
    EXPECT_EQ(editor->title(), QStringLiteral("typed"));
    EXPECT_EQ(prompt->title(), QStringLiteral("t"));
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().first().startsWith(QStringLiteral("data error: Data error in saving prompt: ")));
}

TEST_F(PromptEditor, theTextOfAPromptThatIsGoneIsKeptAsANewPrompt) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    open(prompt).setEditorBody(QStringLiteral("typed for an hour"));
    library.context().remove(prompt);
    editor->savePrompt();
    ASSERT_EQ(library.context().prompts().size(), 1);
    EXPECT_EQ(library.context().prompts().first()->body(), QStringLiteral("typed for an hour"));
}

TEST_F(PromptEditor, everyCharacterOfABodyComesThroughAnUntouchedEdit) {
    const QString body = QStringLiteral("a\rb\r\nc\nd\u0085e\u2028f\u2029g\u00A0h\tij ") + QChar(0xFDD0) +
                         QStringLiteral("k") + QChar(0xFDD1) + QStringLiteral("l\U0001F600m\u0000n");
    Prompt* prompt = addPrompt(QStringLiteral("t"), body);
    open(prompt);
    EXPECT_EQ(editor->editorBody(), body);
    editor->savePrompt();
    EXPECT_EQ(prompt->body(), body);
    EXPECT_FALSE(prompt->hasVersions());
}

TEST_F(PromptEditor, aTitleComesThroughAnUntouchedEditWhateverItHolds) {
    const QString title = QStringLiteral("a\nb\rc\u2029d\u00A0e") + QString(40'000, QLatin1Char('x'));
    Prompt* prompt = addPrompt(title);
    open(prompt);
    EXPECT_EQ(editor->title(), title);
    editor->savePrompt();
    EXPECT_EQ(prompt->title(), title);
    EXPECT_FALSE(prompt->hasVersions());
}

TEST_F(PromptEditor, aVeryLongTitleCanBeTyped) {
    PromptEditorView& view = present();
    const QString half(40'000, QLatin1Char('x'));
    titleField(view).insert(half);
    titleField(view).insert(half);
    EXPECT_EQ(view.title(), half + half);
}

// Deleting

TEST_F(PromptEditor, deleteAsksThenDeletesSavesAndCloses) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    PromptEditorView& view = present(prompt);
    const LogCapture log;
    visibleButton(view, QStringLiteral("Delete"))->click();
    EXPECT_TRUE(view.isShowingDeleteAlert());
    EXPECT_FALSE(prompt->isDeleted());
    visibleButton(*Sheet::top(&window), QStringLiteral("Delete"))->click();
    EXPECT_FALSE(view.isShowingDeleteAlert());
    EXPECT_TRUE(prompt->isDeleted());
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(closed->count(), 1);
    EXPECT_EQ(log.lines(), (QStringList{QStringLiteral("data info: Deleting prompt: 't'"),
                                        QStringLiteral("data info: Prompt deleted successfully")}));
}

TEST_F(PromptEditor, theAlertsCancelKeepsThePromptAndTheSheet) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    PromptEditorView& view = present(prompt);
    view.askToDelete();
    visibleButton(*Sheet::top(&window), QStringLiteral("Cancel"))->click();
    EXPECT_FALSE(view.isShowingDeleteAlert());
    EXPECT_FALSE(prompt->isDeleted());
    EXPECT_EQ(closed->count(), 0);
}

TEST_F(PromptEditor, aFailedDeletionIsLoggedAndTheSheetClosesAllTheSame) {
    open(addPrompt(QStringLiteral("t")));
    const LogCapture log;
    {
        const FullDisk disk;
        editor->deletePrompt();
    }
    EXPECT_EQ(closed->count(), 1);
    const QStringList errors = log.messages(QStringLiteral("data"), LogLevel::Error);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().startsWith(QStringLiteral("Data error in deleting prompt: ")));
    EXPECT_FALSE(log.contains(QStringLiteral("Prompt deleted successfully")));
}

// Copying

TEST_F(PromptEditor, copyWithoutVariablesTakesTheBodyAsItStandsUntrimmedAndUnsaved) {
    open(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    editor->setTitle(QStringLiteral(" typed \"title\" "));
    editor->setEditorBody(QStringLiteral(" typed\n"));
    editor->copyPrompt();
    EXPECT_EQ(clipboard(), QStringLiteral(" typed\n"));
    EXPECT_EQ(toast(), QStringLiteral("Copied \" typed \"title\" \" to clipboard"));
    EXPECT_FALSE(editor->showVariableSubstitution());
}

TEST_F(PromptEditor, copyIsDisabledWhileTheBodyIsBlank) {
    open(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Copy"))->isEnabled());
    editor->setEditorBody(QStringLiteral(" \n"));
    EXPECT_FALSE(visibleButton(*editor, QStringLiteral("Copy"))->isEnabled());
}

TEST_F(PromptEditor, copyingATextThatHoldsVariablesWithSubstitutionOffTakesThePlaceholdersAsTheyStand) {
    enableVariableSubstitutionPreference().set(false);
    open(addPrompt(QStringLiteral("t"), QStringLiteral("Explain {{topic}}")));
    editor->copyPrompt();
    EXPECT_EQ(clipboard(), QStringLiteral("Explain {{topic}}"));
    EXPECT_FALSE(editor->showVariableSubstitution());
}

TEST_F(PromptEditor, copyingATextThatHoldsVariablesAsksForTheirValuesFirst) {
    rememberValue(QStringLiteral("topic"), QStringLiteral("tides"));
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("Explain {topic}.")));
    view.copyPrompt();
    EXPECT_TRUE(view.showVariableSubstitution());
    EXPECT_EQ(clipboard(), QString());
    auto* fillIn = qobject_cast<VariableSubstitutionView*>(Sheet::top(&window)->content());
    ASSERT_TRUE(fillIn);
    visibleButton(*fillIn, QStringLiteral("Copy"))->click();
    EXPECT_EQ(clipboard(), QStringLiteral("Explain tides."));
    EXPECT_EQ(toast(), QStringLiteral("Copied \"t\" to clipboard"));
    EXPECT_FALSE(view.showVariableSubstitution());
}

TEST_F(PromptEditor, cancellingTheFillInCopiesNothing) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("Explain {topic}.")));
    view.copyPrompt();
    auto* fillIn = qobject_cast<VariableSubstitutionView*>(Sheet::top(&window)->content());
    ASSERT_TRUE(fillIn);
    visibleButton(*fillIn, QStringLiteral("Cancel"))->click();
    EXPECT_FALSE(view.showVariableSubstitution());
    EXPECT_EQ(clipboard(), QString());
    EXPECT_EQ(closed->count(), 0);
}

// Size

TEST_F(PromptEditor, theSheetIsAtLeast1100By720WhereTheWindowIsLargeEnoughAndFitsWhereItIsNot) {
    const auto card = [this](const QSize& size) {
        window.resize(size);
        QCoreApplication::processEvents();
        return Sheet::top(&window)->cardGeometry();
    };
    present();
    EXPECT_EQ(card(QSize(1440, 900)).size(), QSize(1160, 860));
    EXPECT_GE(card(QSize(1280, 720)).width(), 1100);
    EXPECT_EQ(card(QSize(1280, 720)).height(), 720);
    EXPECT_TRUE(QRect(0, 0, 900, 500).contains(card(QSize(900, 500))));
}

TEST_F(PromptEditor, theTitleFieldIs40High) {
    const PromptEditorView& view = present();
    EXPECT_EQ(titleField(view).height(), 40);
    EXPECT_GE(bodyField(view).parentWidget()->height(), 360);
}

// Keys

TEST_F(PromptEditor, returnInTheTitleSaves) {
    PromptEditorView& view = present();
    titleField(view).setFocus();
    QTest::keyClicks(&titleField(view), QStringLiteral("typed"));
    bodyField(view).setText(QStringLiteral("body"));
    QTest::keyClick(&titleField(view), Qt::Key_Return);
    EXPECT_EQ(closed->count(), 1);
    EXPECT_TRUE(library.prompt(QStringLiteral("typed")));
}

TEST_F(PromptEditor, returnInTheBodyBeginsALineAndCtrlSSaves) {
    PromptEditorView& view = present();
    view.setTitle(QStringLiteral("t"));
    bodyField(view).setFocus();
    QTest::keyClicks(&bodyField(view), QStringLiteral("one"));
    QTest::keyClick(&bodyField(view), Qt::Key_Return);
    QTest::keyClicks(&bodyField(view), QStringLiteral("two"));
    EXPECT_EQ(closed->count(), 0);
    EXPECT_EQ(view.editorBody(), QStringLiteral("one\ntwo"));
    QTest::keyClick(&bodyField(view), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(closed->count(), 1);
    EXPECT_TRUE(library.prompt(QStringLiteral("t")));
}

TEST_F(PromptEditor, returnInTheTitleOfAnEmptyBodyDoesNothing) {
    PromptEditorView& view = present();
    view.setTitle(QStringLiteral("t"));
    titleField(view).setFocus();
    QTest::keyClick(&titleField(view), Qt::Key_Return);
    EXPECT_EQ(closed->count(), 0);
}

TEST_F(PromptEditor, escapeDoesNothing) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t")));
    titleField(view).setFocus();
    QTest::keyClick(&titleField(view), Qt::Key_Escape);
    bodyField(view).setFocus();
    QTest::keyClick(&bodyField(view), Qt::Key_Escape);
    EXPECT_EQ(closed->count(), 0);
    EXPECT_FALSE(Sheet::of(&view)->isDismissed());
}

TEST_F(PromptEditor, underItsDeleteAlertCtrlSDoesNothing) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    PromptEditorView& view = present(prompt);
    view.setTitle(QStringLiteral("typed"));
    view.askToDelete();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(prompt->title(), QStringLiteral("t"));
    EXPECT_EQ(closed->count(), 0);
}

TEST_F(PromptEditor, tabIsACharacterOfTheBodyAndCtrlTabAndShiftTabLeaveIt) {
    PromptEditorView& view = present();
    bodyField(view).setFocus();
    QTest::keyClick(&bodyField(view), Qt::Key_Tab);
    EXPECT_EQ(view.editorBody(), QStringLiteral("\t"));
    EXPECT_TRUE(bodyField(view).hasFocus());
    QTest::keyClick(&bodyField(view), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(titleField(view).hasFocus());
    bodyField(view).setFocus();
    QTest::keyClick(&bodyField(view), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_FALSE(bodyField(view).hasFocus());
    EXPECT_TRUE(view.isAncestorOf(QApplication::focusWidget()));
}

TEST_F(PromptEditor, thePlaceholderStandsInAnEmptyBodyOnly) {
    open();
    const auto isShown = [&] { return placeholder(*editor)->isVisibleTo(editor.get()); };
    EXPECT_TRUE(isShown());
    editor->setEditorBody(QStringLiteral("a"));
    EXPECT_FALSE(isShown());
    editor->setEditorBody(QString());
    EXPECT_TRUE(isShown());
    EXPECT_EQ(titleField(*editor).placeholderText(), QStringLiteral("Title"));
}

TEST_F(PromptEditor, thePlaceholderIsHiddenWhileATextIsComposed) {
    const PromptEditorView& view = present();
    EXPECT_TRUE(placeholder(view)->isVisible());
    compose(bodyField(view), QStringLiteral("n"));
    EXPECT_FALSE(placeholder(view)->isVisible());
    compose(bodyField(view), QString());
    EXPECT_TRUE(placeholder(view)->isVisible());
}

TEST_F(PromptEditor, whatIsStillComposedIsSavedAndCopied) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    PromptEditorView& view = present(prompt);
    bodyField(view).moveCursor(QTextCursor::End);
    compose(bodyField(view), QStringLiteral("ni"));
    EXPECT_EQ(view.editorBody(), QStringLiteral("b"));
    QTest::mouseClick(visibleButton(view, QStringLiteral("Copy")), Qt::LeftButton);
    EXPECT_EQ(clipboard(), QStringLiteral("bni"));
    compose(bodyField(view), QStringLiteral("hao"));
    QTest::mouseClick(visibleButton(view, QStringLiteral("Save")), Qt::LeftButton);
    EXPECT_EQ(prompt->body(), QStringLiteral("bnihao"));
    EXPECT_EQ(closed->count(), 1);
}

TEST_F(PromptEditor, whatIsStillComposedInTheTitleIsSavedByCtrlS) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    PromptEditorView& view = present(prompt);
    titleField(view).setFocus();
    titleField(view).end(false);
    compose(titleField(view), QStringLiteral("ni"));
    QTest::keyClick(&titleField(view), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(prompt->title(), QStringLiteral("tni"));
}

TEST_F(PromptEditor, itsButtonsAnswerTheMouse) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    Button* copy = visibleButton(view, QStringLiteral("Copy"));
    EXPECT_EQ(copy->toolTip(), QStringLiteral("Copy prompt to clipboard"));
    QTest::mouseClick(copy, Qt::LeftButton);
    EXPECT_EQ(clipboard(), QStringLiteral("b"));
    QTest::mouseClick(visibleButton(view, QStringLiteral("Delete")), Qt::LeftButton);
    EXPECT_TRUE(view.isShowingDeleteAlert());
    QStringList texts;
    for (const QLabel* label : Sheet::top(&window)->findChildren<QLabel*>())
        texts += label->text();
    EXPECT_EQ(texts, (QStringList{QStringLiteral("Delete Prompt?"), QStringLiteral("This action cannot be undone.")}));
    view.cancelDeletion();
    QTest::mouseClick(visibleButton(view, QStringLiteral("Cancel")), Qt::LeftButton);
    EXPECT_EQ(closed->count(), 1);
}

TEST_F(PromptEditor, theBodysLinesFollowTheDesktopsFont) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPixelSize(14);
    QApplication::setFont(font);
    open();
    EXPECT_EQ(bodyField(*editor).lineHeight(), 24);
    font.setPixelSize(28);
    QApplication::setFont(font);
    EXPECT_EQ(bodyField(*editor).lineHeight(), 48);
    EXPECT_EQ(placeholder(*editor)->height(), 48);
    EXPECT_GT(titleField(*editor).sizeHint().height(), 40);
    QApplication::setFont(before);
}

} // namespace Quillstacks
