// Restoring a version, and closing.
#include "FullDisk.h"
#include "library/versions/VersionPreferences.h"
#include "VersionHistoryFixture.h"

using namespace Quillstacks;
using namespace std::chrono_literals;

TEST_F(VersionHistory, restoreAsksFirst) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);

    visibleButton(*view, QStringLiteral("Restore"))->click();

    EXPECT_TRUE(view->isShowingRestoreAlert());
    ASSERT_NE(topSheet()->content(), view);
    QStringList labels;
    for (const QLabel* label : topSheet()->findChildren<QLabel*>())
        labels += label->text();
    EXPECT_EQ(labels, (QStringList{QStringLiteral("Restore Version?"),
                                   QStringLiteral("This will replace the current version with the selected version. "
                                                  "The current version will be saved in history.")}));
    EXPECT_EQ(visibleButton(*topSheet(), QStringLiteral("Restore"))->kind(), Button::Kind::destructiveFill);
    EXPECT_TRUE(visibleButton(*topSheet(), QStringLiteral("Cancel")));
    EXPECT_EQ(prompt->title(), QStringLiteral("Now"));
}

TEST_F(VersionHistory, cancelRestoresNothing) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);
    view->askToRestore();

    answerAlert(QStringLiteral("Cancel"));

    EXPECT_FALSE(view->isShowingRestoreAlert());
    EXPECT_EQ(topSheet()->content(), view);
    EXPECT_EQ(prompt->title(), QStringLiteral("Now"));
    EXPECT_EQ(prompt->versions().size(), 1);
    EXPECT_EQ(restores, 0);
}

TEST_F(VersionHistory, theCurrentStateCanNotBeRestored) {
    addVersion("first");
    present();

    view->askToRestore();
    EXPECT_FALSE(view->isShowingRestoreAlert());
    view->restoreSelectedVersion();
    EXPECT_EQ(restores, 0);
    EXPECT_EQ(closes, 0);
}

TEST_F(VersionHistory, aRestoreKeepsThePresentTextAndPutsTheVersionInItsPlace) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);
    view->askToRestore();
    clock.advance(1min);

    answerAlert(QStringLiteral("Restore"));

    EXPECT_EQ(prompt->title(), QStringLiteral("first"));
    EXPECT_EQ(prompt->body(), QStringLiteral("text of first"));
    EXPECT_EQ(prompt->updatedAt(), Clock::now());
    ASSERT_EQ(prompt->versions().size(), 2);
    EXPECT_EQ(prompt->versions().first(), version) << "it stays in the list";
    EXPECT_EQ(prompt->versions().last()->title(), QStringLiteral("Now"));
    EXPECT_EQ(prompt->versions().last()->body(), QStringLiteral("one\ntwo"));
    EXPECT_FALSE(library.context().hasChanges()) << "saved";
    EXPECT_EQ(toast(), QStringLiteral("Version restored"));
    EXPECT_TRUE(ToastManager::shared().isShowing());
    EXPECT_EQ(restores, 1);
    EXPECT_EQ(closes, 1);
    EXPECT_EQ(topSheet(), nullptr) << "the sheet is gone";
    clock.advance(1999ms);
    EXPECT_TRUE(ToastManager::shared().isShowing());
    clock.advance(1ms);
    EXPECT_FALSE(ToastManager::shared().isShowing());
}

TEST_F(VersionHistory, openedAgainAfterARestoreItShowsTheReplacedTextAsTheNewestVersion) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);
    view->restoreSelectedVersion();

    present();

    EXPECT_EQ(titlesOf(view->sortedVersions()), (QStringList{QStringLiteral("Now"), QStringLiteral("first")}));
    EXPECT_EQ(view->selectedVersion(), nullptr);
}

TEST_F(VersionHistory, aRestoreMakesNoVersionWhereTheNewestAlreadyHoldsTheText) {
    PromptVersion* older = addVersion("first");
    addVersion(prompt->title(), prompt->body());
    present();
    view->select(older);
    view->restoreSelectedVersion();

    EXPECT_EQ(prompt->title(), QStringLiteral("first"));
    EXPECT_EQ(prompt->versions().size(), 2);
}

TEST_F(VersionHistory, aRestoreOfTheSameTextMovesUpdatedAtAndLeavesTheTagsAlone) {
    Tag* tag = addTag(QStringLiteral("Present"));
    PromptVersion* version = addVersion(prompt->title(), prompt->body(), {addTag(QStringLiteral("Old"))});
    prompt->setTags({tag});
    present();
    view->select(version);
    clock.advance(1min);
    view->restoreSelectedVersion();

    EXPECT_EQ(prompt->updatedAt(), Clock::now());
    EXPECT_EQ(prompt->tags(), QList<Tag*>{tag});
    EXPECT_EQ(prompt->versions().size(), 1);
}

