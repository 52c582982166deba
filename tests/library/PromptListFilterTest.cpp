#include "PromptListFixture.h"

#include <QScrollBar>

namespace Quillstacks {

TEST_F(PromptList, showsAllPromptsTheLatestEditedFirst) {
    addPrompt(QStringLiteral("old"));
    addPrompt(QStringLiteral("new"));
    EXPECT_EQ(visibleTitles(), (QStringList{QStringLiteral("new"), QStringLiteral("old")}));
    EXPECT_EQ(view().countText(), QString());
}

TEST_F(PromptList, aSearchOfOnlySpacesShowsAllPromptsAndNoCount) {
    addPrompt(QStringLiteral("a"));
    addPrompt(QStringLiteral("b"));
    view().setSearchText(QStringLiteral("   "));
    EXPECT_EQ(visibleTitles().size(), 2);
    EXPECT_EQ(view().countText(), QString());
}

TEST_F(PromptList, aSearchForATagsNameFindsItsPromptsEvenIfNeitherTitleNorBodyHoldsTheText) {
    Tag* tag = addTag(QStringLiteral("Research"));
    addPrompt(QStringLiteral("tagged"), QStringLiteral("x"), {tag});
    addPrompt(QStringLiteral("other"), QStringLiteral("x"));
    view().setSearchText(QStringLiteral("research"));
    EXPECT_EQ(visibleTitles(), QStringList{QStringLiteral("tagged")});
}

TEST_F(PromptList, aSearchInMixedCaseFindsTheSameLettersInLowerCaseInATitle) {
    addPrompt(QStringLiteral("release notes"));
    addPrompt(QStringLiteral("other"));
    view().setSearchText(QStringLiteral("ReLEase"));
    EXPECT_EQ(visibleTitles(), QStringList{QStringLiteral("release notes")});
}

TEST_F(PromptList, aPinnedPromptStaysAboveAMoreRecentlyEditedUnpinnedOne) {
    Prompt* pinned = addPrompt(QStringLiteral("pinned"));
    addPrompt(QStringLiteral("newer"));
    pinned->togglePin();
    EXPECT_EQ(visibleTitles(), (QStringList{QStringLiteral("pinned"), QStringLiteral("newer")}));
}

TEST_F(PromptList, amongPinnedPromptsTheOnePinnedLastComesFirstWhateverTheirEditTimes) {
    Prompt* first = addPrompt(QStringLiteral("pinned first"));
    Prompt* last = addPrompt(QStringLiteral("pinned last"));
    first->togglePin();
    clock.advance(std::chrono::seconds(1));
    last->togglePin();
    clock.advance(std::chrono::seconds(1));
    first->setUpdatedAt(dateFromMicroseconds(1'900'000'000'000'000));
    EXPECT_EQ(visibleTitles(), (QStringList{QStringLiteral("pinned last"), QStringLiteral("pinned first")}));
}

TEST_F(PromptList, aTagShowsItsPromptsAndTheAllPromptsEntryShowsAll) {
    Tag* tag = addTag(QStringLiteral("Work"));
    addPrompt(QStringLiteral("tagged"), QStringLiteral("x"), {tag});
    addPrompt(QStringLiteral("untagged"));
    view().setSelectedTagId(tag->id());
    EXPECT_EQ(visibleTitles(), QStringList{QStringLiteral("tagged")});
    view().setSelectedTagId(Uuid());
    EXPECT_EQ(visibleTitles().size(), 2);
}

TEST_F(PromptList, theCountIsShownWhileAFilterIsActiveAndSomethingPasses) {
    Tag* tag = addTag(QStringLiteral("Work"));
    addPrompt(QStringLiteral("alpha"), QStringLiteral("x"), {tag});
    addPrompt(QStringLiteral("alphabet"), QStringLiteral("x"));
    view().setSearchText(QStringLiteral("alpha"));
    EXPECT_EQ(view().countText(), QStringLiteral("2 prompts"));
    view().setSelectedTagId(tag->id());
    EXPECT_EQ(view().countText(), QStringLiteral("1 prompt"));
    view().setSearchText(QStringLiteral("nothing holds this"));
    EXPECT_EQ(view().countText(), QString());
    view().setSearchText(QString());
    EXPECT_EQ(view().countText(), QStringLiteral("1 prompt"));
    view().setSelectedTagId(Uuid());
    EXPECT_EQ(view().countText(), QString());
}

TEST_F(PromptList, followsChangesOfTheLibraryOnTheNextTurn) {
    view();
    EXPECT_EQ(rows().count(), 0);
    library.addPrompt(QStringLiteral("new"));
    EXPECT_EQ(rows().count(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(rows().count(), 1);
}

TEST_F(PromptList, aNewSearchStartsAtTheTop) {
    for (int i = 0; i < 40; ++i)
        library.addPrompt(QString::number(i), QStringLiteral("body"), {});
    library.context().processPendingChanges();
    shownView();
    rows().verticalScrollBar()->setValue(1500);
    EXPECT_EQ(rows().verticalScrollBar()->value(), 1500);
    view().setSearchText(QStringLiteral("body"));
    EXPECT_EQ(rows().verticalScrollBar()->value(), 0);
}

} // namespace Quillstacks
