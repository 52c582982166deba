// The library that is there to be tried out.
#include "backup/format/BackupReader.h"
#include "BackupFixture.h"

#include <QSet>

namespace Quillstacks {
namespace {

class SampleLibrary : public BackupFixture {
protected:
    const QString path = QStringLiteral(SAMPLE_LIBRARY);
};

TEST_F(SampleLibrary, itHasTwentyPromptsAllOfWhichAreImported) {
    const ImportResult result = import(path);
    EXPECT_TRUE(result.success) << result.message().toStdString();
    EXPECT_EQ(result.importedPromptsCount, 20);
    EXPECT_EQ(result.importedTagsCount, library.context().tags().size());
    EXPECT_GT(result.importedVersionsCount, 0);
}

TEST_F(SampleLibrary, itIsWrittenAsThisProgramWrites) {
    const QByteArray text = contents(path);
    EXPECT_EQ(BackupWriter::encoded(BackupReader::decoded(text)) + "\n", text);
}

TEST_F(SampleLibrary, everyPromptHasATagAndMostHaveVariables) {
    const ExportedData data = BackupReader::decoded(contents(path));
    QSet<Uuid> tags;
    for (const ExportedTag& tag : data.tags)
        tags.insert(tag.id);
    QSet<Uuid> ids;
    int withVariables = 0;
    for (const ExportedPrompt& prompt : data.prompts) {
        ids.insert(prompt.id);
        EXPECT_FALSE(prompt.tagIds.isEmpty()) << prompt.title.toStdString();
        for (const Uuid& id : prompt.tagIds)
            EXPECT_TRUE(tags.contains(id)) << prompt.title.toStdString();
        for (const ExportedPromptVersion& version : prompt.versions) {
            EXPECT_EQ(version.promptId, prompt.id);
            EXPECT_LT(version.createdAt, prompt.updatedAt);
        }
        withVariables += prompt.body.contains(QStringLiteral("{{")) ? 1 : 0;
    }
    EXPECT_EQ(ids.size(), 20);
    EXPECT_GE(withVariables, 15);
}

} // namespace
} // namespace Quillstacks
