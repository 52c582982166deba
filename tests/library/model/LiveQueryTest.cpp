#include "TestLibrary.h"

#include "foundation/ManualClock.h"
#include "library/model/LiveQuery.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Quillstacks;
using namespace std::chrono_literals;

namespace {

struct LiveQueries : testing::Test {
    Prompt* add(const char* title, qint64 updated) {
        Prompt* prompt = library.addPrompt(QLatin1String(title));
        prompt->setUpdatedAt(dateFromMicroseconds(updated));
        return prompt;
    }
    void turn() { QCoreApplication::processEvents(); }

    TestLibrary library;
    ModelContext& context = library.context();
};

} // namespace

TEST_F(LiveQueries, promptsComeTheLatestUpdatedFirst) {
    add("a", 1);
    add("b", 3);
    add("c", 2);

    EXPECT_EQ(titlesOf(PromptQuery(context).records()), letters("bca"));
}

TEST_F(LiveQueries, equalDatesKeepTheOrderOfInsertion) {
    const PromptQuery query(context);
    for (const char* title : {"a", "b", "c", "d"})
        add(title, 5);
    EXPECT_EQ(titlesOf(query.records()), letters("abcd"));

    library.prompt(QStringLiteral("b"))->setUpdatedAt(dateFromMicroseconds(9));
    library.prompt(QStringLiteral("b"))->setUpdatedAt(dateFromMicroseconds(5));
    EXPECT_EQ(titlesOf(query.records()), letters("abcd"));
    library.saveAndReopen();
    EXPECT_EQ(titlesOf(PromptQuery(library.context()).records()), letters("abcd"));
}

TEST_F(LiveQueries, recordsAreCurrentBeforeAnythingIsTold) {
    const PromptQuery query(context);
    QSignalSpy told(&query, &PromptQuery::changed);
    Prompt* a = add("a", 1);
    EXPECT_EQ(titlesOf(query.records()), letters("a"));
    add("b", 2);
    EXPECT_EQ(titlesOf(query.records()), letters("ba"));
    a->setUpdatedAt(dateFromMicroseconds(3));
    EXPECT_EQ(titlesOf(query.records()), letters("ab"));
    context.remove(a);
    EXPECT_EQ(titlesOf(query.records()), letters("b"));

    EXPECT_EQ(told.count(), 0);
}

TEST_F(LiveQueries, changedIsToldOnceOnTheNextTurn) {
    const PromptQuery query(context);
    turn();
    QSignalSpy told(&query, &PromptQuery::changed);

    Prompt* a = add("a", 1);
    a->setBody(QStringLiteral("text"));
    add("b", 2);
    EXPECT_EQ(told.count(), 0);
    turn();
    EXPECT_EQ(told.count(), 1);
    turn();
    EXPECT_EQ(told.count(), 1);

    a->togglePin();
    turn();
    EXPECT_EQ(told.count(), 2);
}

TEST_F(LiveQueries, processPendingChangesTellsAtOnceAndNotAgain) {
    const PromptQuery query(context);
    QSignalSpy told(&query, &PromptQuery::changed);
    add("a", 1);

    context.processPendingChanges();
    EXPECT_EQ(told.count(), 1);
    context.processPendingChanges();
    turn();
    EXPECT_EQ(told.count(), 1);
}

TEST_F(LiveQueries, aSetterThatChangesNothingTellsNothing) {
    Prompt* a = add("a", 1);
    Tag* tag = library.addTag(QStringLiteral("t"));
    context.save();
    context.processPendingChanges();
    const PromptQuery query(context);
    QSignalSpy told(&query, &PromptQuery::changed);

    a->setTitle(QStringLiteral("a"));
    a->setUpdatedAt(a->updatedAt());
    a->setTags({});
    tag->setName(QStringLiteral("t"));
    context.processPendingChanges();

    EXPECT_EQ(told.count(), 0);
    EXPECT_FALSE(context.hasChanges());
}

TEST_F(LiveQueries, aChangeOfATagsFieldTellsPromptQueries) {
    Tag* tag = library.addTag(QStringLiteral("t"));
    library.addPrompt(QStringLiteral("p"), {}, {tag});
    context.processPendingChanges();
    const PromptQuery query(context);
    QSignalSpy told(&query, &PromptQuery::changed);

    tag->setName(QStringLiteral("u"));
    context.processPendingChanges();
    EXPECT_EQ(told.count(), 1);
    tag->setColorHex(QStringLiteral("000000"));
    context.processPendingChanges();
    EXPECT_EQ(told.count(), 2);
    context.remove(tag);
    context.processPendingChanges();
    EXPECT_EQ(told.count(), 3);
}

TEST_F(LiveQueries, aNewVersionTellsPromptQueries) {
    Prompt* a = add("a", 1);
    context.processPendingChanges();
    const PromptQuery query(context);
    QSignalSpy told(&query, &PromptQuery::changed);

    library.addVersion(a, QStringLiteral("v"));
    context.processPendingChanges();

    EXPECT_EQ(told.count(), 1);
}