TEST_F(VersionHistory, onRestoreIsCalledAfterTheSaveAndBeforeTheSheetCloses) {
    PromptVersion* version = addVersion("first");
    QStringList order;
    VersionHistoryView other(library.context(), *prompt, [&] {
        order += QStringLiteral("restored");
        EXPECT_FALSE(library.context().hasChanges());
        EXPECT_EQ(toast(), QStringLiteral("Version restored"));
        EXPECT_EQ(prompt->title(), QStringLiteral("first"));
    });
    QObject::connect(&other, &VersionHistoryView::closed, &other, [&order] { order += QStringLiteral("closed"); });
    other.select(version);
    other.restoreSelectedVersion();

    EXPECT_EQ(order, (QStringList{QStringLiteral("restored"), QStringLiteral("closed")}));
}

TEST_F(VersionHistory, aRestoreWithoutAnActionClosesAllTheSame) {
    PromptVersion* version = addVersion("first");
    VersionHistoryView other(library.context(), *prompt);
    int closings = 0;
    QObject::connect(&other, &VersionHistoryView::closed, &other, [&closings] { ++closings; });
    other.select(version);
    other.restoreSelectedVersion();

    EXPECT_EQ(closings, 1);
}

TEST_F(VersionHistory, restoringTheOldestVersionOfAFullHistoryBringsItsTextThoughItIsPruned) {
    versionHistoryLimitPreference().set(2);
    PromptVersion* oldest = addVersion("oldest");
    addVersion("newer");
    present();
    view->select(oldest);
    view->restoreSelectedVersion();

    EXPECT_EQ(prompt->title(), QStringLiteral("oldest"));
    EXPECT_EQ(prompt->body(), QStringLiteral("text of oldest"));
    EXPECT_EQ(titlesOf(prompt->versions()), (QStringList{QStringLiteral("newer"), QStringLiteral("Now")}));
}

TEST_F(VersionHistory, aFailedSaveIsDroppedInSilenceAndTheToastIsShownAllTheSame) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);
    const LogCapture log;
    {
        const FullDisk full;
        view->restoreSelectedVersion();
    }
    EXPECT_TRUE(log.lines().isEmpty());
    EXPECT_EQ(prompt->title(), QStringLiteral("first"));
    EXPECT_TRUE(library.context().hasChanges()) << "kept for the next save";
    EXPECT_EQ(toast(), QStringLiteral("Version restored"));
    EXPECT_EQ(restores, 1);
    EXPECT_EQ(closes, 1);
}

TEST_F(VersionHistory, aVersionThatGoesWhileTheAlertIsUpRestoresNothing) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);
    view->askToRestore();
    library.context().remove(version);

    answerAlert(QStringLiteral("Restore"));

    EXPECT_EQ(prompt->title(), QStringLiteral("Now"));
    EXPECT_EQ(restores, 0);
    EXPECT_EQ(closes, 0);
}

TEST_F(VersionHistory, escapeClosesTheAlertFirstAndThenTheSheet) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);
    view->askToRestore();

    press(Qt::Key_Escape);
    EXPECT_FALSE(view->isShowingRestoreAlert());
    EXPECT_EQ(topSheet()->content(), view);
    press(Qt::Key_Escape);
    EXPECT_EQ(topSheet(), nullptr);
    EXPECT_EQ(prompt->title(), QStringLiteral("Now"));
}

TEST_F(VersionHistory, escapeClosesTheSheetFromItsTextsToo) {
    present();
    named<QWidget>(*view, QStringLiteral("Body"))->setFocus();
    press(Qt::Key_Escape);
    EXPECT_EQ(topSheet(), nullptr);
}

TEST_F(VersionHistory, closeClosesTheSheet) {
    present();
    visibleButton(*view, QStringLiteral("Close"))->click();
    EXPECT_EQ(closes, 1);
    EXPECT_EQ(topSheet(), nullptr);
}

TEST_F(VersionHistory, theSheetIsOfItsSizeAndTakesWhatThereIsOnASmallWindow) {
    present();
    EXPECT_EQ(topSheet()->cardGeometry().size(), QSize(920, 600));
    EXPECT_EQ(topSheet()->accessibleName(), QStringLiteral("Version History"));

    host.resize(700, 400);
    QCoreApplication::processEvents();
    EXPECT_LE(topSheet()->cardGeometry().width(), 700);
    EXPECT_LE(topSheet()->cardGeometry().height(), 400);
}
