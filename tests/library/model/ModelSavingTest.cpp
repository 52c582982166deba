// A save in steps, and what the live queries hear of changes that take many turns.
#include "TestLibrary.h"

#include "library/model/LiveQuery.h"
#include "library/model/ModelSaving.h"
#include "library/model/StoreError.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

class ModelSavingTest : public testing::Test {
protected:
    void addMany() {
        Tag* tag = library.addTag(QStringLiteral("Tag"));
        for (int number = 0; number < count; ++number) {
            Prompt* prompt = library.addPrompt(QStringLiteral("Prompt %1").arg(number), QStringLiteral("Body"), {tag});
            library.addVersion(prompt, QStringLiteral("Version"));
        }
    }
    static int finish(ModelSaving& saving) {
        int steps = 1;
        while (saving.step())
            ++steps;
        return steps;
    }

    static constexpr int count = 500;
    TestLibrary library;
};

TEST_F(ModelSavingTest, itWritesInManyStepsWhatOneSaveWrites) {
    addMany();
    {
        ModelSaving saving(library.context());
        EXPECT_EQ(saving.fraction(), 0);
        EXPECT_GT(finish(saving), 10);
        EXPECT_EQ(saving.fraction(), 1);
    }
    EXPECT_FALSE(library.context().hasChanges());
    library.reopen();
    EXPECT_EQ(library.context().prompts().size(), count);
    const Prompt* last = library.prompt(QStringLiteral("Prompt 499"));
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(last->tags().size(), 1);
    EXPECT_EQ(titlesOf(last->versions()), QStringList{QStringLiteral("Version")});
}

TEST_F(ModelSavingTest, oneThatEndsEarlyHasWrittenNothingAndTheChangesStay) {
    addMany();
    {
        ModelSaving saving(library.context());
        ASSERT_TRUE(saving.step());
        ASSERT_TRUE(saving.step());
        EXPECT_GT(saving.fraction(), 0);
    }
    EXPECT_TRUE(library.context().hasChanges());
    library.reopen();
    EXPECT_TRUE(library.context().prompts().isEmpty());
    EXPECT_TRUE(library.context().tags().isEmpty());
}

TEST_F(ModelSavingTest, theNextSaveWritesWhatAnEndedOneLeft) {
    addMany();
    {
        ModelSaving saving(library.context());
        ASSERT_TRUE(saving.step());
    }
    library.saveAndReopen();
    EXPECT_EQ(library.context().prompts().size(), count);
}

TEST_F(ModelSavingTest, aChangeBetweenTwoStepsIsWrittenAsWell) {
    addMany();
    {
        ModelSaving saving(library.context());
        for (int step = 0; step < 8; ++step)
            ASSERT_TRUE(saving.step());
        library.prompt(QStringLiteral("Prompt 0"))->setBody(QStringLiteral("Changed"));
        library.context().remove(library.prompt(QStringLiteral("Prompt 1")));
        finish(saving);
    }
    EXPECT_FALSE(library.context().hasChanges());
    library.reopen();
    EXPECT_EQ(library.prompt(QStringLiteral("Prompt 0"))->body(), QStringLiteral("Changed"));
    EXPECT_EQ(library.prompt(QStringLiteral("Prompt 1")), nullptr);
    EXPECT_EQ(library.context().prompts().size(), count - 1);
}

TEST_F(ModelSavingTest, aWholeSaveBetweenTwoStepsTakesItsPlace) {
    addMany();
    ModelSaving saving(library.context());
    ASSERT_TRUE(saving.step());
    library.context().save();
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_FALSE(saving.step());
    EXPECT_FALSE(saving.step());
}

TEST_F(ModelSavingTest, withoutChangesTheFirstStepIsTheLast) {
    ModelSaving saving(library.context());
    EXPECT_FALSE(saving.step());
}

TEST_F(ModelSavingTest, withoutLeaveToSaveItThrowsAndTheChangesStay) {
    library.close();
    ModelContainer container(Schema::current(), {library.path(), false});
    container.mainContext().insert(std::make_unique<Tag>(QStringLiteral("Tag"), QString()));
    ModelSaving saving(container.mainContext());
    EXPECT_THROW(std::ignore = saving.step(), StoreError);
    EXPECT_TRUE(container.mainContext().hasChanges());
}

TEST_F(ModelSavingTest, duringABatchTheQueriesAreToldNothingAndAfterItOnce) {
    const PromptQuery query(library.context());
    QSignalSpy told(&query, &LiveQueryBase::changed);
    {
        const ModelContext::Batch batch(library.context());
        library.addPrompt(QStringLiteral("One"));
        QCoreApplication::processEvents();
        library.addPrompt(QStringLiteral("Two"));
        QCoreApplication::processEvents();
        library.context().processPendingChanges();
        EXPECT_EQ(told.count(), 0);
        EXPECT_EQ(query.records().size(), 2) << "reads are current all the same";
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(told.count(), 1);
}

TEST_F(ModelSavingTest, aBatchMayOutliveItsContext) {
    const ModelContext::Batch batch(library.context());
    library.close();
}

} // namespace
} // namespace Quillstacks