TEST_F(LiveQueries, aPromptsTextDoesNotTellTagQueries) {
    Prompt* a = add("a", 1);
    Tag* tag = library.addTag(QStringLiteral("t"));
    context.processPendingChanges();
    const TagQuery query(context);
    QSignalSpy told(&query, &TagQuery::changed);

    a->setBody(QStringLiteral("text"));
    context.processPendingChanges();
    EXPECT_EQ(told.count(), 0);
    a->setTags({tag});
    context.processPendingChanges();
    EXPECT_EQ(told.count(), 1);
}

TEST_F(LiveQueries, tagsComeByNameAsAPersonWouldSortThem) {
    const TagQuery query(context);
    for (const char* name : {"Item 10", "item 9", "Zebra", "apple", "Item 9"})
        library.addTag(QLatin1String(name));

    EXPECT_EQ(namesOf(query.records()),
              (QStringList{QStringLiteral("apple"), QStringLiteral("item 9"), QStringLiteral("Item 9"),
                           QStringLiteral("Item 10"), QStringLiteral("Zebra")}));
    EXPECT_EQ(namesOf(TagQuery(context).records()), namesOf(query.records()));
}

TEST_F(LiveQueries, aRenamedTagMovesToItsPlace) {
    const TagQuery query(context);
    for (const char* name : {"a", "b", "c"})
        library.addTag(QLatin1String(name));
    ASSERT_EQ(namesOf(query.records()), letters("abc"));

    library.tag(QStringLiteral("a"))->setName(QStringLiteral("d"));
    EXPECT_EQ(namesOf(query.records()), letters("bcd"));
    context.remove(library.tag(QStringLiteral("c")));
    EXPECT_EQ(namesOf(query.records()), letters("bd"));
}

TEST_F(LiveQueries, equalNamesKeepTheOrderOfInsertion) {
    Tag* first = library.addTag(QStringLiteral("t"), QStringLiteral("1"));
    Tag* second = library.addTag(QStringLiteral("t"), QStringLiteral("2"));

    EXPECT_EQ(TagQuery(context).records(), (QList<Tag*>{first, second}));
}

TEST_F(LiveQueries, aQueryOutlivesItsContextEmpty) {
    add("a", 1);
    const PromptQuery query(context);
    const TagQuery tagQuery(context);
    library.close();

    EXPECT_TRUE(query.records().isEmpty());
    EXPECT_TRUE(tagQuery.records().isEmpty());
}

TEST_F(LiveQueries, aQueryThatIsGoneIsNotTold) {
    {
        const PromptQuery query(context);
        const TagQuery tagQuery(context);
    }
    add("a", 1);
    library.addTag(QStringLiteral("t"));
    context.processPendingChanges();
    EXPECT_EQ(context.prompts().size(), 1);
}

TEST_F(LiveQueries, changesMadeWhileTellingAreToldOnTheNextTurn) {
    const PromptQuery query(context);
    Prompt* a = add("a", 1);
    int told = 0;
    QObject::connect(&query, &PromptQuery::changed, &query, [&] {
        if (++told == 1)
            a->setTitle(QStringLiteral("b"));
    });

    turn();
    turn();
    EXPECT_EQ(told, 2);
}

TEST_F(LiveQueries, theContextTellsWhatHappenedToWhom) {
    Prompt* changedPrompt = add("changed", 1);
    Prompt* removed = add("removed", 1);
    context.processPendingChanges();
    ChangeSet told;
    QObject::connect(&context, &ModelContext::changed, &context, [&](const ChangeSet& changes) { told = changes; });

    Prompt* inserted = add("inserted", 1);
    changedPrompt->setBody(QStringLiteral("text"));
    removed->setBody(QStringLiteral("text"));
    context.remove(removed);
    context.processPendingChanges();

    EXPECT_EQ(told.inserted, QSet<const Record*>{inserted});
    EXPECT_EQ(told.updated, QSet<const Record*>{changedPrompt});
    EXPECT_EQ(told.deleted, QSet<const Record*>{removed});
}

TEST_F(LiveQueries, aLongRandomHistoryGivesTheSameListAsSortingAfresh) {
    QRandomGenerator random(20'240'501);
    const PromptQuery query(context);
    QList<Prompt*> alive;
    for (int step = 0; step < 3000; ++step) {
        const quint32 choice = random.bounded(10);
        if (choice < 4 || alive.isEmpty()) {
            alive.append(add("p", random.bounded(50)));
        } else if (choice < 5) {
            context.remove(alive.takeAt(random.bounded(alive.size())));
        } else {
            alive.at(random.bounded(alive.size()))->setUpdatedAt(dateFromMicroseconds(random.bounded(50)));
        }
        if (random.bounded(20) != 0)
            continue; // so that many changes come together now and then
        ASSERT_EQ(query.records(), PromptQuery(context).records()) << "at step " << step;
        ASSERT_EQ(query.records().size(), alive.size());
    }
    EXPECT_TRUE(std::is_sorted(query.records().cbegin(), query.records().cend(),
                               [](const Prompt* a, const Prompt* b) { return a->updatedAt() > b->updatedAt(); }));
}
