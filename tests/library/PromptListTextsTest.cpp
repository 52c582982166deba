#include "PromptListFixture.h"

namespace Quillstacks {

// The empty state

TEST_F(PromptList, theEmptyStateStandsInForAnEmptyLibraryAndForASearchWithoutHits) {
    const QString create = QStringLiteral("Create a Prompt");
    EXPECT_TRUE(visibleButton(view(), create));
    addPrompt(QStringLiteral("a"));
    library.context().processPendingChanges();
    EXPECT_FALSE(visibleButton(view(), create));
    view().setSearchText(QStringLiteral("no such text"));
    EXPECT_TRUE(visibleButton(view(), create));
    view().setSearchText(QString());
    EXPECT_FALSE(visibleButton(view(), create));
}

TEST_F(PromptList, itsButtonMakesANewPrompt) {
    shownView();
    visibleButton(view(), QStringLiteral("Create a Prompt"))->click();
    EXPECT_TRUE(view().isPresentingEditor());
}

TEST_F(PromptList, everyControlHasAName) {
    addPrompt(QStringLiteral("a"));
    shownView();
    for (const QAbstractButton* button : view().findChildren<QAbstractButton*>())
        EXPECT_FALSE(button->accessibleName().isEmpty() && button->text().isEmpty());
    EXPECT_EQ(rows().row(0)->accessibleName(), QStringLiteral("a"));
    EXPECT_EQ(rows().accessibleName(), QStringLiteral("Prompts"));
}

// Texts and places

TEST_F(PromptList, theHeaderShowsItsTitleAndTheCount) {
    addPrompt(QStringLiteral("alpha"));
    shownView();
    EXPECT_EQ(texts(view()), QStringList{QStringLiteral("Prompts")});
    view().setSearchText(QStringLiteral("alpha"));
    EXPECT_EQ(texts(view()), (QStringList{QStringLiteral("Prompts"), QStringLiteral("1 prompt")}));
}

TEST_F(PromptList, theEmptyStateSaysWhatToDo) {
    EXPECT_TRUE(texts(view()).contains(QStringLiteral("No prompts yet")));
    EXPECT_TRUE(texts(view()).contains(QStringLiteral(
        "Create your first prompt to start building your library. You can add tags and versions anytime.")));
}

TEST_F(PromptList, inANarrowWindowTheHeadersButtonsGiveWayToItsTitle) {
    view();
    show(view(), QSize(250, 500));
    for (const QLabel* label : view().findChildren<QLabel*>()) {
        if (label->text() == QStringLiteral("Prompts")) {
            EXPECT_GE(label->width(), label->sizeHint().width());
        }
    }
    EXPECT_LE(visibleButton(view(), QStringLiteral("Delete"))->geometry().right(), 250);
}

} // namespace Quillstacks
