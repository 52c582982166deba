#include "TestLibrary.h"

#include "foundation/ManualClock.h"

#include <gtest/gtest.h>

using namespace Quillstacks;

namespace {

struct TagRecord : testing::Test {
    TagRecord() {
        for (const char* name : {"a", "b", "c"})
            tags.append(library.addTag(QLatin1String(name)));
        for (const char* title : {"x", "y", "z"})
            prompts.append(library.addPrompt(QLatin1String(title)));
    }
    /// The titles of a tag's prompts, as they are and as they come back from the store.
    void expectPrompts(const char* name, const char* titles) {
        EXPECT_EQ(titlesOf(library.tag(QLatin1String(name))->prompts()), letters(titles));
        library.saveAndReopen();
        EXPECT_EQ(titlesOf(library.tag(QLatin1String(name))->prompts()), letters(titles));
    }
    void expectTags(const char* title, const char* names) {
        EXPECT_EQ(namesOf(library.prompt(QLatin1String(title))->tags()), letters(names));
        library.saveAndReopen();
        EXPECT_EQ(namesOf(library.prompt(QLatin1String(title))->tags()), letters(names));
    }

    TestLibrary library;
    QList<Tag*> tags;
    QList<Prompt*> prompts;
};

} // namespace

TEST(Tag, theInitialiserSetsEveryField) {
    const ManualClock clock(dateFromMicroseconds(7));

    const Tag tag(QStringLiteral("name"), QStringLiteral("#not a colour"));

    EXPECT_FALSE(tag.id().isNull());
    EXPECT_EQ(tag.name(), QStringLiteral("name"));
    EXPECT_EQ(tag.colorHex(), QStringLiteral("#not a colour"));
    EXPECT_EQ(tag.createdAt(), dateFromMicroseconds(7));
    EXPECT_EQ(tag.updatedAt(), dateFromMicroseconds(7));
    EXPECT_TRUE(tag.prompts().isEmpty());
}

TEST_F(TagRecord, twoTagsWithTheSameNameCanCoexist) {
    Tag* other = library.addTag(QStringLiteral("a"), tags.first()->colorHex());

    EXPECT_EQ(library.context().tagsWithName(QStringLiteral("a")), (QList<Tag*>{tags.first(), other}));
    library.saveAndReopen();
    EXPECT_EQ(library.context().tagsWithName(QStringLiteral("a")).size(), 2);
}

TEST_F(TagRecord, aChangeOfThePromptsSideShowsOnTheTags) {
    prompts[1]->setTags({tags[2], tags[0]});
    prompts[0]->setTags({tags[2]});

    EXPECT_EQ(titlesOf(tags[2]->prompts()), letters("yx"));
    EXPECT_EQ(titlesOf(tags[0]->prompts()), letters("y"));
    expectTags("y", "ca");
    expectPrompts("c", "yx");
}

TEST_F(TagRecord, aChangeOfTheTagsSideShowsOnThePrompts) {
    prompts[2]->setTags({tags[1]});

    tags[0]->setPrompts({prompts[2], prompts[0]});

    EXPECT_EQ(namesOf(prompts[2]->tags()), letters("ba"));
    EXPECT_EQ(namesOf(prompts[0]->tags()), letters("a"));
    expectPrompts("a", "zx");
    expectTags("z", "ba");
}

TEST_F(TagRecord, theTagsListKeepsTheOrderInWhichPromptsTookTheTag) {
    prompts[0]->setTitle(QStringLiteral("touched first"));
    prompts[0]->setTitle(QStringLiteral("x"));
    prompts[2]->setTags({tags[0]});
    prompts[0]->setTags({tags[0]});

    expectPrompts("a", "zx");
}

TEST_F(TagRecord, aTagThatIsTakenAgainMovesToTheEndOfItsPromptsOnTheTagsSide) {
    for (Prompt* prompt : prompts)
        prompt->setTags({tags[0]});
    library.context().save();

    prompts[0]->setTags({});
    prompts[0]->setTags({tags[0]});

    expectPrompts("a", "yzx");
}

