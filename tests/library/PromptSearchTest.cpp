#include "library/PromptSearch.h"

#include "foundation/Text.h"
#include "library/model/Prompt.h"
#include "library/model/Tag.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace Quillstacks {
namespace {

/// Loose records: neither search nor order needs a store.
class Library final {
public:
    Prompt* add(const QString& title, const QString& body, const QList<Tag*>& own = {}) {
        return prompts.emplace_back(std::make_unique<Prompt>(title, body, own)).get();
    }
    Prompt* addDated(qint64 updated, bool pinned = false, std::optional<qint64> pinDate = std::nullopt) {
        Prompt* prompt = add(QStringLiteral("t"), QStringLiteral("b"));
        prompt->restoreIdentity(prompt->id(), dateFromMicroseconds(0), dateFromMicroseconds(updated), pinned,
                                pinDate ? std::optional(dateFromMicroseconds(*pinDate)) : std::nullopt);
        return prompt;
    }
    Tag* addTag(const QString& name) {
        return tags.emplace_back(std::make_unique<Tag>(name, QStringLiteral("7C5CFC"))).get();
    }
    [[nodiscard]] QList<Prompt*> all() const {
        QList<Prompt*> result;
        for (const auto& prompt : prompts)
            result += prompt.get();
        return result;
    }

private:
    std::vector<std::unique_ptr<Tag>> tags;
    std::vector<std::unique_ptr<Prompt>> prompts;
};

QList<Prompt*> sorted(QList<Prompt*> prompts) {
    sortPinnedFirst(prompts);
    return prompts;
}

} // namespace

TEST(PromptSearch, aBlankTextKeepsAllInTheirOrder) {
    Library library;
    library.add(QStringLiteral("b"), QString());
    library.add(QStringLiteral("a"), QString());
    EXPECT_EQ(promptsMatching(library.all(), QString()), library.all());
    EXPECT_EQ(promptsMatching(library.all(), QStringLiteral(" \t\n\u2028 ")), library.all());
}

TEST(PromptSearch, lookedForInTitleBodyAndTagNames) {
    Library library;
    Tag* tag = library.addTag(QStringLiteral("Needlework"));
    Prompt* inTitle = library.add(QStringLiteral("A needle"), QStringLiteral("x"));
    Prompt* inBody = library.add(QStringLiteral("x"), QStringLiteral("hay needle hay"));
    Prompt* inTag = library.add(QStringLiteral("x"), QStringLiteral("x"), {tag});
    library.add(QStringLiteral("x"), QStringLiteral("x"));
    EXPECT_EQ(promptsMatching(library.all(), QStringLiteral("needle")), (QList<Prompt*>{inTitle, inBody, inTag}));
}

TEST(PromptSearch, theTextIsTrimmedAtBothEndsAndKeepsItsInnerBlanks) {
    Library library;
    Prompt* prompt = library.add(QStringLiteral("two  words"), QString());
    EXPECT_EQ(promptsMatching(library.all(), QStringLiteral("  two  words\n")), QList<Prompt*>{prompt});
    EXPECT_TRUE(promptsMatching(library.all(), QStringLiteral("two words")).isEmpty());
}

TEST(PromptSearch, caseIsFoldedButAccentsAreNot) {
    Library library;
    Prompt* plain = library.add(QStringLiteral("CAFE"), QString());
    Prompt* accented = library.add(QStringLiteral("CAF\u00C9"), QString());
    EXPECT_EQ(promptsMatching(library.all(), QStringLiteral("cafe")), QList<Prompt*>{plain});
    EXPECT_EQ(promptsMatching(library.all(), QStringLiteral("Caf\u00E9")), QList<Prompt*>{accented});
}

TEST(PromptSearch, aTermDoesNotRunFromTheTitleIntoTheBody) {
    Library library;
    library.add(QStringLiteral("one"), QStringLiteral("two"));
    EXPECT_TRUE(promptsMatching(library.all(), QStringLiteral("onetwo")).isEmpty());
}

