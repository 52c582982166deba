#include "library/restore/RestoreQuillstacksView.h"

#include "foundation/MainQueue.h"
#include "hotkey/HotkeyManager.h"
#include "hotkey/HotkeyPreferences.h"
#include "interface/AppearanceMode.h"
#include "interface/Label.h"
#include "interface/Sheet.h"
#include "interface/StatusLine.h"
#include "library/FullDisk.h"
#include "library/LibraryFixture.h"
#include "library/versions/VersionPreferences.h"
#include "upkeep/DataMigrationManager.h"
#include "upkeep/PreferencesMigrationManager.h"

#include <QPointer>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

const QString success = QStringLiteral("Quillstacks has been restored to factory defaults.");
const QString preferencesMarker = QStringLiteral("PreferencesMigrationCompleted_v3");
const QString storeMarker = QStringLiteral("DataStoreMigrationCompleted_v3");

class FactoryRestoring : public LibraryFixture {
protected:
    ~FactoryRestoring() override { HotkeyManager::shared().unregister(); }

    void open() {
        view = new RestoreQuillstacksView(library.context());
        auto* column = new QVBoxLayout(&window);
        column->addWidget(view);
        column->addStretch();
        show(window, QSize(900, 700));
    }
    /// A prompt with a tag and a version, and a version that stands in no prompt's list.
    void fill() {
        Prompt* prompt = addPrompt(QStringLiteral("a"), QStringLiteral("b"), {addTag(QStringLiteral("t"))});
        library.addVersion(prompt, QStringLiteral("old"));
        library.context().insert(
            std::make_unique<PromptVersion>(Uuid(), QStringLiteral("lost"), QString(), QList<Tag*>()));
        library.context().save();
    }
    void storeSettings() {
        appearanceModePreference().set(AppearanceMode::light);
        versionHistoryLimitPreference().set(120);
        globalHotkeyModifiersPreference().set(0x100000);
        globalHotkeyKeyCodePreference().set(40);
        preferences->set(preferencesMarker, true);
        preferences->set(storeMarker, true);
        preferences->set(QStringLiteral("var_topic"), QStringLiteral("rain"));
        HotkeyManager::shared().registerHotkey();
    }
    void restoreToTheEnd() {
        view->restore();
        for (int turn = 0; view->isRestoring() && turn < 20; ++turn)
            clock.advance(std::chrono::nanoseconds(0));
        ASSERT_FALSE(view->isRestoring());
    }
    void press(Qt::Key key) { QTest::keyClick(window.windowHandle(), key); }
    void click(const QWidget* widget) {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, widget->mapTo(&window, widget->rect().center()));
    }
    [[nodiscard]] Button* button(const char* title) const { return visibleButton(window, QString::fromLatin1(title)); }
    [[nodiscard]] StatusLine* line() const { return view->findChild<StatusLine*>(); }
    [[nodiscard]] bool isLibraryEmpty() {
        ModelContext& context = library.context();
        return context.prompts().isEmpty() && context.tags().isEmpty() && context.versions().isEmpty();
    }
    static std::vector<std::pair<quint32, quint32>> registered() {
        std::vector<std::pair<quint32, quint32>> result;
        for (const auto& [ref, key] : FakeDesktop::shared().hotKeys)
            result.emplace_back(key.keyCode, key.modifiers);
        return result;
    }

    LogCapture log;
    QWidget window;
    RestoreQuillstacksView* view = nullptr;
};

using Keys = std::vector<std::pair<quint32, quint32>>;

TEST_F(FactoryRestoring, saysWhatItDoes) {
    open();
    QStringList texts;
    for (const Label* label : view->findChildren<Label*>(QString(), Qt::FindDirectChildrenOnly))
        texts += label->text();
    EXPECT_EQ(texts, QStringList({QStringLiteral("Restore Quillstacks"),
                                  QStringLiteral("Delete every prompt, tag, version, and reset all settings back to "
                                                 "the fresh install defaults. This action cannot be undone.")}));
    EXPECT_TRUE(button("Restore Quillstacks"));
    EXPECT_FALSE(view->statusMessage());
    EXPECT_FALSE(line()->isVisible());
}

TEST_F(FactoryRestoring, anEmptyLibraryIsRestoredAndTheSuccessLineShows) {
    open();
    restoreToTheEnd();
    EXPECT_EQ(view->statusMessage(), (StatusMessage{success, false}));
    EXPECT_TRUE(line()->isVisible());
    EXPECT_EQ(line()->text(), success);
    EXPECT_EQ(line()->symbol(), QStringLiteral("checkmark.circle.fill"));
}

TEST_F(FactoryRestoring, promptsTagsAndVersionsGoAlsoThoseInNoPromptsList) {
    fill();
    ASSERT_EQ(library.context().versions().size(), 2);
    open();
    restoreToTheEnd();
    EXPECT_TRUE(isLibraryEmpty());
    EXPECT_FALSE(library.context().hasChanges());
    delete view;
    library.reopen();
    EXPECT_TRUE(isLibraryEmpty());
}