TEST_F(TagRecord, setPromptsReordersTakesAndLeaves) {
    tags[0]->setPrompts({prompts[0], prompts[1], prompts[2]});
    library.context().save();

    tags[0]->setPrompts({prompts[2], prompts[0]});
    EXPECT_TRUE(prompts[1]->tags().isEmpty());
    expectPrompts("a", "zx");

    library.tag(QStringLiteral("a"))->setPrompts({});
    expectPrompts("a", "");
    EXPECT_TRUE(library.prompt(QStringLiteral("x"))->tags().isEmpty());
}

TEST_F(TagRecord, reorderingTagsOfAPromptIsStored) {
    prompts[0]->setTags(tags);
    library.context().save();

    prompts[0]->setTags({tags[2], tags[0], tags[1]});
    expectTags("x", "cab");
}

TEST_F(TagRecord, removingATagInTheMiddleAndAddingOneIsStored) {
    prompts[0]->setTags(tags);
    library.context().save();
    Tag* fourth = library.addTag(QStringLiteral("d"));

    prompts[0]->setTags({tags[0], fourth, tags[2]});
    expectTags("x", "adc");
}

TEST_F(TagRecord, aTagIsTakenOnceHoweverOftenItIsGiven) {
    prompts[0]->setTags({tags[1], tags[0], tags[1], nullptr});

    EXPECT_EQ(tags[1]->prompts().size(), 1);
    expectTags("x", "ba");
}

TEST_F(TagRecord, aDeletedTagIsNotTaken) {
    library.context().remove(tags[0]);

    prompts[0]->setTags({tags[0], tags[1]});

    expectTags("x", "b");
}

TEST_F(TagRecord, aTagThatIsDeletedBeforeItsPromptIsInsertedIsNotAmongItsTags) {
    auto prompt = std::make_unique<Prompt>(QStringLiteral("late"), QString(), QList<Tag*>{tags[0], tags[1]});
    library.context().remove(tags[0]);

    library.context().insert(std::move(prompt));

    expectTags("late", "b");
}

TEST_F(TagRecord, deletingATagLeavesItsPrompts) {
    prompts[0]->setTags(tags);
    prompts[1]->setTags({tags[1]});
    library.context().save();

    library.context().remove(tags[1]);

    EXPECT_TRUE(tags[1]->prompts().isEmpty());
    EXPECT_TRUE(prompts[1]->tags().isEmpty());
    EXPECT_FALSE(prompts[1]->isDeleted());
    expectTags("x", "ac");
    EXPECT_EQ(library.context().prompts().size(), 3);
}

TEST_F(TagRecord, aVersionKeepsNamesAndColoursOfATagThatWasDeletedRenamedOrRecoloured) {
    prompts[0]->setTags({tags[0], tags[1]});
    PromptVersion* version = library.addVersion(prompts[0], QStringLiteral("v"), prompts[0]->tags());
    tags[1]->setName(QStringLiteral("renamed"));
    tags[1]->setColorHex(QStringLiteral("000000"));
    library.context().remove(tags[0]);

    EXPECT_EQ(version->tagNames(), letters("ab"));
    library.saveAndReopen();
    const PromptVersion* read = library.prompt(QStringLiteral("x"))->versions().first();
    EXPECT_EQ(read->tagNames(), letters("ab"));
    EXPECT_EQ(read->tagColors(), (QStringList{QStringLiteral("7C5CFC"), QStringLiteral("7C5CFC")}));
}

TEST_F(TagRecord, promptsGivenToATagBeforeItsInsertionTakeItThen) {
    auto tag = std::make_unique<Tag>(QStringLiteral("d"), QString());
    tag->setPrompts({prompts[1], prompts[0]});
    EXPECT_TRUE(prompts[1]->tags().isEmpty());

    library.context().insert(std::move(tag));

    EXPECT_EQ(namesOf(prompts[1]->tags()), letters("d"));
    expectPrompts("d", "yx");
}

TEST_F(TagRecord, anImportedIdentityIsKept) {
    auto tag = std::make_unique<Tag>(QStringLiteral("d"), QString());
    const Uuid id = randomUuid();
    tag->restoreIdentity(id, dateFromMicroseconds(1), dateFromMicroseconds(2));
    library.context().insert(std::move(tag));

    library.saveAndReopen();

    const Tag* read = library.context().tagWithId(id);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->createdAt(), dateFromMicroseconds(1));
    EXPECT_EQ(read->updatedAt(), dateFromMicroseconds(2));
}
