#include "library/versions/PromptVersionManager.h"

#include "foundation/Clock.h"
#include "foundation/ManualClock.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Quillstacks;
using namespace std::chrono_literals;

namespace {

struct PromptVersionManagerTest : testing::Test {
    PromptVersionManagerTest() { prompt = context.insert(std::make_unique<Prompt>(text(0), body(0))); }

    static QString text(int number) { return QStringLiteral("Title %1").arg(number); }
    static QString body(int number) { return QStringLiteral("Body %1").arg(number); }

    /// What the editor does on a save that changes the text.
    void edit(int number, qint64 limit) {
        clock.advance(1s);
        PromptVersionManager::createVersion(*prompt, context, limit);
        prompt->setTitle(text(number));
        prompt->setBody(body(number));
    }
    void edit(int from, int to, qint64 limit) {
        for (int number = from; number <= to; ++number)
            edit(number, limit);
    }
    [[nodiscard]] QStringList titles() const {
        QStringList result;
        for (const PromptVersion* version : prompt->versions())
            result.append(version->title());
        return result;
    }
    PromptVersion* append(const QString& title, Date created) {
        auto version = std::make_unique<PromptVersion>(prompt->id(), title, QString(), QList<Tag*>());
        version->restoreIdentity(randomUuid(), {}, {}, created);
        return prompt->appendVersion(std::move(version));
    }

    ManualClock clock;
    QTemporaryDir folder;
    ModelContainer container{Schema::current(), {folder.filePath(QStringLiteral("Quillstacks.store"))}};
    ModelContext& context = container.mainContext();
    Prompt* prompt = nullptr;
};

} // namespace

TEST_F(PromptVersionManagerTest, theFirstEditMakesTheOldTextTheFirstVersion) {
    edit(1, 50);

    ASSERT_EQ(prompt->versions().size(), 1);
    EXPECT_EQ(prompt->versions().first()->title(), text(0));
    EXPECT_EQ(prompt->versions().first()->body(), body(0));
    EXPECT_EQ(prompt->versions().first()->promptId(), prompt->id());
    EXPECT_NE(prompt->versions().first()->id(), prompt->id());
}

TEST_F(PromptVersionManagerTest, anEmptyOldTextBecomesAVersionToo) {
    prompt->setTitle(QString());
    prompt->setBody(QString());

    edit(1, 50);

    ASSERT_EQ(prompt->versions().size(), 1);
    EXPECT_TRUE(prompt->versions().first()->title().isEmpty());
}

