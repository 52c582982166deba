#include "backup/format/ExportedData.h"

#include "backup/format/BackupReader.h"
#include "backup/format/BackupWriter.h"
#include "foundation/ManualClock.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

class ExportedDataTest : public testing::Test {
protected:
    ManualClock clock;
    QTemporaryDir folder;
    ModelContainer container{Schema::current(), {folder.filePath(QStringLiteral("Quillstacks.store"))}};
    ModelContext& context = container.mainContext();
};

TEST_F(ExportedDataTest, itMirrorsTheRecordsInTheGivenOrder) {
    Tag* writing = context.insert(std::make_unique<Tag>(QStringLiteral("Writing"), QStringLiteral("7C5CFC")));
    Tag* code = context.insert(std::make_unique<Tag>(QStringLiteral("Code"), QStringLiteral("3B82F6")));
    Prompt* first = context.insert(
        std::make_unique<Prompt>(QStringLiteral("First"), QStringLiteral("One"), QList<Tag*>{code, writing}));
    Prompt* second = context.insert(std::make_unique<Prompt>(QStringLiteral("Second"), QStringLiteral("Two")));
    const PromptVersion* version = first->appendVersion(
        std::make_unique<PromptVersion>(first->id(), QStringLiteral("Old"), QStringLiteral("Zero"), first->tags()));
    clock.advance(std::chrono::seconds(5));

    const ExportedData data({writing, code}, {second, first});
    EXPECT_EQ(data.version, QStringLiteral("1.0"));
    EXPECT_EQ(data.exportedAt, writing->createdAt() + std::chrono::seconds(5));
    ASSERT_EQ(data.tags.size(), 2);
    EXPECT_EQ(data.tags[0].id, writing->id());
    EXPECT_EQ(data.tags[1].name, QStringLiteral("Code"));
    EXPECT_EQ(data.tags[1].colorHex, QStringLiteral("3B82F6"));
    ASSERT_EQ(data.prompts.size(), 2);
    EXPECT_EQ(data.prompts[0].title, QStringLiteral("Second"));
    EXPECT_TRUE(data.prompts[0].versions.isEmpty());
    EXPECT_EQ(data.prompts[1].tagIds, (QList<Uuid>{code->id(), writing->id()}));
    ASSERT_EQ(data.prompts[1].versions.size(), 1);
    const ExportedPromptVersion& exported = data.prompts[1].versions[0];
    EXPECT_EQ(exported.id, version->id());
    EXPECT_EQ(exported.promptId, first->id());
    EXPECT_EQ(exported.title, QStringLiteral("Old"));
    EXPECT_EQ(exported.body, QStringLiteral("Zero"));
    EXPECT_EQ(exported.tagNames, (QStringList{QStringLiteral("Code"), QStringLiteral("Writing")}));
    EXPECT_EQ(exported.tagColors, (QStringList{QStringLiteral("3B82F6"), QStringLiteral("7C5CFC")}));
    EXPECT_EQ(exported.createdAt, version->createdAt());
}

TEST_F(ExportedDataTest, aPinIsNotPartOfTheFormat) {
    Prompt* prompt = context.insert(std::make_unique<Prompt>(QStringLiteral("Pinned"), QString()));
    const QByteArray before = BackupWriter::encoded(ExportedData({}, {prompt}));
    prompt->togglePin();
    EXPECT_EQ(BackupWriter::encoded(ExportedData({}, {prompt})), before);
}

TEST_F(ExportedDataTest, anEmptyLibraryGivesADocumentThatReadsWithoutError) {
    const ExportedData data({}, {});
    EXPECT_EQ(BackupReader::decoded(BackupWriter::encoded(data)).prompts.size(), 0);
}

} // namespace
} // namespace Quillstacks
