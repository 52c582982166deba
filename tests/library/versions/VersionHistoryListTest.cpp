// The list at the left: rows, numbers, selection, keys.
#include "EmptyHistoryView.h"
#include "interface/Divider.h"
#include "PreviewContent.h"
#include "support/ShownSymbol.h"
#include "VersionHistoryFixture.h"

#include <QAccessible>
#include <QFile>

using namespace Quillstacks;
using namespace std::chrono_literals;

TEST_F(VersionHistory, aHistoryOfOneHasTheCurrentRowAndARowNumberedOne) {
    addVersion("first");
    present();

    EXPECT_EQ(rowTitles(), (QStringList{QStringLiteral("Current Version"), QStringLiteral("Version 1")}));
    EXPECT_TRUE(row(0).fields().isCurrent);
    EXPECT_TRUE(row(0).fields().isSelected);
    EXPECT_FALSE(row(1).fields().isCurrent);
    EXPECT_FALSE(row(1).fields().isSelected);
}

TEST_F(VersionHistory, theNewestHasTheHighestNumberAndStandsFirst) {
    for (const char* title : {"first", "second", "third"})
        addVersion(title);
    present();

    EXPECT_EQ(rowTitles(), (QStringList{QStringLiteral("Current Version"), QStringLiteral("Version 3"),
                                        QStringLiteral("Version 2"), QStringLiteral("Version 1")}));
    EXPECT_EQ(titlesOf(view->sortedVersions()),
              (QStringList{QStringLiteral("third"), QStringLiteral("second"), QStringLiteral("first")}));
}