TEST_F(PromptVersionManagerTest, aVersionHoldsTheTagsAsTextsInTheirOrder) {
    Tag* second = context.insert(std::make_unique<Tag>(QStringLiteral("b"), QStringLiteral("222222")));
    Tag* first = context.insert(std::make_unique<Tag>(QStringLiteral("a"), QStringLiteral("111111")));
    prompt->setTags({second, first});

    edit(1, 50);

    EXPECT_EQ(prompt->versions().first()->tagNames(), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
    EXPECT_EQ(prompt->versions().first()->tagColors(),
              (QStringList{QStringLiteral("222222"), QStringLiteral("111111")}));
}

TEST_F(PromptVersionManagerTest, aTextThatEqualsTheNewestVersionAddsNothingAndPrunesNothing) {
    edit(1, 5, 50);
    PromptVersionManager::restoreVersion(*prompt->versions().last(), *prompt);
    const QStringList before = titles();

    PromptVersionManager::createVersion(*prompt, context, 2);

    EXPECT_EQ(titles(), before);
}

TEST_F(PromptVersionManagerTest, theComparisonIsExact) {
    edit(1, 50);
    prompt->setTitle(text(0).toUpper());
    prompt->setBody(body(0));
    PromptVersionManager::createVersion(*prompt, context, 50);
    EXPECT_EQ(prompt->versions().size(), 2);

    clock.advance(1s);
    prompt->setTitle(text(0).toUpper() + QLatin1Char(' '));
    PromptVersionManager::createVersion(*prompt, context, 50);
    EXPECT_EQ(prompt->versions().size(), 3);
}

TEST_F(PromptVersionManagerTest, aChangeOfTheBodyAloneOrOfTheTitleAloneIsRecorded) {
    edit(1, 50);
    prompt->setTitle(text(0)); // as in the newest version, with another body
    clock.advance(1s);
    PromptVersionManager::createVersion(*prompt, context, 50);
    ASSERT_EQ(prompt->versions().size(), 2);
    EXPECT_EQ(prompt->versions().last()->body(), body(1));

    prompt->setTitle(text(2));
    clock.advance(1s);
    PromptVersionManager::createVersion(*prompt, context, 50);
    EXPECT_EQ(titles(), (QStringList{text(0), text(0), text(2)}));
}

TEST_F(PromptVersionManagerTest, onlyTheNewestVersionCounts) {
    edit(1, 2, 50);
    prompt->setTitle(text(0));
    prompt->setBody(body(0));

    clock.advance(1s);
    PromptVersionManager::createVersion(*prompt, context, 50);

    EXPECT_EQ(titles(), (QStringList{text(0), text(1), text(0)}));
}

TEST_F(PromptVersionManagerTest, theNewestIsFoundByDateNotByPlace) {
    append(QStringLiteral("new"), dateFromMicroseconds(2000));
    append(QStringLiteral("old"), dateFromMicroseconds(1000));
    prompt->setTitle(QStringLiteral("new"));
    prompt->setBody(QString());

    PromptVersionManager::createVersion(*prompt, context, 50);

    EXPECT_EQ(prompt->versions().size(), 2);
}

TEST_F(PromptVersionManagerTest, aStateThatDiffersOnlyInItsTagsIsNotRecorded) {
    edit(1, 50);
    PromptVersionManager::restoreVersion(*prompt->versions().first(), *prompt);
    prompt->setTags({context.insert(std::make_unique<Tag>(QStringLiteral("t"), QStringLiteral("000000")))});

    PromptVersionManager::createVersion(*prompt, context, 50);

    EXPECT_EQ(prompt->versions().size(), 1);
}

TEST_F(PromptVersionManagerTest, aRestoreOfTheSameTextKeepsTheTagsAndMovesUpdatedAt) {
    Tag* tag = context.insert(std::make_unique<Tag>(QStringLiteral("t"), QStringLiteral("000000")));
    edit(1, 50);
    const PromptVersion* version = prompt->versions().first();
    prompt->setTitle(version->title());
    prompt->setBody(version->body());
    prompt->setTags({tag});
    const Date before = prompt->updatedAt();
    clock.advance(5s);

    PromptVersionManager::createVersion(*prompt, context, 50);
    PromptVersionManager::restoreVersion(*version, *prompt);

    EXPECT_EQ(prompt->versions().size(), 1);
    EXPECT_EQ(prompt->title(), version->title());
    EXPECT_EQ(prompt->tags(), QList<Tag*>{tag});
    EXPECT_GT(prompt->updatedAt(), before);
    EXPECT_EQ(prompt->updatedAt(), Clock::now());
}

TEST_F(PromptVersionManagerTest, aRestoreBringsTextBackButNeverTags) {
    Tag* old = context.insert(std::make_unique<Tag>(QStringLiteral("old"), QStringLiteral("000000")));
    Tag* present = context.insert(std::make_unique<Tag>(QStringLiteral("present"), QStringLiteral("000000")));
    prompt->setTags({old});
    edit(1, 50);
    prompt->setTags({present});
    const PromptVersion* version = prompt->versions().first();

    PromptVersionManager::restoreVersion(*version, *prompt);

    EXPECT_EQ(prompt->title(), text(0));
    EXPECT_EQ(prompt->body(), body(0));
    EXPECT_EQ(prompt->tags(), QList<Tag*>{present});
    EXPECT_EQ(prompt->versions(), QList<PromptVersion*>{const_cast<PromptVersion*>(version)});
}

TEST_F(PromptVersionManagerTest, fiftyVersionsAndALimitOfFiftyStayFifty) {
    edit(1, 50, 50);
    ASSERT_EQ(prompt->versions().size(), 50);

    edit(51, 50);

    ASSERT_EQ(prompt->versions().size(), 50);
    EXPECT_EQ(prompt->versions().first()->title(), text(1));
    EXPECT_EQ(prompt->versions().last()->title(), text(50));
}

TEST_F(PromptVersionManagerTest, aLoweredLimitDeletesNothingUntilTheNextRecordedChange) {
    edit(1, 150, 200);
    PromptVersionManager::restoreVersion(*prompt->versions().last(), *prompt);
    PromptVersionManager::createVersion(*prompt, context, 10);
    ASSERT_EQ(prompt->versions().size(), 150);

    prompt->setTitle(QStringLiteral("changed"));
    clock.advance(1s);
    PromptVersionManager::createVersion(*prompt, context, 10);

    ASSERT_EQ(prompt->versions().size(), 10);
    EXPECT_EQ(prompt->versions().last()->title(), QStringLiteral("changed"));
    EXPECT_EQ(prompt->versions().first()->title(), text(141));
}

TEST_F(PromptVersionManagerTest, aLimitOfZeroDeletesEveryVersionAlsoTheNewOne) {
    edit(1, 3, 50);

    edit(4, 0);

    EXPECT_TRUE(prompt->versions().isEmpty());
    context.save();
    EXPECT_TRUE(prompt->versions().isEmpty());
}

TEST_F(PromptVersionManagerTest, aLimitUnderTenIsUsedAsItStands) {
    edit(1, 9, 3);

    EXPECT_EQ(titles(), (QStringList{text(6), text(7), text(8)}));
}

TEST_F(PromptVersionManagerTest, ofEqualDatesAtTheBoundaryTheLaterInTheListGoes) {
    const Date same = dateFromMicroseconds(1000);
    append(QStringLiteral("a"), same);
    append(QStringLiteral("b"), same);
    append(QStringLiteral("c"), same);

    PromptVersionManager::createVersion(*prompt, context, 3);

    EXPECT_EQ(titles(), (QStringList{QStringLiteral("a"), QStringLiteral("b"), text(0)}));
}

TEST_F(PromptVersionManagerTest, ofEqualDatesTheOneThatStandsFirstCountsAsTheNewest) {
    append(text(0), dateFromMicroseconds(1000));
    append(QStringLiteral("later in the list"), dateFromMicroseconds(1000));
    prompt->setBody(QString());
    PromptVersionManager::createVersion(*prompt, context, 50);
    EXPECT_EQ(prompt->versions().size(), 2) << "the first holds the same text";

    prompt->setTitle(QStringLiteral("later in the list"));
    PromptVersionManager::createVersion(*prompt, context, 50);
    EXPECT_EQ(prompt->versions().size(), 3) << "though the last of them holds it";
}

TEST_F(PromptVersionManagerTest, aNewVersionOfTheSameDateAsAFullHistoryGoesItself) {
    for (const char* title : {"a", "b", "c"})
        append(QLatin1String(title), Clock::now());

    PromptVersionManager::createVersion(*prompt, context, 3);

    EXPECT_EQ(titles(), (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
}

TEST_F(PromptVersionManagerTest, aNewVersionOlderThanAFullHistoryGoesItself) {
    for (const char* title : {"a", "b"})
        append(QLatin1String(title), Clock::now() + 1h); // before the clock was set back

    PromptVersionManager::createVersion(*prompt, context, 2);

    EXPECT_EQ(titles(), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(PromptVersionManagerTest, prunedVersionsAreGoneFromTheStoreAfterTheSave) {
    edit(1, 5, 50);
    context.save();
    edit(6, 2);
    context.save();
    prompt->releaseVersions();

    EXPECT_EQ(titles(), (QStringList{text(4), text(5)}));
}

TEST_F(PromptVersionManagerTest, neitherOperationSaves) {
    context.save();
    edit(1, 50);
    EXPECT_TRUE(context.hasChanges());
    context.save();
    PromptVersionManager::restoreVersion(*prompt->versions().first(), *prompt);
    EXPECT_TRUE(context.hasChanges());
}

TEST_F(PromptVersionManagerTest, aNegativeLimitEndsTheProcess) {
    EXPECT_DEATH(PromptVersionManager::createVersion(*prompt, context, -1), "to -1 versions");
}
