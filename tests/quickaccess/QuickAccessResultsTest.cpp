// What the search finds, and in which order.
#include "QuickAccessFixture.h"

#include "foundation/Clock.h"

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class QuickAccessResults : public QuickAccessFixture {
protected:
    QStringList found(const QString& search) {
        view->setSearchText(search);
        return titles(view->results());
    }
};

TEST_F(QuickAccessResults, withoutASearchAllPromptsStandThereTheNewestFirst) {
    for (const char* title : {"one", "two", "three"})
        add(QString::fromLatin1(title));
    EXPECT_EQ(titles(show().results()),
              (QStringList{QStringLiteral("three"), QStringLiteral("two"), QStringLiteral("one")}));
}

TEST_F(QuickAccessResults, aTermWithBlanksAroundItFindsWhatTheBareTermFindsInAnyLetterCase) {
    add(QStringLiteral("Code Review"));
    add(QStringLiteral("Other"));
    show();
    EXPECT_EQ(found(QStringLiteral("  cODE \n")), QStringList{QStringLiteral("Code Review")});
    EXPECT_EQ(view->searchText(), QStringLiteral("  cODE \n")); // the text itself stays as typed
    EXPECT_EQ(found(QStringLiteral("code")), QStringList{QStringLiteral("Code Review")});
}

TEST_F(QuickAccessResults, blanksWithinATermCount) {
    add(QStringLiteral("Code Review"));
    show();
    EXPECT_EQ(found(QStringLiteral("code  review")), QStringList());
    EXPECT_EQ(found(QStringLiteral("e r")).size(), 1);
}

TEST_F(QuickAccessResults, aTermFoundOnlyInATagsNameFindsThePrompt) {
    add(QStringLiteral("Letter"), QStringLiteral("Dear"), {addTag(QStringLiteral("Work Mail"))});
    add(QStringLiteral("Other"));
    show();
    EXPECT_EQ(found(QStringLiteral("work m")), QStringList{QStringLiteral("Letter")});
}

TEST_F(QuickAccessResults, aTermFoundOnlyInTheBodyFindsThePrompt) {
    add(QStringLiteral("Letter"), QStringLiteral("x").repeated(5000) + QStringLiteral("Needle"));
    show();
    EXPECT_EQ(found(QStringLiteral("needle")).size(), 1);
}

TEST_F(QuickAccessResults, pinnedPromptsComeFirstAndTheNewestPinLeads) {
    addPinned(QStringLiteral("first pin"));
    addPinned(QStringLiteral("second pin"));
    add(QStringLiteral("newest"));
    show();
    EXPECT_EQ(titles(view->results()),
              (QStringList{QStringLiteral("second pin"), QStringLiteral("first pin"), QStringLiteral("newest")}));
    EXPECT_EQ(titles(view->pinnedResults()), (QStringList{QStringLiteral("second pin"), QStringLiteral("first pin")}));
    EXPECT_EQ(titles(view->otherResults()), QStringList{QStringLiteral("newest")});
}

TEST_F(QuickAccessResults, aPinWithoutADateComesLastAmongThePins) {
    auto undated = std::make_unique<Prompt>(QStringLiteral("undated"), QString());
    clock.advance(1s);
    undated->restoreIdentity(randomUuid(), undated->createdAt(), Clock::now(), true, std::nullopt);
    context.insert(std::move(undated));
    addPinned(QStringLiteral("dated"));
    show();
    EXPECT_EQ(titles(view->results()), (QStringList{QStringLiteral("dated"), QStringLiteral("undated")}));
}

TEST_F(QuickAccessResults, thereIsNoLimitOnTheirNumber) {
    for (int i = 0; i < 600; ++i)
        add(QStringLiteral("Prompt %1").arg(i));
    show();
    EXPECT_EQ(found(QStringLiteral("prompt")).size(), 600);
}

TEST_F(QuickAccessResults, aPromptThatIsAddedOrDeletedMeanwhileIsFollowed) {
    Prompt* first = add(QStringLiteral("first"));
    show();
    add(QStringLiteral("second"));
    context.processPendingChanges();
    ASSERT_TRUE(view->resultList()->row(1));
    EXPECT_EQ(view->resultList()->row(0)->prompt()->title(), QStringLiteral("second"));
    context.remove(first);
    context.processPendingChanges();
    EXPECT_EQ(titles(view->results()), QStringList{QStringLiteral("second")});
    EXPECT_FALSE(view->resultList()->row(1));
}

TEST_F(QuickAccessResults, withAnEmptyLibraryAndAnEmptyFieldItAsksToStartTyping) {
    show();
    EXPECT_TRUE(view->emptyState()->isVisible());
    EXPECT_EQ(view->emptyState()->text(), QStringLiteral("Start typing to search"));
    EXPECT_FALSE(view->resultList()->isVisible());
}

TEST_F(QuickAccessResults, aFieldThatHoldsOnlyBlanksShowsThatNothingWasFoundWhenTheLibraryIsEmpty) {
    show();
    type(QStringLiteral("  "));
    EXPECT_EQ(view->emptyState()->text(), QStringLiteral("No prompts found"));
}

TEST_F(QuickAccessResults, aSearchWithoutAHitShowsThatNothingWasFound) {
    add(QStringLiteral("Letter"));
    show();
    EXPECT_FALSE(view->emptyState()->isVisible());
    type(QStringLiteral("haiku"));
    EXPECT_TRUE(view->emptyState()->isVisible());
    EXPECT_EQ(view->emptyState()->text(), QStringLiteral("No prompts found"));
    view->setSearchText(QString());
    EXPECT_FALSE(view->emptyState()->isVisible());
    EXPECT_TRUE(view->resultList()->isVisible());
}

TEST_F(QuickAccessResults, theHeadingsShowOnlyWhileSomethingIsPinned) {
    Prompt* pin = addPinned(QStringLiteral("pin"));
    add(QStringLiteral("other"));
    show();
    EXPECT_EQ(view->resultList()->sectionTitles(),
              (QStringList{QStringLiteral("PINNED"), QStringLiteral("ALL PROMPTS")}));
    view->setSearchText(QStringLiteral("pin"));
    EXPECT_EQ(view->resultList()->sectionTitles(), QStringList{QStringLiteral("PINNED")});
    view->setSearchText(QStringLiteral("other"));
    EXPECT_EQ(view->resultList()->sectionTitles(), QStringList());
    view->setSearchText(QString());
    pin->togglePin();
    context.processPendingChanges();
    EXPECT_EQ(view->resultList()->sectionTitles(), QStringList());
}

} // namespace
} // namespace Quillstacks
