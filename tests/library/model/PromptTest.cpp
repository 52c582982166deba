#include "TestLibrary.h"

#include "foundation/Clock.h"
#include "foundation/ManualClock.h"

#include <gtest/gtest.h>

using namespace Quillstacks;
using namespace std::chrono_literals;

namespace {

Date tickingNow() {
    static qint64 now = 0;
    return dateFromMicroseconds(++now);
}

struct PromptRecord : testing::Test {
    ManualClock clock;
    TestLibrary library;
};

} // namespace

TEST(Prompt, theInitialiserSetsEveryField) {
    const ManualClock clock(dateFromMicroseconds(5'000'000));
    Tag tag(QStringLiteral("t"), QStringLiteral("ABCDEF"));

    const Prompt prompt(QStringLiteral("title"), QStringLiteral("body"), {&tag});

    EXPECT_FALSE(prompt.id().isNull());
    EXPECT_EQ(prompt.title(), QStringLiteral("title"));
    EXPECT_EQ(prompt.body(), QStringLiteral("body"));
    EXPECT_EQ(prompt.tags(), QList<Tag*>{&tag});
    EXPECT_EQ(prompt.createdAt(), dateFromMicroseconds(5'000'000));
    EXPECT_EQ(prompt.updatedAt(), dateFromMicroseconds(5'000'000));
    EXPECT_TRUE(prompt.versions().isEmpty());
    EXPECT_FALSE(prompt.hasVersions());
    EXPECT_FALSE(prompt.isPinned());
    EXPECT_EQ(prompt.pinnedAt(), std::nullopt);
    EXPECT_EQ(prompt.modelContext(), nullptr);
}

TEST(Prompt, createdAtAndUpdatedAtAreReadSeparately) {
    Clock::setSource({tickingNow, nullptr});
    const Prompt prompt({}, {});
    const Tag tag({}, {});
    Clock::setSource({});

    EXPECT_EQ(prompt.updatedAt() - prompt.createdAt(), 1us);
    EXPECT_EQ(tag.updatedAt() - tag.createdAt(), 1us);
}

TEST(Prompt, idsAreNeverTheSame) {
    EXPECT_NE(Prompt({}, {}).id(), Prompt({}, {}).id());
}

TEST(Prompt, aTagSeesAPromptOnlyOnceItIsInserted) {
    TestLibrary library;
    Tag* tag = library.addTag(QStringLiteral("t"));
    auto prompt = std::make_unique<Prompt>(QStringLiteral("p"), QString(), QList<Tag*>{tag});
    EXPECT_TRUE(tag->prompts().isEmpty());
    { const Prompt dropped(QStringLiteral("dropped"), {}, {tag}); }

    Prompt* inserted = library.context().insert(std::move(prompt));

    EXPECT_EQ(tag->prompts(), QList<Prompt*>{inserted});
}

TEST_F(PromptRecord, togglePinSetsAndClearsTheDate) {
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    const Date updated = prompt->updatedAt();
    clock.advance(3s);

    prompt->togglePin();
    EXPECT_TRUE(prompt->isPinned());
    EXPECT_EQ(prompt->pinnedAt(), Clock::now());

    clock.advance(3s);
    prompt->togglePin();
    EXPECT_FALSE(prompt->isPinned());
    EXPECT_EQ(prompt->pinnedAt(), std::nullopt);
    EXPECT_EQ(prompt->updatedAt(), updated);
}

TEST_F(PromptRecord, togglePinDoesNotSave) {
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    library.context().save();

    prompt->togglePin();

    EXPECT_TRUE(library.context().hasChanges());
    library.reopen();
    EXPECT_FALSE(library.prompt(QStringLiteral("p"))->isPinned());
}

TEST_F(PromptRecord, deletingAPromptDeletesItsVersionsAndNoTag) {
    Tag* tag = library.addTag(QStringLiteral("t"));
    Prompt* prompt = library.addPrompt(QStringLiteral("p"), QStringLiteral("text"), {tag});
    PromptVersion* version = library.addVersion(prompt, QStringLiteral("v"));
    library.context().save();

    library.context().remove(prompt);

    EXPECT_TRUE(version->isDeleted());
    EXPECT_FALSE(tag->isDeleted());
    EXPECT_TRUE(tag->prompts().isEmpty());
    library.saveAndReopen();
    EXPECT_TRUE(library.context().prompts().isEmpty());
    EXPECT_TRUE(library.context().versions().isEmpty());
    EXPECT_TRUE(library.tag(QStringLiteral("t"))->prompts().isEmpty());
}

