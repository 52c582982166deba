#include "PromptEditorFixture.h"

namespace Quillstacks {

TEST_F(PromptEditor, changingOnlyTheTagsAndSavingWritesTheTagsAndMakesNoVersion) {
    Tag* tag = addTag(QStringLiteral("Work"));
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    open(prompt).setSelectedTags({tag});
    editor->savePrompt();
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("Work"));
    EXPECT_FALSE(prompt->hasVersions());
}

TEST_F(PromptEditor, aTagDeletedElsewhereBeforeTheSaveIsLeftOut) {
    Tag* kept = addTag(QStringLiteral("kept"));
    Tag* gone = addTag(QStringLiteral("gone"));
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    open(prompt).setSelectedTags({kept, gone});
    library.context().remove(gone);
    editor->savePrompt();
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("kept"));
}

TEST_F(PromptEditor, tagsAreWrittenInTheOrderOfAllTags) {
    Tag* b = addTag(QStringLiteral("b"));
    Tag* c = addTag(QStringLiteral("c"));
    Tag* a = addTag(QStringLiteral("a"));
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("x"), {c, b, a});
    open(prompt).savePrompt();
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("a b c"));
}

} // namespace Quillstacks
