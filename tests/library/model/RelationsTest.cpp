// Random histories of the relation of prompts and tags, over saves and starts.
#include "TestLibrary.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Quillstacks;

namespace {

struct RelationHistory : testing::TestWithParam<quint32> {
    QList<Tag*> someTags() {
        QList<Tag*> all = library.context().tags();
        std::shuffle(all.begin(), all.end(), random);
        return all.mid(0, random.bounded(static_cast<int>(all.size()) + 1));
    }
    QList<Prompt*> somePrompts() {
        QList<Prompt*> all = library.context().prompts();
        std::shuffle(all.begin(), all.end(), random);
        return all.mid(0, random.bounded(static_cast<int>(all.size()) + 1));
    }
    Prompt* anyPrompt() {
        const QList<Prompt*> all = library.context().prompts();
        return all.isEmpty() ? nullptr : all.at(random.bounded(static_cast<int>(all.size())));
    }
    Tag* anyTag() {
        const QList<Tag*> all = library.context().tags();
        return all.isEmpty() ? nullptr : all.at(random.bounded(static_cast<int>(all.size())));
    }
    void step() {
        switch (random.bounded(12)) {
        case 0:
            library.addPrompt(QString::number(++made), {}, someTags());
            break;
        case 1:
            library.addTag(QString::number(++made));
            break;
        case 2:
            if (random.bounded(3) == 0)
                library.context().remove(anyPrompt());
            break;
        case 3:
            if (random.bounded(3) == 0)
                library.context().remove(anyTag());
            break;
        case 4:
        case 5:
        case 6:
            if (Tag* tag = anyTag())
                tag->setPrompts(somePrompts());
            break;
        case 7:
            library.context().save();
            break;
        default:
            if (Prompt* prompt = anyPrompt())
                prompt->setTags(someTags());
        }
    }
    /// Each side of every link knows the other, once.
    void expectBothSidesAlike() {
        for (Prompt* prompt : library.context().prompts()) {
            for (const Tag* tag : prompt->tags())
                ASSERT_EQ(tag->prompts().count(prompt), 1);
        }
        for (Tag* tag : library.context().tags()) {
            for (const Prompt* prompt : tag->prompts())
                ASSERT_EQ(prompt->tags().count(tag), 1);
        }
    }
    QStringList picture() {
        QStringList lines;
        for (const Prompt* prompt : library.context().prompts())
            lines.append(prompt->title() + QLatin1String(" has ") + namesOf(prompt->tags()).join(QLatin1Char(' ')));
        for (const Tag* tag : library.context().tags())
            lines.append(tag->name() + QLatin1String(" is on ") + titlesOf(tag->prompts()).join(QLatin1Char(' ')));
        return lines;
    }

    TestLibrary library;
    QRandomGenerator random{GetParam()};
    int made = 0;
};

} // namespace

TEST_P(RelationHistory, bothSidesStayAlikeAndComeBackInTheirOrder) {
    for (int round = 0; round < 20; ++round) {
        for (int count = 0; count < 30; ++count)
            step();
        ASSERT_NO_FATAL_FAILURE(expectBothSidesAlike());
        const QStringList before = picture();
        library.saveAndReopen();
        ASSERT_EQ(picture(), before) << "in round " << round;
    }
    EXPECT_GT(library.context().prompts().size(), 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RelationHistory, testing::Range(1U, 11U));
