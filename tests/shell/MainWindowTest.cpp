#include "shell/MainWindow.h"

#include "EventLoop.h"
#include "interface/Label.h"
#include "interface/Sheet.h"
#include "library/PromptEditorView.h"
#include "library/tags/TagEditorView.h"
#include "mainwindow/ContentView.h"
#include "interface/BusyIndicator.h"
#include "shell/DataStoreError.h"
#include "shell/DataStoreErrorView.h"
#include "shell/Termination.h"
#include "ShellFixture.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <utility>

namespace Quillstacks {
namespace {

class MainScene : public ShellFixture {
protected:
    static Sheet* presentSheet(MainWindow& window) {
        Sheet::Options options;
        options.accessibleName = QStringLiteral("Writing");
        return Sheet::present(window.contentView(), std::make_unique<QWidget>(), options);
    }
    const std::unique_ptr<ModelContainer> container = makeContainer();
    const std::exception_ptr error =
        std::make_exception_ptr(DataStoreError(DataStoreError::Case::cannotAccessApplicationSupport));
};

TEST_F(MainScene, itIsTheWindowMainTitledQuillstacks) {
    MainWindow window({container.get(), {}});
    EXPECT_EQ(MainWindow::find(), &window);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Quillstacks"));
}

TEST_F(MainScene, withAStoreItShowsTheLibrary) {
    MainWindow window({container.get(), {}});
    window.open();
    EXPECT_TRUE(window.contentView());
    EXPECT_TRUE(window.contentView()->isVisible());
    EXPECT_FALSE(window.findChild<DataStoreErrorView*>());
}

TEST_F(MainScene, withAnErrorItShowsTheFailureScreenAtTheFullMinimumSize) {
    MainWindow window({nullptr, error});
    window.open();
    auto* screen = window.findChild<DataStoreErrorView*>();
    ASSERT_TRUE(screen && screen->isVisible());
    EXPECT_FALSE(window.contentView());
    EXPECT_EQ(screen->size(), window.size());
    EXPECT_EQ(MainWindow::smallestSize, QSize(1280, 720));
}

TEST_F(MainScene, withNeitherItSaysThatItIsInitializing) {
    MainWindow window({});
    window.open();
    const auto labels = window.findChildren<Label*>();
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.first()->text(), QStringLiteral("Initializing..."));
    EXPECT_TRUE(labels.first()->isVisible());
    const auto indicators = window.findChildren<BusyIndicator*>();
    ASSERT_EQ(indicators.size(), 1);
    EXPECT_TRUE(indicators.first()->isTurning());
    EXPECT_EQ(indicators.first()->accessibleName(), QStringLiteral("Initializing..."));
    EXPECT_LT(indicators.first()->geometry().bottom(), labels.first()->geometry().top()) << "above its label";
    EXPECT_NEAR(indicators.first()->geometry().center().x(), window.rect().center().x(), 1);
}

TEST_F(MainScene, onASmallerScreenTheWindowTakesWhatThereIs) {
    MainWindow window({container.get(), {}});
    window.open();
    const QSize available = window.screen()->availableSize();
    EXPECT_LE(window.frameGeometry().width(), available.width());
    EXPECT_LE(window.frameGeometry().height(), available.height());
    const QSize frame = window.frameGeometry().size() - window.size();
    EXPECT_EQ(window.minimumSize(), QSize(1280, 720).boundedTo(available - frame));
    EXPECT_EQ(window.contentView()->size(), window.size());
}

TEST_F(MainScene, contentThatNeedsMoreThanTheWindowHasScrolls) {
    MainWindow window({nullptr, error});
    window.open();
    window.setMinimumSize(200, 150);
    window.resize(300, 200);
    QCoreApplication::processEvents();
    const auto* area = window.findChild<QScrollArea*>();
    const auto* screen = window.findChild<DataStoreErrorView*>();
    EXPECT_GE(screen->width(), 600);
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), screen->width() - window.width());
    EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
}

TEST_F(MainScene, appearingTurnsThePolicyToRegularAndAsksForTheFocus) {
    DockVisibilityController::shared().setPolicy(ActivationPolicy::accessory);
    MainWindow window({container.get(), {}});
    desktop.calls.clear();
    window.show();
    EXPECT_EQ(desktop.calls, QStringList{QStringLiteral("setActivationPolicy regular")});
    EXPECT_TRUE(MainWindowFocusManager::shared().pendingFocus);
    EXPECT_EQ(MainWindowFocusManager::shared().window, &window);
    turn();
    EXPECT_EQ(desktop.callsOf(QStringLiteral("showAndActivate main")).size(), 1);
}

/// Asks for the focus anew in the middle of the first attempt, so that a second attempt has something to do.
class AsksAgain final : public QObject {
public:
    bool eventFilter(QObject* /*window*/, QEvent* event) override {
        if (event->type() == QEvent::ZOrderChange && !std::exchange(hasAsked, true))
            MainWindowFocusManager::shared().pendingFocus = true;
        return false;
    }
    bool hasAsked = false;
};

TEST_F(MainScene, oddity_appearingAsksForTheFocusTwice) {
    MainWindow window({container.get(), {}});
    AsksAgain asksAgain;
    window.show();
    window.installEventFilter(&asksAgain);
    desktop.calls.clear();
    turn();
    EXPECT_TRUE(asksAgain.hasAsked);
    EXPECT_EQ(desktop.callsOf(QStringLiteral("showAndActivate main")).size(), 2);
}

