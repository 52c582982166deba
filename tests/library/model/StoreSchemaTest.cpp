#include "StoreSchema.h"

#include "StoreFiles.h"
#include "TestLibrary.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <optional>

using namespace Quillstacks;

namespace {

struct SchemaUpgrade : testing::Test {
    SchemaUpgrade() {
        library.addPrompt(QStringLiteral("p"), QStringLiteral("body"));
        library.context().save();
        library.close();
        database.emplace(QFile::encodeName(path).constData(), SQLite::OPEN_READWRITE);
        steps = StoreSchema::steps();
    }
    [[nodiscard]] bool hasColumn(const char* column) {
        SQLite::Statement select(*database, "SELECT 1 FROM pragma_table_info('prompts') WHERE name=?");
        select.bind(1, column);
        return select.executeStep();
    }

    TestLibrary library;
    const QString path = library.path();
    const QString copy = path + QLatin1String(".schema-1");
    std::optional<SQLite::Database> database;
    std::vector<SchemaStep> steps;
    const SchemaStep second{2, [](SQLite::Database& open) { open.exec("ALTER TABLE prompts ADD COLUMN second TEXT"); }};
    const SchemaStep third{3, [](SQLite::Database& open) { open.exec("ALTER TABLE prompts ADD COLUMN third TEXT"); }};
    const SchemaStep failing{3, [](SQLite::Database& open) {
                                 open.exec("DELETE FROM prompts");
                                 open.exec("no statement");
                             }};
};

} // namespace

TEST(StoreSchema, stepsAreNumberedFromOneWithoutAGap) {
    int expected = 0;
    for (const SchemaStep& step : StoreSchema::steps())
        EXPECT_EQ(step.version, ++expected);
    EXPECT_EQ(StoreSchema::currentVersion(), expected);
}

TEST_F(SchemaUpgrade, aCurrentStoreIsLeftAlone) {
    StoreSchema::upgrade(*database, path, steps);

    EXPECT_FALSE(QFile::exists(copy));
    EXPECT_EQ(StoreSchema::version(*database), 1);
}

TEST_F(SchemaUpgrade, theStepsThatAreMissingRunInOrder) {
    steps.push_back(second);
    steps.push_back(third);

    StoreSchema::upgrade(*database, path, steps);

    EXPECT_EQ(StoreSchema::version(*database), 3);
    EXPECT_TRUE(hasColumn("second") && hasColumn("third"));
    EXPECT_EQ(database->execAndGet("SELECT body FROM prompts").getString(), "body");
}

TEST_F(SchemaUpgrade, theStoreIsCopiedBesideItselfBefore) {
    steps.push_back(second);

    StoreSchema::upgrade(*database, path, steps);
    database.reset();

    EXPECT_EQ(modeOf(copy), 0600);
    const ModelContainer old(Schema::current(), {copy});
    ASSERT_EQ(old.mainContext().prompts().size(), 1);
    EXPECT_EQ(old.mainContext().prompts().first()->body(), QStringLiteral("body"));
}

TEST_F(SchemaUpgrade, anEarlierCopyIsNotReplaced) {
    writeFile(copy, "an earlier copy");
    steps.push_back(second);

    StoreSchema::upgrade(*database, path, steps);

    EXPECT_EQ(bytesOf(library.folderPath()).value(QStringLiteral("Quillstacks.store.schema-1")), "an earlier copy");
    EXPECT_TRUE(QFile::exists(copy + QLatin1String(".2")));
}

TEST_F(SchemaUpgrade, aStepThatFailsUndoesAllOfThem) {
    steps.push_back(second);
    steps.push_back(failing);

    EXPECT_THROW(StoreSchema::upgrade(*database, path, steps), SQLite::Exception);

    EXPECT_EQ(StoreSchema::version(*database), 1);
    EXPECT_FALSE(hasColumn("second"));
    EXPECT_EQ(database->execAndGet("SELECT count(*) FROM prompts").getInt(), 1);
    database.reset();
    library.open();
    EXPECT_EQ(library.context().prompts().size(), 1);
}

TEST_F(SchemaUpgrade, withoutACopyNothingIsUpgraded) {
    steps.push_back(second);
    {
        const OrdinaryUser user(library.folderPath());
        setMode(library.folderPath(), 0500);
        EXPECT_ANY_THROW(StoreSchema::upgrade(*database, path, steps));
        setMode(library.folderPath(), 0700);
    }
    EXPECT_EQ(StoreSchema::version(*database), 1);
}