TEST_F(FactoryRestoring, afterwardsTheAppearanceIsDarkTheVersionLimit50AndTheHotkeyShiftCommandAndSpace) {
    storeSettings();
    Theme::shared().refresh();
    ASSERT_EQ(Theme::shared().scheme(), ColorScheme::light);
    open();
    restoreToTheEnd();
    EXPECT_EQ(appearanceModePreference().value(), AppearanceMode::dark);
    EXPECT_EQ(Theme::shared().scheme(), ColorScheme::dark);
    EXPECT_EQ(versionHistoryLimitPreference().value(), 50);
    EXPECT_EQ(globalHotkeyModifiersPreference().value(), 0x120000);
    EXPECT_EQ(globalHotkeyKeyCodePreference().value(), 49);
    EXPECT_EQ(registered(), (Keys{{49, 0x300}}));
    EXPECT_FALSE(preferences->contains(QStringLiteral("var_topic")));
}

TEST_F(FactoryRestoring, afterwardsTheMarkersAreUnsetAndTheNextStartChecksAgainAndFindsTheStoreInPlace) {
    fill();
    storeSettings();
    open();
    restoreToTheEnd();
    EXPECT_FALSE(preferences->contains(preferencesMarker));
    EXPECT_FALSE(preferences->contains(storeMarker));
    FakeDesktop::shared().applicationSupportDirectories = QStringList{library.folderPath()};
    log.clear();
    PreferencesMigrationManager::shared().migrateIfNeeded();
    EXPECT_TRUE(log.contains(QStringLiteral("Preferences check completed")));
    DataMigrationManager::shared().migrateIfNeeded(library.path());
    EXPECT_TRUE(log.contains(QStringLiteral("Data store already exists at explicit location")))
        << qPrintable(log.lines().join(QLatin1Char('\n')));
}

TEST_F(FactoryRestoring, theLibraryIsSavedBeforeThePreferencesGoAndTheHotkeyComesLast) {
    fill();
    storeSettings();
    open();
    FakeDesktop::shared().calls.clear();
    QStringList order;
    QObject::connect(&*preferences, &Preferences::changed, view, [&](const QString& key) {
        if (key != preferencesMarker)
            return;
        order += library.context().hasChanges() ? QStringLiteral("not saved") : QStringLiteral("saved");
        order += FakeDesktop::shared().callsOf(QStringLiteral("unregisterEventHotKey"));
    });
    restoreToTheEnd();
    EXPECT_EQ(order, QStringList{QStringLiteral("saved")});
    const QStringList calls = FakeDesktop::shared().calls;
    const auto first = [&calls](const char* beginning) {
        for (qsizetype i = 0; i < calls.size(); ++i)
            if (calls[i].startsWith(QString::fromLatin1(beginning)))
                return i;
        return qsizetype(-1);
    };
    EXPECT_GE(first("unregisterEventHotKey"), 0);
    EXPECT_GT(first("registerEventHotKey 49 0x300"), first("unregisterEventHotKey"));
}

TEST_F(FactoryRestoring, withoutThePermissionTheOldHotkeyGoesAndNoneComes) {
    storeSettings();
    FakeDesktop::shared().trusted = false;
    open();
    restoreToTheEnd();
    EXPECT_EQ(registered(), Keys{});
    EXPECT_EQ(view->statusMessage(), (StatusMessage{success, false}));
}

TEST_F(FactoryRestoring, aSaveThatFailsLeavesPreferencesAndHotkeyAndSaysWhy) {
    fill();
    storeSettings();
    open();
    {
        const FullDisk full;
        restoreToTheEnd();
    }
    ASSERT_TRUE(view->statusMessage());
    EXPECT_TRUE(view->statusMessage()->isError);
    EXPECT_TRUE(view->statusMessage()->text.startsWith(QStringLiteral("Could not complete restore: ")));
    EXPECT_GT(view->statusMessage()->text.size(), QStringLiteral("Could not complete restore: ").size());
    EXPECT_EQ(line()->symbol(), QStringLiteral("exclamationmark.triangle.fill"));
    EXPECT_EQ(versionHistoryLimitPreference().value(), 120);
    EXPECT_TRUE(preferences->contains(preferencesMarker));
    EXPECT_EQ(registered(), (Keys{{40, 0x100}}));
    EXPECT_FALSE(view->isRestoring());
    EXPECT_TRUE(button("Restore Quillstacks"));
}

TEST_F(FactoryRestoring, recordsDeletedBeforeAFailureAreNotBroughtBackAndGoWithTheNextSave) {
    fill();
    open();
    {
        const FullDisk full;
        restoreToTheEnd();
    }
    EXPECT_TRUE(isLibraryEmpty());
    EXPECT_TRUE(library.context().hasChanges());
    restoreToTheEnd();
    EXPECT_EQ(view->statusMessage(), (StatusMessage{success, false}));
    EXPECT_FALSE(library.context().hasChanges());
}