TEST_F(PromptRecord, theCascadeReachesVersionsThatWereNeverRead) {
    library.addVersion(library.addPrompt(QStringLiteral("p")), QStringLiteral("v"));
    library.saveAndReopen();

    library.context().remove(library.prompt(QStringLiteral("p")));

    library.saveAndReopen();
    EXPECT_TRUE(library.context().versions().isEmpty());
}

TEST_F(PromptRecord, aVersionThatWasNeverAddedToAPromptIsNotReachedByTheCascade) {
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    library.context().insert(
        std::make_unique<PromptVersion>(prompt->id(), QStringLiteral("free"), QString(), QList<Tag*>()));
    library.context().save();

    library.context().remove(prompt);
    EXPECT_EQ(titlesOf(library.context().versions()), QStringList{QStringLiteral("free")});
    library.saveAndReopen();

    EXPECT_EQ(titlesOf(library.context().versions()), QStringList{QStringLiteral("free")});
}

TEST_F(PromptRecord, aDeletedRecordGivesItsTextsBackAndStaysAsAMark) {
    Tag* tag = library.addTag(QStringLiteral("t"));
    Prompt* prompt = library.addPrompt(QStringLiteral("p"), QStringLiteral("text"), {tag});
    PromptVersion* version = library.addVersion(prompt, QStringLiteral("v"), {tag});
    const Uuid id = prompt->id();

    library.context().remove(prompt);
    library.context().remove(tag);

    EXPECT_TRUE(prompt->isDeleted());
    EXPECT_EQ(prompt->id(), id);
    EXPECT_TRUE(prompt->title().isEmpty() && prompt->body().isEmpty());
    EXPECT_TRUE(prompt->tags().isEmpty() && prompt->versions().isEmpty());
    EXPECT_TRUE(version->title().isEmpty() && version->tagNames().isEmpty() && version->tagColors().isEmpty());
    EXPECT_TRUE(tag->name().isEmpty() && tag->colorHex().isEmpty());
}

TEST_F(PromptRecord, settersOfADeletedRecordDoNothing) {
    Tag* tag = library.addTag(QStringLiteral("t"));
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    library.context().remove(prompt);

    prompt->setTitle(QStringLiteral("again"));
    prompt->setTags({tag});
    prompt->togglePin();

    EXPECT_TRUE(prompt->title().isEmpty());
    EXPECT_TRUE(prompt->tags().isEmpty());
    EXPECT_TRUE(tag->prompts().isEmpty());
    EXPECT_FALSE(prompt->isPinned());
    library.saveAndReopen();
    EXPECT_TRUE(library.context().prompts().isEmpty());
}

TEST_F(PromptRecord, deletingTwiceDoesNothing) {
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    library.context().save();
    library.context().remove(prompt);
    library.context().save();

    library.context().remove(prompt);

    EXPECT_FALSE(library.context().hasChanges());
}

TEST_F(PromptRecord, looseVersionsComeInWithTheirPrompt) {
    auto prompt = std::make_unique<Prompt>(QStringLiteral("p"), QString());
    for (const char* title : {"a", "b"})
        prompt->appendVersion(
            std::make_unique<PromptVersion>(prompt->id(), QLatin1String(title), QString(), QList<Tag*>()));
    Prompt* inserted = library.context().insert(std::move(prompt));

    EXPECT_EQ(inserted->versions().first()->modelContext(), &library.context());
    library.saveAndReopen();
    EXPECT_EQ(titlesOf(library.prompt(QStringLiteral("p"))->versions()), letters("ab"));
}

