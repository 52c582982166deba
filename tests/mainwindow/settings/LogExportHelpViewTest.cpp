#include "LogExportHelpView.h"

#include "interface/Drawing.h"
#include "interface/IconButton.h"
#include "interface/ScrollArea.h"
#include "SettingsFixture.h"

#include <QScrollBar>

#include <cmath>

namespace Quillstacks {
namespace {

class LogExportHelp : public SettingsFixture {
protected:
    void openHelp(const QSize& windowSize = {1280, 720}) {
        open(windowSize);
        settings->presentLogExportHelp();
        QCoreApplication::processEvents();
        help = window.findChild<LogExportHelpView*>();
        ASSERT_TRUE(help);
        copyButton = named<IconButton>(QStringLiteral("Copy to clipboard"), help);
        ASSERT_TRUE(copyButton);
    }
    [[nodiscard]] static QString clipboard() { return FakeDesktop::shared().clipboardText; }

    LogExportHelpView* help = nullptr;
    IconButton* copyButton = nullptr;
};

TEST_F(LogExportHelp, tellsWhatToDo) {
    openHelp();
    EXPECT_EQ(texts(*help),
              QStringList({QStringLiteral("Export Debug Logs"), QStringLiteral("How to Export Logs"),
                           QStringLiteral("If you're experiencing issues, you can export debug logs to help diagnose "
                                          "the problem."),
                           QStringLiteral("Terminal"),
                           QStringLiteral("Copy and paste this command in Terminal to export the last hour of logs:"),
                           LogExportHelpView::command(),
                           QStringLiteral("The logs will be saved to your Desktop as Quillstacks_logs.txt")}));
}

TEST_F(LogExportHelp, theTerminalSectionIsTintedGreen) {
    openHelp();
    const auto labels = help->findChildren<Label*>();
    const auto heading =
        std::ranges::find_if(labels, [](const Label* label) { return label->text() == QStringLiteral("Terminal"); });
    ASSERT_NE(heading, labels.end());
    const QWidget* section = (*heading)->parentWidget();
    const Theme& theme = Theme::shared();
    const QColor wanted = mix(theme.color(ColorRole::sheet), theme.color(ColorRole::green), 0.05);
    const auto isTinted = [&] {
        const QColor found = window.grab().toImage().pixelColor(section->mapTo(&window, QPoint(8, 40)));
        return std::abs(found.red() - wanted.red()) <= 1 && std::abs(found.green() - wanted.green()) <= 1 &&
               std::abs(found.blue() - wanted.blue()) <= 1;
    };
    EXPECT_TRUE(QTest::qWaitFor(isTinted)) << "once the sheet has come";
}

TEST_F(LogExportHelp, theCommandIsForTheJournal) {
    EXPECT_EQ(LogExportHelpView::command(),
              QStringLiteral("journalctl SYSLOG_IDENTIFIER=app.Quillstacks --since \"1 hour ago\" -o short-precise > "
                             "\"$(xdg-user-dir DESKTOP)/Quillstacks_logs.txt\""));
}

TEST_F(LogExportHelp, aCopyPutsTheCommandOnAClearedClipboard) {
    openHelp();
    EXPECT_EQ(copyButton->toolTip(), QStringLiteral("Copy to clipboard"));
    FakeDesktop::shared().calls.clear();
    click(copyButton);
    EXPECT_EQ(clipboard(), LogExportHelpView::command());
    EXPECT_EQ(FakeDesktop::shared().callsOf(QStringLiteral("clipboard")).constFirst(),
              QStringLiteral("clipboard clear"));
}

TEST_F(LogExportHelp, theCopiedStateLastsTwoSeconds) {
    openHelp();
    EXPECT_FALSE(help->showCopiedAlert());
    EXPECT_EQ(copyButton->symbol(), QStringLiteral("doc.on.doc"));
    click(copyButton);
    EXPECT_TRUE(help->showCopiedAlert());
    EXPECT_EQ(copyButton->symbol(), QStringLiteral("checkmark"));
    clock.advance(std::chrono::milliseconds(1999));
    EXPECT_TRUE(help->showCopiedAlert());
    clock.advance(std::chrono::milliseconds(1));
    EXPECT_FALSE(help->showCopiedAlert());
    EXPECT_EQ(copyButton->symbol(), QStringLiteral("doc.on.doc"));
}

TEST_F(LogExportHelp, aSecondCopyWithinTwoSecondsSetsTheStateAgainAndTheFirstTimerStillClearsItOnTime) {
    openHelp();
    help->copyCommand();
    clock.advance(std::chrono::milliseconds(1500));
    help->copyCommand();
    EXPECT_TRUE(help->showCopiedAlert());
    clock.advance(std::chrono::milliseconds(500));
    EXPECT_FALSE(help->showCopiedAlert());
    clock.advance(std::chrono::milliseconds(1500));
    EXPECT_FALSE(help->showCopiedAlert());
}

TEST_F(LogExportHelp, aCopyAfterTheFirstOnesEndIsClearedByTheSecondTimer) {
    openHelp();
    help->copyCommand();
    clock.advance(std::chrono::seconds(1));
    help->copyCommand();
    clock.advance(std::chrono::milliseconds(1100));
    help->copyCommand();
    EXPECT_TRUE(help->showCopiedAlert());
    clock.advance(std::chrono::milliseconds(900));
    EXPECT_FALSE(help->showCopiedAlert());
}

TEST_F(LogExportHelp, closedWhileTheStateLastsNothingIsLeftBehind) {
    openHelp();
    help->copyCommand();
    Sheet* own = Sheet::of(help);
    QPointer<LogExportHelpView> gone = help;
    help->dismiss();
    delete own;
    ASSERT_FALSE(gone);
    clock.advance(std::chrono::seconds(3));
    EXPECT_EQ(clipboard(), LogExportHelpView::command());
}

TEST_F(LogExportHelp, tabReachesTheCopyButtonAndSpaceCopies) {
    openHelp();
    for (int i = 0; i < 5 && QApplication::focusWidget() != copyButton; ++i)
        press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), copyButton);
    press(Qt::Key_Space);
    EXPECT_EQ(clipboard(), LogExportHelpView::command());
}

TEST_F(LogExportHelp, isAsHighAsItsTextAndScrollsWhereThereIsLessRoom) {
    openHelp();
    EXPECT_EQ(help->width(), 640);
    const QScrollBar* bar = help->findChild<ScrollArea*>()->verticalScrollBar();
    EXPECT_EQ(bar->maximum(), 0);
    window.resize(500, 220);
    QCoreApplication::processEvents();
    EXPECT_LE(Sheet::of(help)->cardGeometry().height(), 220);
    EXPECT_GT(bar->maximum(), 0);
    EXPECT_TRUE(help->rect().contains(QRect(named(QStringLiteral("Done"), help)->mapTo(help, QPoint(0, 0)),
                                            named(QStringLiteral("Done"), help)->size())));
}

} // namespace
} // namespace Quillstacks