TEST(PromptSearch, aTagKeepsItsPromptsAndNoTagOrTheAllPromptsEntryKeepsAll) {
    Library library;
    Tag* tag = library.addTag(QStringLiteral("Work"));
    Tag* namesake = library.addTag(QStringLiteral("Work"));
    Prompt* tagged = library.add(QStringLiteral("a"), QString(), {namesake, tag});
    library.add(QStringLiteral("b"), QString(), {namesake});
    EXPECT_EQ(promptsWithTag(library.all(), tag->id()), QList<Prompt*>{tagged});
    EXPECT_EQ(promptsWithTag(library.all(), std::nullopt), library.all());
    EXPECT_EQ(promptsWithTag(library.all(), allPromptsId), library.all());
    EXPECT_TRUE(promptsWithTag(library.all(), randomUuid()).isEmpty());
}

TEST(PromptSearch, theAllPromptsEntryHasTheNullIdentifier) {
    EXPECT_EQ(uuidText(allPromptsId), QStringLiteral("00000000-0000-0000-0000-000000000000"));
}

TEST(PromptSearch, aPinnedPromptStaysAboveAMoreRecentlyEditedUnpinnedOne) {
    Library library;
    Prompt* recent = library.addDated(900);
    Prompt* pinned = library.addDated(100, true, 1);
    EXPECT_EQ(sorted(library.all()), (QList<Prompt*>{pinned, recent}));
}

TEST(PromptSearch, amongPinnedPromptsTheOnePinnedLastComesFirstWhateverTheEditTimes) {
    Library library;
    Prompt* early = library.addDated(900, true, 10);
    Prompt* late = library.addDated(100, true, 20);
    EXPECT_EQ(sorted(library.all()), (QList<Prompt*>{late, early}));
}

TEST(PromptSearch, aPinWithoutADateCountsAsTheDistantPast) {
    Library library;
    Prompt* undated = library.addDated(900, true);
    Prompt* beforeTheEpoch = library.addDated(100, true, -5'000'000);
    Prompt* unpinned = library.addDated(1000);
    EXPECT_EQ(sorted(library.all()), (QList<Prompt*>{beforeTheEpoch, undated, unpinned}));
}

TEST(PromptSearch, equalDatesKeepTheirOrder) {
    Library library;
    Prompt* first = library.addDated(5);
    Prompt* second = library.addDated(5);
    Prompt* third = library.addDated(5, true, 7);
    Prompt* fourth = library.addDated(5, true, 7);
    EXPECT_EQ(sorted(library.all()), (QList<Prompt*>{third, fourth, first, second}));
}

TEST(PromptSearch, agreesWithThePlainDefinition) {
    std::mt19937 random(20240607);
    const auto below = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(random); };
    const QStringList words{QStringLiteral("Alpha"),        QStringLiteral("beta"),    QStringLiteral("GAMMA "),
                            QStringLiteral("\u0130"),       QStringLiteral("STRASSE"), QStringLiteral("stra\u00DFe"),
                            QStringLiteral("\u03A3\u03A3"), QStringLiteral("{{x}}"),   QString()};
    const auto text = [&] { return words[below(9)] + words[below(9)] + words[below(9)]; };
    for (int round = 0; round < 300; ++round) {
        Library library;
        QList<Tag*> tags{library.addTag(text()), library.addTag(text())};
        for (int i = below(20); i > 0; --i) {
            Prompt* prompt = library.add(text(), text(), tags.first(below(3)));
            const bool pinned = below(3) == 0;
            prompt->restoreIdentity(prompt->id(), dateFromMicroseconds(0), dateFromMicroseconds(below(5)), pinned,
                                    pinned && below(4) != 0 ? std::optional(dateFromMicroseconds(below(5)))
                                                            : std::nullopt);
        }
        const QString search = QStringLiteral(" ") + words[below(9)] + words[below(9)];
        const QString term = Text::lowercased(Text::trimmed(search));

        QList<Prompt*> expected;
        for (Prompt* prompt : library.all()) {
            bool kept =
                Text::lowercased(prompt->title()).contains(term) || Text::lowercased(prompt->body()).contains(term);
            for (const Tag* tag : prompt->tags())
                kept = kept || Text::lowercased(tag->name()).contains(term);
            if (kept || term.isEmpty())
                expected += prompt;
        }
        std::stable_sort(expected.begin(), expected.end(), [](const Prompt* a, const Prompt* b) {
            if (a->isPinned() != b->isPinned())
                return a->isPinned();
            if (a->isPinned())
                return a->pinnedAt().value_or(distantPast) > b->pinnedAt().value_or(distantPast);
            return a->updatedAt() > b->updatedAt();
        });
        ASSERT_EQ(sorted(promptsMatching(library.all(), search)), expected) << "round " << round;
    }
}

} // namespace Quillstacks