TEST_F(PromptRecord, anImportedIdentityIsKept) {
    auto prompt = std::make_unique<Prompt>(QStringLiteral("p"), QString());
    const Uuid id = randomUuid();
    prompt->restoreIdentity(id, dateFromMicroseconds(-1), dateFromMicroseconds(2), true, dateFromMicroseconds(3));
    library.context().insert(std::move(prompt));

    library.saveAndReopen();

    const Prompt* read = library.context().promptWithId(id);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->createdAt(), dateFromMicroseconds(-1));
    EXPECT_EQ(read->updatedAt(), dateFromMicroseconds(2));
    EXPECT_TRUE(read->isPinned());
    EXPECT_EQ(read->pinnedAt(), dateFromMicroseconds(3));
}

TEST_F(PromptRecord, versionsAreReadWhenFirstAskedForAndMayBeReleased) {
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    EXPECT_FALSE(prompt->hasVersions());
    library.addVersion(prompt, QStringLiteral("a"));
    library.addVersion(prompt, QStringLiteral("b"));
    library.saveAndReopen();
    prompt = library.prompt(QStringLiteral("p"));

    EXPECT_TRUE(prompt->hasVersions());
    EXPECT_EQ(titlesOf(prompt->versions()), letters("ab"));
    prompt->releaseVersions();
    EXPECT_EQ(titlesOf(prompt->versions()), letters("ab"));
}

TEST_F(PromptRecord, versionsThatAreNotSavedAreNotReleased) {
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    library.addVersion(prompt, QStringLiteral("a"));
    library.context().save();
    const PromptVersion* unsaved = library.addVersion(prompt, QStringLiteral("b"));

    prompt->releaseVersions();

    EXPECT_EQ(prompt->versions().last(), unsaved);
}

TEST_F(PromptRecord, aVersionWhoseRemovalIsNotSavedDoesNotComeBackByARelease) {
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    PromptVersion* version = library.addVersion(prompt, QStringLiteral("a"));
    library.addVersion(prompt, QStringLiteral("b"));
    library.context().save();
    library.context().remove(version);

    prompt->releaseVersions();

    EXPECT_EQ(titlesOf(prompt->versions()), letters("b"));
}

TEST_F(PromptRecord, appendingToVersionsThatWereNotReadKeepsTheOrder) {
    library.addVersion(library.addPrompt(QStringLiteral("p")), QStringLiteral("a"));
    library.saveAndReopen();

    library.addVersion(library.prompt(QStringLiteral("p")), QStringLiteral("b"));
    EXPECT_EQ(titlesOf(library.prompt(QStringLiteral("p"))->versions()), letters("ab"));
    library.saveAndReopen();

    EXPECT_EQ(titlesOf(library.prompt(QStringLiteral("p"))->versions()), letters("ab"));
}

TEST_F(PromptRecord, aRemovedVersionLeavesItsPromptsList) {
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    for (const char* title : {"a", "b", "c"})
        library.addVersion(prompt, QLatin1String(title));
    library.context().save();

    library.context().remove(prompt->versions().at(1));
    EXPECT_EQ(titlesOf(prompt->versions()), letters("ac"));
    library.addVersion(prompt, QStringLiteral("d"));
    library.saveAndReopen();

    EXPECT_EQ(titlesOf(library.prompt(QStringLiteral("p"))->versions()), letters("acd"));
}

TEST_F(PromptRecord, removeAllVersionsTakesReadUnreadAndFreeOnes) {
    library.addVersion(library.addPrompt(QStringLiteral("p")), QStringLiteral("a"));
    library.addVersion(library.addPrompt(QStringLiteral("q")), QStringLiteral("b"));
    library.context().insert(std::make_unique<PromptVersion>(randomUuid(), QString(), QString(), QList<Tag*>()));
    library.saveAndReopen();
    ASSERT_EQ(library.context().versions().size(), 3);
    library.reopen();
    const PromptVersion* read = library.prompt(QStringLiteral("p"))->versions().first();

    library.context().removeAllVersions();
    EXPECT_TRUE(read->isDeleted());
    EXPECT_TRUE(library.context().versions().isEmpty());
    EXPECT_FALSE(library.prompt(QStringLiteral("q"))->hasVersions());
    library.addVersion(library.prompt(QStringLiteral("q")), QStringLiteral("new"));
    library.saveAndReopen();

    EXPECT_EQ(titlesOf(library.context().versions()), QStringList{QStringLiteral("new")});
    EXPECT_EQ(library.context().prompts().size(), 2);
}
