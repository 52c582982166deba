// What is saved comes back, text by text and record by record.
#include "TestLibrary.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Quillstacks;

namespace {

QString everyUnit() {
    QString text;
    for (int unit = 0; unit <= 0xFFFF; ++unit)
        text.append(QChar(unit));
    return text;
}

QString text(std::initializer_list<int> units) {
    QString result;
    for (const int unit : units)
        result.append(QChar(unit));
    return result;
}

struct Case {
    const char* name;
    QString text;
};
void PrintTo(const Case& value, std::ostream* out) {
    *out << value.name;
}

struct Persistence : testing::TestWithParam<Case> {
    TestLibrary library;
};

} // namespace

TEST_P(Persistence, everyTextFieldComesBackUnitByUnit) {
    const QString value = GetParam().text;
    Tag* tag = library.addTag(value, value);
    Prompt* prompt = library.addPrompt(value, value, {tag});
    auto version = std::make_unique<PromptVersion>(prompt->id(), value, value, QList<Tag*>());
    version->restoreIdentity(randomUuid(), {value, QString(), value}, {value}, {});
    prompt->appendVersion(std::move(version));

    library.saveAndReopen();

    tag = library.context().tags().first();
    EXPECT_EQ(tag->name(), value);
    EXPECT_EQ(tag->colorHex(), value);
    prompt = library.context().prompts().first();
    EXPECT_EQ(prompt->title(), value);
    EXPECT_EQ(prompt->body(), value);
    const PromptVersion* read = prompt->versions().first();
    EXPECT_EQ(read->title(), value);
    EXPECT_EQ(read->body(), value);
    EXPECT_EQ(read->tagNames(), (QStringList{value, QString(), value}));
    EXPECT_EQ(read->tagColors(), QStringList{value});
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Persistence,
    testing::Values(Case{"null", {}}, Case{"empty", QStringLiteral("")}, Case{"plain", QStringLiteral("plain")},
                    Case{"beyondTheFirstPlane", QStringLiteral("Grüße 😀")},
                    Case{"lineEnds", QStringLiteral("a\r\nb\rc\n")}, Case{"zeroInside", text({'a', 0, 'b'})},
                    Case{"zeroAlone", text({0})}, Case{"highSurrogate", text({0xD800})},
                    Case{"surrogatesSwapped", text({0xDC00, 0xD800})},
                    Case{"surrogateInside", text({'x', 0xDBFF, 'y'})}, Case{"byteOrderMarkFirst", text({0xFEFF, 'a'})},
                    Case{"byteOrderMarkLast", text({'a', 0xFEFF})}, Case{"swappedByteOrderMark", text({0xFFFE})},
                    Case{"nonCharactersAndSeparators", text({0xFDD0, 0xFDD1, 0x2028, 0x2029, 0x85, 0xA0})},
                    Case{"everyUnit", everyUnit()}, Case{"long", QString(300'000, QLatin1Char('x'))},
                    Case{"statement", QStringLiteral("'; DROP TABLE prompts; --")}),
    [](const auto& named) { return named.param.name; });

TEST(Store, aPromptWithNoTagsAndEmptyTitleAndBodyCanBeStored) {
    TestLibrary library;
    library.addPrompt({}, {});

    library.saveAndReopen();

    ASSERT_EQ(library.context().prompts().size(), 1);
    const Prompt* prompt = library.context().prompts().first();
    EXPECT_TRUE(prompt->title().isEmpty());
    EXPECT_TRUE(prompt->body().isEmpty());
    EXPECT_TRUE(prompt->tags().isEmpty());
}

TEST(Store, aVersionWithNoTagsAndOneWithAnEmptyTagNameAreToldApart) {
    TestLibrary library;
    Tag* nameless = library.addTag({}, {});
    Prompt* prompt = library.addPrompt(QStringLiteral("p"));
    library.addVersion(prompt, QStringLiteral("none"));
    library.addVersion(prompt, QStringLiteral("one"), {nameless});

    library.saveAndReopen();

    const auto versions = library.context().prompts().first()->versions();
    EXPECT_EQ(versions.at(0)->tagNames().size(), 0);
    EXPECT_EQ(versions.at(1)->tagNames(), QStringList{QString()});
    EXPECT_EQ(versions.at(1)->tagColors(), QStringList{QString()});
}

TEST(Store, identitiesDatesAndOrdersComeBack) {
    TestLibrary library;
    QList<Uuid> ids;
    QList<Date> dates;
    for (const char* title : {"c", "a", "b"}) {
        const Prompt* prompt = library.addPrompt(QLatin1String(title));
        ids.append(prompt->id());
        dates.append(prompt->createdAt());
    }
    library.context().prompts().first()->setUpdatedAt(Date::max());

    library.saveAndReopen();

    const QList<Prompt*> prompts = library.context().prompts();
    EXPECT_EQ(titlesOf(prompts), letters("cab"));
    for (int at = 0; at < 3; ++at) {
        EXPECT_EQ(prompts.at(at)->id(), ids.at(at));
        EXPECT_EQ(prompts.at(at)->createdAt(), dates.at(at));
    }
    EXPECT_EQ(prompts.first()->updatedAt(), Date::max());
}

TEST(Store, theOrderOfInsertionHoldsOverDeletionsAndStarts) {
    TestLibrary library;
    for (const char* title : {"a", "b", "c"})
        library.addPrompt(QLatin1String(title));
    library.saveAndReopen();
    library.context().remove(library.prompt(QStringLiteral("c")));
    library.addPrompt(QStringLiteral("d"));
    library.saveAndReopen();
    library.addPrompt(QStringLiteral("e"));

    EXPECT_EQ(titlesOf(library.context().prompts()), letters("abde"));
    library.saveAndReopen();
    EXPECT_EQ(titlesOf(library.context().prompts()), letters("abde"));
}

TEST(Store, editsOfAllFieldsAreWritten) {
    TestLibrary library;
    library.addPrompt(QStringLiteral("p"), QStringLiteral("old"));
    library.addTag(QStringLiteral("t"));
    library.saveAndReopen();

    Prompt* prompt = library.prompt(QStringLiteral("p"));
    prompt->setTitle(QStringLiteral("q"));
    prompt->setBody(QStringLiteral("new"));
    prompt->setUpdatedAt(dateFromMicroseconds(1));
    prompt->togglePin();
    const auto pinned = prompt->pinnedAt();
    Tag* tag = library.tag(QStringLiteral("t"));
    tag->setName(QStringLiteral("u"));
    tag->setColorHex(QStringLiteral("C"));
    tag->setUpdatedAt(dateFromMicroseconds(2));
    prompt->setTags({tag});
    library.saveAndReopen();

    prompt = library.prompt(QStringLiteral("q"));
    ASSERT_NE(prompt, nullptr);
    EXPECT_EQ(prompt->body(), QStringLiteral("new"));
    EXPECT_EQ(prompt->updatedAt(), dateFromMicroseconds(1));
    EXPECT_EQ(prompt->pinnedAt(), pinned);
    EXPECT_TRUE(prompt->isPinned());
    tag = library.tag(QStringLiteral("u"));
    ASSERT_NE(tag, nullptr);
    EXPECT_EQ(tag->colorHex(), QStringLiteral("C"));
    EXPECT_EQ(tag->updatedAt(), dateFromMicroseconds(2));
    EXPECT_EQ(prompt->tags(), QList<Tag*>{tag});
}

TEST(Store, whatIsNotSavedIsGoneAfterTheNextStart) {
    TestLibrary library;
    library.addPrompt(QStringLiteral("kept"));
    library.context().save();
    library.addPrompt(QStringLiteral("lost"));
    library.context().remove(library.prompt(QStringLiteral("kept")));

    library.reopen();

    EXPECT_EQ(titlesOf(library.context().prompts()), QStringList{QStringLiteral("kept")});
}

TEST(Store, aRecordThatWasDeletedBeforeItsFirstSaveLeavesNoTrace) {
    TestLibrary library;
    Tag* tag = library.addTag(QStringLiteral("t"));
    Prompt* prompt = library.addPrompt(QStringLiteral("p"), {}, {tag});
    library.addVersion(prompt, QStringLiteral("v"));
    library.context().remove(prompt);
    library.context().remove(tag);

    EXPECT_FALSE(library.context().hasChanges());
    library.saveAndReopen();
    EXPECT_TRUE(library.context().prompts().isEmpty());
    EXPECT_TRUE(library.context().tags().isEmpty());
    EXPECT_TRUE(library.context().versions().isEmpty());
}