TEST_F(FactoryRestoring, whileItRunsTheButtonSaysSoStaysEnabledAndASecondRunIsRefused) {
    fill();
    open();
    view->restore();
    EXPECT_TRUE(view->isRestoring());
    ASSERT_TRUE(button("Restoring..."));
    EXPECT_TRUE(button("Restoring...")->isEnabled());
    FakeDesktop::shared().calls.clear();
    view->restore();
    restoreToTheEnd();
    EXPECT_TRUE(button("Restore Quillstacks"));
    EXPECT_EQ(FakeDesktop::shared().callsOf(QStringLiteral("registerEventHotKey")).size(), 1);
}

TEST_F(FactoryRestoring, betweenItsStepsTheProgramGoesOn) {
    fill();
    open();
    int turns = 0;
    std::function<void()> count = [&] {
        ++turns;
        if (view->isRestoring())
            MainQueue::async(view, count);
    };
    view->restore();
    count();
    for (int turn = 0; view->isRestoring() && turn < 20; ++turn)
        clock.advance(std::chrono::nanoseconds(0));
    EXPECT_GE(turns, 6);
}

TEST_F(FactoryRestoring, anOlderMessageStaysUntilTheEnd) {
    open();
    {
        fill();
        const FullDisk full;
        restoreToTheEnd();
    }
    const auto failure = view->statusMessage();
    view->restore();
    EXPECT_EQ(view->statusMessage(), failure);
    EXPECT_EQ(line()->text(), failure->text);
    restoreToTheEnd();
    while (view->isRestoring())
        clock.advance(std::chrono::nanoseconds(0));
    EXPECT_EQ(line()->text(), success);
}

TEST_F(FactoryRestoring, aViewThatGoesMeanwhileDoesNotStopIt) {
    fill();
    storeSettings();
    open();
    view->restore();
    clock.advance(std::chrono::nanoseconds(0));
    delete view;
    for (int turn = 0; turn < 20; ++turn)
        clock.advance(std::chrono::nanoseconds(0));
    EXPECT_TRUE(isLibraryEmpty());
    EXPECT_FALSE(preferences->contains(preferencesMarker));
    EXPECT_EQ(registered(), (Keys{{49, 0x300}}));
}

TEST_F(FactoryRestoring, theButtonAsksFirst) {
    fill();
    open();
    click(button("Restore Quillstacks"));
    EXPECT_TRUE(view->isConfirmingRestore());
    ASSERT_TRUE(Sheet::top(&window));
    QStringList texts;
    for (const Label* label : Sheet::top(&window)->findChildren<Label*>())
        texts += label->text();
    EXPECT_EQ(texts, QStringList({QStringLiteral("Restore Quillstacks?"),
                                  QStringLiteral("All prompts, tags, versions, and settings will be permanently "
                                                 "removed.")}));
    EXPECT_EQ(button("Restore")->kind(), Button::Kind::destructiveFill);
    EXPECT_FALSE(view->isRestoring());
    QCoreApplication::processEvents();
    click(button("Restore"));
    EXPECT_FALSE(view->isConfirmingRestore());
    EXPECT_TRUE(view->isRestoring());
    for (int turn = 0; view->isRestoring() && turn < 20; ++turn)
        clock.advance(std::chrono::nanoseconds(0));
    EXPECT_TRUE(isLibraryEmpty());
}

TEST_F(FactoryRestoring, cancelEscapeAndReturnChangeNothing) {
    fill();
    storeSettings();
    open();
    const auto expectNothing = [this] {
        EXPECT_FALSE(view->isConfirmingRestore());
        EXPECT_FALSE(Sheet::top(&window));
        for (int turn = 0; turn < 20; ++turn)
            clock.advance(std::chrono::nanoseconds(0));
        EXPECT_EQ(library.context().prompts().size(), 1);
        EXPECT_EQ(library.context().versions().size(), 2);
        EXPECT_EQ(versionHistoryLimitPreference().value(), 120);
        EXPECT_EQ(registered(), (Keys{{40, 0x100}}));
        EXPECT_FALSE(view->statusMessage());
    };
    view->confirmRestore();
    QCoreApplication::processEvents();
    click(button("Cancel"));
    expectNothing();
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        view->confirmRestore();
        press(key);
        expectNothing();
    }
}

TEST_F(FactoryRestoring, tabReachesTheButtonAndSpaceAsks) {
    open();
    for (int i = 0; i < 3 && QApplication::focusWidget() != button("Restore Quillstacks"); ++i)
        press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_TRUE(view->isConfirmingRestore());
}

} // namespace
} // namespace Quillstacks