TEST_F(MainScene, closingTurnsThePolicyToAccessoryAndForgetsTheWindow) {
    MainWindow window({container.get(), {}});
    window.show();
    desktop.calls.clear();
    window.close();
    EXPECT_EQ(desktop.calls, QStringList{QStringLiteral("setActivationPolicy accessory")});
    EXPECT_TRUE(MainWindowFocusManager::shared().window.isNull());
    EXPECT_FALSE(MainWindowFocusManager::shared().pendingFocus);
}

TEST_F(MainScene, closingEndsTheContentViewAndReopeningMakesANewOne) {
    MainWindow window({container.get(), {}});
    window.open();
    const QPointer<ContentView> first = window.contentView();
    window.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());
    EXPECT_FALSE(window.contentView());
    window.open();
    EXPECT_TRUE(window.contentView());
    EXPECT_TRUE(window.contentView()->isVisible());
}

TEST_F(MainScene, whoeverShowsTheClosedWindowGetsItWithItsContent) {
    MainWindow window({container.get(), {}});
    window.open();
    window.close();
    window.setVisible(true);
    EXPECT_TRUE(window.contentView());
}

TEST_F(MainScene, aSheetThatIsOpenWhenTheWindowClosesIsThereWhenItOpensAgain) {
    MainWindow window({container.get(), {}});
    window.open();
    const QPointer<ContentView> content = window.contentView();
    const QPointer<Sheet> sheet = presentSheet(window);
    window.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    window.open();
    ASSERT_TRUE(sheet);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(window.contentView(), content);
}

TEST_F(MainScene, openingTheOpenWindowBringsItToTheFront) {
    MainWindow window({container.get(), {}});
    window.open();
    desktop.calls.clear();
    window.open();
    EXPECT_EQ(desktop.calls, QStringList{QStringLiteral("showAndActivate main 0")});
}

TEST_F(MainScene, openingAMinimizedWindowBringsItBack) {
    MainWindow window({container.get(), {}});
    window.open();
    window.showMinimized();
    window.open();
    EXPECT_FALSE(window.isMinimized());
}

TEST_F(MainScene, aNewPromptOpensTheWindowAndAnEditorInIt) {
    MainWindow window({container.get(), {}});
    window.openNewPrompt();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(Sheet::top(&window));
}

TEST_F(MainScene, quittingWithTypingInAnEditorBringsItForwardInsteadOfLosingIt) {
    MainWindow window({container.get(), {}});
    window.openNewPrompt();
    window.findChild<PromptEditorView*>()->setEditorBody(QStringLiteral("words of mine"));
    window.close();
    const int status = runUntilExit([] {
        quit();
        MainQueue::async(nullptr, [] { QCoreApplication::exit(7); });
    });
    EXPECT_EQ(status, 7) << "the program went on";
    EXPECT_TRUE(window.isVisible());
    ASSERT_TRUE(window.findChild<PromptEditorView*>());
    EXPECT_EQ(window.findChild<PromptEditorView*>()->editorBody(), QStringLiteral("words of mine"));
}

TEST_F(MainScene, quittingWithAnEditorThatHoldsNothingNewEndsTheProgram) {
    MainWindow window({container.get(), {}});
    window.openNewPrompt();
    EXPECT_EQ(runUntilExit([] { quit(); }), 0);
    window.findChild<PromptEditorView*>()->setTitle(QStringLiteral("T"));
    window.findChild<PromptEditorView*>()->setTitle(QString());
    EXPECT_EQ(runUntilExit([] { quit(); }), 0);
}

TEST_F(MainScene, quittingWithTypingInTheTagEditorBringsItForwardInsteadOfLosingIt) {
    MainWindow window({container.get(), {}});
    window.open();
    window.contentView()->onCreateTag();
    EXPECT_EQ(runUntilExit([] { quit(); }), 0) << "nothing is typed yet";
    window.findChild<TagEditorView*>()->setName(QStringLiteral("Onboarding"));
    window.close();
    const int status = runUntilExit([] {
        quit();
        MainQueue::async(nullptr, [] { QCoreApplication::exit(7); });
    });
    EXPECT_EQ(status, 7) << "the program went on";
    EXPECT_TRUE(window.isVisible());
    ASSERT_TRUE(window.findChild<TagEditorView*>());
    EXPECT_EQ(window.findChild<TagEditorView*>()->name(), QStringLiteral("Onboarding"));
}

TEST_F(MainScene, quittingWhileAnEditorIsOnItsWayOutEndsTheProgram) {
    MainWindow window({container.get(), {}});
    window.openNewPrompt();
    auto* editor = window.findChild<PromptEditorView*>();
    editor->setEditorBody(QStringLiteral("given up"));
    editor->cancel();
    ASSERT_TRUE(window.findChild<PromptEditorView*>()) << "its sheet still fades";
    EXPECT_EQ(runUntilExit([] { quit(); }), 0);
}

TEST_F(MainScene, aRequestToEndFromOutsideEndsTheProgramWhateverIsTyped) {
    MainWindow window({container.get(), {}});
    window.openNewPrompt();
    window.findChild<PromptEditorView*>()->setTitle(QStringLiteral("T"));
    EXPECT_EQ(runUntilExit([] { terminate(); }), 0);
}

TEST_F(MainScene, aNewPromptUnderASheetLeavesThatSheetOnTop) {
    MainWindow window({container.get(), {}});
    window.open();
    const Sheet* sheet = presentSheet(window);
    window.openNewPrompt();
    EXPECT_EQ(Sheet::top(&window), sheet);
}

TEST_F(MainScene, aNewPromptWithoutAStoreShowsTheFailure) {
    MainWindow window({nullptr, error});
    window.openNewPrompt();
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(Sheet::top(&window));
}

} // namespace
} // namespace Quillstacks
