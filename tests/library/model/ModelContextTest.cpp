#include "TestLibrary.h"

#include <gtest/gtest.h>

using namespace Quillstacks;

namespace {

struct Lookups : testing::Test {
    TestLibrary library;
    ModelContext& context = library.context();
};

} // namespace

TEST(Schema, namesTheThreeModelTypesInOrder) {
    EXPECT_EQ(Schema::current().models,
              (QStringList{QStringLiteral("Tag"), QStringLiteral("Prompt"), QStringLiteral("PromptVersion")}));
    EXPECT_EQ(Schema::current().version, QStringLiteral("1.0.0"));
}

TEST_F(Lookups, seeUnsavedInsertionsAndDeletions) {
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    Tag* tag = library.addTag(QStringLiteral("t"));
    EXPECT_EQ(context.prompts(), QList<Prompt*>{prompt});
    EXPECT_EQ(context.tags(), QList<Tag*>{tag});
    EXPECT_EQ(context.promptWithId(prompt->id()), prompt);
    EXPECT_EQ(context.tagWithId(tag->id()), tag);
    EXPECT_EQ(context.promptsWithTitle(QStringLiteral("p")), QList<Prompt*>{prompt});
    EXPECT_EQ(context.tagsWithName(QStringLiteral("t")), QList<Tag*>{tag});

    const Uuid promptId = prompt->id();
    const Uuid tagId = tag->id();
    context.remove(prompt);
    context.remove(tag);
    EXPECT_TRUE(context.prompts().isEmpty() && context.tags().isEmpty());
    EXPECT_EQ(context.promptWithId(promptId), nullptr);
    EXPECT_EQ(context.tagWithId(tagId), nullptr);
    EXPECT_TRUE(context.promptsWithTitle(QStringLiteral("p")).isEmpty());
    EXPECT_TRUE(context.tagsWithName(QStringLiteral("t")).isEmpty());
}

TEST_F(Lookups, findNothingWhereThereIsNothing) {
    EXPECT_EQ(context.promptWithId(randomUuid()), nullptr);
    EXPECT_EQ(context.tagWithId(randomUuid()), nullptr);
    EXPECT_TRUE(context.promptsWithTitle(QString()).isEmpty());
    EXPECT_TRUE(context.tagsWithName(QString()).isEmpty());
}

TEST_F(Lookups, compareExactly) {
    library.addPrompt(QStringLiteral("Title"));

    EXPECT_TRUE(context.promptsWithTitle(QStringLiteral("title")).isEmpty());
    EXPECT_TRUE(context.promptsWithTitle(QStringLiteral("Title ")).isEmpty());
}

TEST_F(Lookups, followSettersAndKeepTheOrderOfInsertion) {
    Prompt* first = library.addPrompt(QStringLiteral("a"));
    Prompt* second = library.addPrompt(QStringLiteral("b"));
    ASSERT_EQ(context.promptsWithTitle(QStringLiteral("b")), QList<Prompt*>{second});

    first->setTitle(QStringLiteral("b"));
    EXPECT_TRUE(context.promptsWithTitle(QStringLiteral("a")).isEmpty());
    EXPECT_EQ(context.promptsWithTitle(QStringLiteral("b")), (QList<Prompt*>{first, second}));

    Tag* tag = library.addTag(QStringLiteral("t"));
    ASSERT_EQ(context.tagsWithName(QStringLiteral("t")).size(), 1);
    tag->setName(QStringLiteral("u"));
    EXPECT_TRUE(context.tagsWithName(QStringLiteral("t")).isEmpty());
    EXPECT_EQ(context.tagsWithName(QStringLiteral("u")), QList<Tag*>{tag});
}

TEST_F(Lookups, findTheFirstOfTwoRecordsWithOneId) {
    const Uuid id = randomUuid();
    QList<Prompt*> twins;
    for (int count = 0; count < 2; ++count) {
        auto prompt = std::make_unique<Prompt>(QStringLiteral("twin"), QString());
        prompt->restoreIdentity(id, {}, {}, false, {});
        twins.append(context.insert(std::move(prompt)));
    }

    EXPECT_EQ(context.promptWithId(id), twins.first());
    context.remove(twins.first());
    EXPECT_EQ(context.promptWithId(id), twins.last());
    library.saveAndReopen();
    EXPECT_EQ(library.context().prompts().size(), 1);
}

TEST_F(Lookups, findStoredRecords) {
    const Uuid id = library.addPrompt(QStringLiteral("p"))->id();
    library.saveAndReopen();

    ASSERT_NE(library.context().promptWithId(id), nullptr);
    EXPECT_EQ(library.context().promptWithId(id)->title(), QStringLiteral("p"));
}

TEST_F(Lookups, hasChangesTellsWhetherASaveWouldWrite) {
    EXPECT_FALSE(context.hasChanges());
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    EXPECT_TRUE(context.hasChanges());
    context.save();
    EXPECT_FALSE(context.hasChanges());
    prompt->setBody(QStringLiteral("text"));
    EXPECT_TRUE(context.hasChanges());
    context.save();
    context.remove(prompt);
    EXPECT_TRUE(context.hasChanges());
    context.save();
    EXPECT_FALSE(context.hasChanges());
    context.save();
}

TEST_F(Lookups, pointersStayValidForTheContextsLife) {
    QList<Prompt*> prompts;
    for (int number = 0; number < 1000; ++number)
        prompts.append(library.addPrompt(QString::number(number)));
    context.save();
    context.remove(prompts.at(10));
    context.save();

    for (int number = 0; number < 1000; ++number)
        EXPECT_EQ(prompts.at(number)->title(), number == 10 ? QString() : QString::number(number));
}
