#include "foundation/Clock.h"
#include "library/FullDisk.h"
#include "TagEditorFixture.h"

#include <QInputMethodEvent>

namespace Quillstacks {
namespace {

class TagEditorSaving : public TagEditorFixture {
protected:
    LogCapture log;
};

} // namespace

TEST_F(TagEditorSaving, returnInTheNameCreatesTheTagAndClosesTheSheet) {
    open();
    type("Onboarding");
    QTest::mouseClick(&swatch("2EC4B6"), Qt::LeftButton);
    press(Qt::Key_Return);
    EXPECT_TRUE(sheet->isDismissed());
    library.reopen();
    ASSERT_EQ(tagNames(), QStringList{QStringLiteral("Onboarding")});
    EXPECT_EQ(library.tag(QStringLiteral("Onboarding"))->colorHex(), QStringLiteral("2EC4B6"));
}

TEST_F(TagEditorSaving, aNameWithSpacesAroundItIsStoredTrimmed) {
    open().setName(QStringLiteral("  Work  "));
    view->saveTag();
    EXPECT_EQ(tagNames(), QStringList{QStringLiteral("Work")});
}

TEST_F(TagEditorSaving, theCaseOfTheNameIsKept) {
    open().setName(QStringLiteral("wORK"));
    view->saveTag();
    EXPECT_EQ(tagNames(), QStringList{QStringLiteral("wORK")});
}

TEST_F(TagEditorSaving, twoTagsNamedAlikeAreBothKept) {
    for (int i = 0; i < 2; ++i) {
        open().setName(QStringLiteral("Work"));
        view->saveTag();
    }
    library.reopen();
    EXPECT_EQ(tagNames(), (QStringList{QStringLiteral("Work"), QStringLiteral("Work")}));
}

TEST_F(TagEditorSaving, aNewTagIsLoggedAndHandedOnBeforeItIsStored) {
    bool storedWhenHanded = true;
    sheet = TagEditorView::present(&window, library.context(), nullptr,
                                   [&](Tag*) { storedWhenHanded = !library.context().hasChanges(); });
    view = qobject_cast<TagEditorView*>(sheet->content());
    view->setName(QStringLiteral(" Work "));
    view->saveTag();
    EXPECT_FALSE(storedWhenHanded);
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(log.messages(QStringLiteral("data"), LogLevel::Info),
              (QStringList{QStringLiteral("Creating new tag: 'Work'"), QStringLiteral("Tag saved successfully")}));
}

TEST_F(TagEditorSaving, anEditWritesNameColourAndDateAndHandsNothingOn) {
    Tag* tag = library.addTag(QStringLiteral("Work"), QStringLiteral("FF8E3C"));
    library.context().save();
    clock.advance(std::chrono::seconds(60));
    open(tag).setName(QStringLiteral(" Play "));
    QTest::mouseClick(&swatch("00BBF9"), Qt::LeftButton);
    QTest::mouseClick(&button("Save"), Qt::LeftButton);
    EXPECT_TRUE(sheet->isDismissed());
    EXPECT_TRUE(handed.isEmpty());
    EXPECT_EQ(tag->updatedAt(), Clock::now());
    EXPECT_EQ(log.messages(QStringLiteral("data"), LogLevel::Info),
              (QStringList{QStringLiteral("Updating tag: 'Play'"), QStringLiteral("Tag saved successfully")}));
    library.reopen();
    ASSERT_EQ(tagNames(), QStringList{QStringLiteral("Play")});
    EXPECT_EQ(library.tag(QStringLiteral("Play"))->colorHex(), QStringLiteral("00BBF9"));
}

TEST_F(TagEditorSaving, aColourOutsideThePaletteIsKept) {
    Tag* tag = library.addTag(QStringLiteral("Imported"), QStringLiteral("#abc"));
    open(tag).setName(QStringLiteral("Renamed"));
    view->saveTag();
    EXPECT_EQ(tag->colorHex(), QStringLiteral("#abc"));
    EXPECT_EQ(tag->name(), QStringLiteral("Renamed"));
}

TEST_F(TagEditorSaving, versionsKeepTheNameThatTheyRecorded) {
    Tag* tag = library.addTag(QStringLiteral("Work"), QStringLiteral("FF8E3C"));
    Prompt* prompt = addPrompt(QStringLiteral("a"), QStringLiteral("b"), {tag});
    const PromptVersion* version = library.addVersion(prompt, QStringLiteral("old"), {tag});
    open(tag).setName(QStringLiteral("Play"));
    view->saveTag();
    EXPECT_EQ(prompt->tags().first()->name(), QStringLiteral("Play"));
    EXPECT_EQ(version->tagNames(), QStringList{QStringLiteral("Work")});
    EXPECT_EQ(version->tagColors(), QStringList{QStringLiteral("FF8E3C")});
}

TEST_F(TagEditorSaving, aFailedSaveIsLoggedAndTheSheetClosesAllTheSame) {
    open().setName(QStringLiteral("Work"));
    {
        const FullDisk disk;
        view->saveTag();
    }
    EXPECT_TRUE(sheet->isDismissed());
    EXPECT_FALSE(log.contains(QStringLiteral("Tag saved successfully")));
    const QStringList errors = log.messages(QStringLiteral("data"), LogLevel::Error);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().startsWith(QStringLiteral("Data error in saving tag: ")))
        << errors.first().toStdString();
    // It waits in the context for the next save.
    EXPECT_EQ(tagNames(), QStringList{QStringLiteral("Work")});
    library.saveAndReopen();
    EXPECT_EQ(tagNames(), QStringList{QStringLiteral("Work")});
}

TEST_F(TagEditorSaving, aTagDeletedMeanwhileIsKeptAsANewOne) {
    Tag* tag = library.addTag(QStringLiteral("Work"), QStringLiteral("FF8E3C"));
    open(tag).setName(QStringLiteral("Typed"));
    library.context().remove(tag);
    EXPECT_TRUE(view->holdsUnsavedTyping());
    view->saveTag();
    ASSERT_EQ(tagNames(), QStringList{QStringLiteral("Typed")});
    EXPECT_EQ(library.tag(QStringLiteral("Typed"))->colorHex(), QStringLiteral("FF8E3C"));
}

TEST_F(TagEditorSaving, whatAnInputMethodStillComposesIsSaved) {
    open();
    EXPECT_FALSE(view->holdsUnsavedTyping());
    QInputMethodEvent composing(QStringLiteral("Ta"), {});
    QApplication::sendEvent(&field(), &composing);
    EXPECT_TRUE(view->holdsUnsavedTyping());
    QInputMethodEvent givenUp;
    QApplication::sendEvent(&field(), &givenUp);
    EXPECT_FALSE(view->holdsUnsavedTyping());
    type("Ta");
    QInputMethodEvent more(QStringLiteral("ge"), {});
    QApplication::sendEvent(&field(), &more);
    QTest::mouseClick(&button("Create"), Qt::LeftButton);
    EXPECT_EQ(tagNames(), QStringList{QStringLiteral("Tage")});
}

TEST_F(TagEditorSaving, aNameThatTheFieldCannotShowComesBackUnchanged) {
    const QString name = QStringLiteral("two\nlines");
    Tag* tag = library.addTag(name, QStringLiteral("FF8E3C"));
    open(tag);
    EXPECT_FALSE(view->holdsUnsavedTyping());
    QTest::mouseClick(&swatch("00BBF9"), Qt::LeftButton);
    view->saveTag();
    EXPECT_EQ(tag->name(), name);
}

} // namespace Quillstacks