TEST_F(VersionHistory, versionsOfOneDateStayInTheOrderOfThePrompt) {
    const Date same = Clock::now();
    for (const char* title : {"a", "b", "c"})
        addVersionOf(QLatin1String(title), same);
    addVersionOf(QStringLiteral("newer"), same + 1s);
    present();

    EXPECT_EQ(titlesOf(view->sortedVersions()),
              (QStringList{QStringLiteral("newer"), QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
}

TEST_F(VersionHistory, theHeaderShowsTheNumberOfVersionsAlone) {
    for (const char* title : {"first", "second"})
        addVersion(title);
    present();

    EXPECT_TRUE(shows("Version History"));
    EXPECT_TRUE(shows("2"));
}

TEST_F(VersionHistory, theListTakes280OfTheSheetsWidthWithItsDivider) {
    addVersion("first");
    present();

    QList<QRect> columns;
    for (const Divider* divider : view->findChildren<Divider*>())
        if (divider->width() < divider->height())
            columns += divider->geometry();
    ASSERT_EQ(columns.size(), 1);
    EXPECT_EQ(columns.first().right() + 1, 280);
    EXPECT_EQ(columns.first().height(), 600);
}

TEST_F(VersionHistory, rowsTellTheirDatesInAbbreviatedUnitsAndSpeakThemInFull) {
    addVersion("first");
    prompt->setUpdatedAt(Clock::now());
    clock.advance(2h);
    present();

    EXPECT_EQ(row(0).dateText(), QStringLiteral("2 hr. ago"));
    EXPECT_EQ(row(1).dateText(), QStringLiteral("2 hr. ago"));
    EXPECT_EQ(row(1).accessibleName(), QStringLiteral("Version 1, 2 hours ago"));
}

TEST_F(VersionHistory, withoutVersionsAnEmptyStateStandsInPlaceOfTheRows) {
    present();

    EXPECT_FALSE(rows().isVisible());
    EXPECT_TRUE(part<EmptyHistoryView>()->isVisible());
    EXPECT_TRUE(shows("0"));
    EXPECT_TRUE(shows("No version history yet"));
    EXPECT_TRUE(shows("Versions are saved automatically when you edit this prompt"));
    EXPECT_TRUE(showsSymbol(*part<EmptyHistoryView>(), QStringLiteral("clock.arrow.circlepath"), 32,
                            Theme::shared().color(ColorRole::text3)));
}

TEST_F(VersionHistory, theSelectedRowHasACheckmarkAndTheCurrentOneADot) {
    addVersion("first");
    present();
    const Theme& theme = Theme::shared();
    const auto ground = [this](int index) { return row(index).grab().toImage().pixelColor(row(index).width() / 2, 4); };
    const auto checkmark = [this](int index) { // within the disc, left of the hook
        return row(index).grab().toImage().pixelColor(row(index).width() - 8 - 16, row(index).height() / 2);
    };
    const QColor selected = ground(0);
    const QColor other = ground(1);
    EXPECT_NE(selected, other);
    EXPECT_EQ(checkmark(0), theme.color(ColorRole::blue));
    EXPECT_EQ(checkmark(1), other);

    view->select(view->sortedVersions().first());

    EXPECT_EQ(ground(1), selected);
    EXPECT_EQ(ground(0), other);
    EXPECT_EQ(checkmark(1), theme.color(ColorRole::blue));
    EXPECT_EQ(checkmark(0), other);
    EXPECT_TRUE(showsSymbol(row(0), QStringLiteral("circle.fill"), 9, theme.color(ColorRole::green)));
    EXPECT_NE(row(1).grab().toImage().pixelColor(12, row(1).height() / 2), theme.color(ColorRole::green));
}

TEST_F(VersionHistory, aClickSelectsAVersionAndAnotherTheCurrentState) {
    PromptVersion* first = addVersion("first");
    PromptVersion* second = addVersion("second");
    present();

    clickRow(2);
    EXPECT_EQ(view->selectedVersion(), first);
    EXPECT_TRUE(row(2).fields().isSelected);
    clickRow(1);
    EXPECT_EQ(view->selectedVersion(), second);
    EXPECT_FALSE(row(2).fields().isSelected);
    clickRow(0);
    EXPECT_EQ(view->selectedVersion(), nullptr);
    EXPECT_TRUE(row(0).fields().isSelected);
}

TEST_F(VersionHistory, arrowsMoveTheSelectionFromTheStart) {
    PromptVersion* first = addVersion("first");
    PromptVersion* second = addVersion("second");
    present();

    press(Qt::Key_Down);
    EXPECT_EQ(view->selectedVersion(), second);
    press(Qt::Key_Down);
    EXPECT_EQ(view->selectedVersion(), first);
    press(Qt::Key_Down);
    EXPECT_EQ(view->selectedVersion(), first) << "the last row";
    press(Qt::Key_Up);
    EXPECT_EQ(view->selectedVersion(), second);
    press(Qt::Key_Home);
    EXPECT_EQ(view->selectedVersion(), nullptr);
    press(Qt::Key_End);
    EXPECT_EQ(view->selectedVersion(), first);
}

TEST_F(VersionHistory, returnOnARowAsksToRestoreIt) {
    addVersion("first");
    present();

    press(Qt::Key_Return);
    EXPECT_FALSE(view->isShowingRestoreAlert()) << "the current state can't be restored";
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(view->isShowingRestoreAlert());
}

TEST_F(VersionHistory, twoHundredVersionsScrollWithAHandfulOfRows) {
    for (int i = 0; i < 200; ++i)
        addVersionOf(QString::number(i), Clock::now() + std::chrono::seconds(i));
    present();

    for (int i = 0; i < 200; ++i)
        press(Qt::Key_Down);

    EXPECT_EQ(view->selectedVersion()->title(), QStringLiteral("0"));
    EXPECT_EQ(row(200).fields().title, QStringLiteral("Version 1"));
    EXPECT_LT(view->findChildren<VersionRow*>().size(), 30);
}

TEST_F(VersionHistory, aVersionMadeMeanwhileAppearsAndNumbersMove) {
    PromptVersion* first = addVersion("first");
    present();
    view->select(first);

    addVersion("second");
    library.context().processPendingChanges();

    EXPECT_TRUE(shows("2"));
    EXPECT_EQ(view->selectedVersion(), first);
    EXPECT_TRUE(row(2).fields().isSelected);
    EXPECT_EQ(row(2).fields().title, QStringLiteral("Version 1"));
}

TEST_F(VersionHistory, aSelectedVersionThatIsDeletedLeavesTheCurrentStateSelected) {
    PromptVersion* first = addVersion("first");
    addVersion("second");
    present();
    view->select(first);

    library.context().remove(first);
    EXPECT_EQ(view->selectedVersion(), nullptr);
    library.context().processPendingChanges();

    EXPECT_EQ(rowTitles(), (QStringList{QStringLiteral("Current Version"), QStringLiteral("Version 1")}));
    EXPECT_TRUE(row(0).fields().isSelected);
    EXPECT_TRUE(part<PreviewContent>()->fields().isCurrentVersion);
}

TEST_F(VersionHistory, aPromptThatIsDeletedTakesTheSheetAlong) {
    addVersion("first");
    present();

    library.context().remove(prompt);
    library.context().processPendingChanges();

    EXPECT_EQ(closes, 1);
    EXPECT_EQ(topSheet(), nullptr);
}

TEST_F(VersionHistory, datesAreToldAnewWhenTheSelectionChanges) {
    PromptVersion* first = addVersion("first");
    present();
    EXPECT_EQ(row(1).dateText(), QStringLiteral("1 sec. ago"));

    clock.advance(5min);
    view->select(first);

    EXPECT_EQ(row(0).dateText(), QStringLiteral("5 min. ago"));
    EXPECT_EQ(row(1).dateText(), QStringLiteral("5 min. ago"));
    EXPECT_TRUE(shows("5 minutes ago"));
}

TEST_F(VersionHistory, theListIsNamedAndTellsWhichRowIsSelected) {
    addVersion("first");
    present();
    EXPECT_EQ(rows().accessibleName(), QStringLiteral("Versions"));
    QAccessibleInterface* current = QAccessible::queryAccessibleInterface(&row(0));
    QAccessibleInterface* version = QAccessible::queryAccessibleInterface(&row(1));
    ASSERT_TRUE(current && version);
    EXPECT_TRUE(current->state().selected);

    version->actionInterface()->doAction(QAccessibleActionInterface::pressAction());

    EXPECT_FALSE(current->state().selected);
    EXPECT_TRUE(version->state().selected);
}

TEST_F(VersionHistory, whereTheHistoryCanNotBeReadTheSheetOpensEmptyAndLogsIt) {
    addVersion("first");
    library.saveAndReopen();
    prompt = library.prompt(QStringLiteral("Now"));
    QFile file(library.path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    constexpr qint64 firstPage = 4096; // holds the schema, and is in memory
    ASSERT_TRUE(file.seek(firstPage));
    file.write(QByteArray(file.size() - firstPage, '\xFF'));
    file.close();
    const LogCapture log;
    present();

    EXPECT_TRUE(view->sortedVersions().isEmpty());
    EXPECT_TRUE(part<EmptyHistoryView>()->isVisible());
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().first().startsWith(QStringLiteral("data error: Data error in reading versions: ")));
}
