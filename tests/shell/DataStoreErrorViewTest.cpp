#include "shell/DataStoreErrorView.h"

#include "EventLoop.h"
#include "interface/Button.h"
#include "interface/Label.h"
#include "library/model/StoreError.h"
#include "platform/FakeDesktop.h"
#include "shell/DataStoreError.h"

#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

class DataStoreErrorScreen : public testing::Test {
protected:
    void SetUp() override {
        view.resize(1280, 720);
        view.show();
    }
    [[nodiscard]] static Label* label(const QWidget& within, const QString& text) {
        const auto all = within.findChildren<Label*>();
        const auto found = std::ranges::find_if(all, [&](const Label* each) { return each->text() == text; });
        return found == all.end() ? nullptr : *found;
    }
    [[nodiscard]] bool shows(const char* text) const {
        const Label* found = label(view, QString::fromLatin1(text));
        return found && found->isVisible();
    }
    [[nodiscard]] Button* button(const char* text) const {
        const auto all = view.findChildren<Button*>();
        const auto found =
            std::ranges::find_if(all, [&](const Button* each) { return each->text() == QLatin1String(text); });
        return found == all.end() ? nullptr : *found;
    }
    FakeDesktop& desktop = FakeDesktop::fresh();
    DataStoreErrorView view{
        std::make_exception_ptr(DataStoreError(DataStoreError::Case::cannotAccessApplicationSupport))};
};

TEST_F(DataStoreErrorScreen, itNamesTheFailureAndFourSolutionsInOrder) {
    EXPECT_TRUE(shows("Failed to Initialize Data Store"));
    EXPECT_TRUE(shows("Cannot access Application Support directory"));
    int last = 0;
    for (const char* text : {"Possible Solutions:", "Check disk permissions for Application Support folder",
                             "Ensure sufficient disk space is available", "Try restarting the application",
                             "Contact support if the issue persists"}) {
        const Label* line = label(view, QString::fromLatin1(text));
        ASSERT_TRUE(line && line->isVisible()) << text;
        const int y = line->mapTo(&view, QPoint()).y();
        EXPECT_GT(y, last) << text;
        last = y;
    }
}

TEST_F(DataStoreErrorScreen, theSymbolsOfTheLines) {
    for (const char* symbol :
         {"exclamationmark.triangle.fill", "lock.shield", "server.rack", "arrow.clockwise", "questionmark.circle"})
        EXPECT_TRUE(view.findChild<QWidget*>(QString::fromLatin1(symbol))) << symbol;
    EXPECT_EQ(view.findChild<QWidget*>(QStringLiteral("exclamationmark.triangle.fill"))->size(), QSize(64, 64));
}

TEST_F(DataStoreErrorScreen, theDetailsAreHiddenUntilTheyAreAskedFor) {
    EXPECT_FALSE(view.showingFileLocation());
    EXPECT_FALSE(shows("Error Details:"));
    QTest::mouseClick(button("Show Technical Details"), Qt::LeftButton);
    EXPECT_TRUE(view.showingFileLocation());
    EXPECT_TRUE(shows("Error Details:"));
    EXPECT_TRUE(shows("DataStoreError.cannotAccessApplicationSupport"));
}

TEST_F(DataStoreErrorScreen, oddity_theLabelOfTheDetailsButtonNeverChanges) {
    Button* details = button("Show Technical Details");
    details->click();
    EXPECT_EQ(details->text(), QStringLiteral("Show Technical Details"));
    details->click();
    EXPECT_EQ(details->text(), QStringLiteral("Show Technical Details"));
    EXPECT_FALSE(shows("Error Details:"));
}

TEST_F(DataStoreErrorScreen, theDetailsAreTheFullDescriptionNotTheLocalizedOne) {
    const StoreError error(StoreError::Kind::notADatabase, QStringLiteral("/a/path"), QStringLiteral("words"));
    DataStoreErrorView other(std::make_exception_ptr(error));
    other.toggleFileLocation();
    ASSERT_NE(error.errorDescription(), error.debugDescription());
    EXPECT_TRUE(label(other, error.errorDescription()));
    const Label* full = label(other, error.debugDescription());
    ASSERT_TRUE(full);
    EXPECT_TRUE(full->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
}

TEST_F(DataStoreErrorScreen, quitAnswersTheCancelKey) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    EXPECT_EQ(runUntilExit([this] { QTest::keyClick(&view, Qt::Key_Escape); }), 0);
}

TEST_F(DataStoreErrorScreen, quitEndsTheProgram) {
    EXPECT_EQ(runUntilExit([this] { QTest::mouseClick(button("Quit"), Qt::LeftButton); }), 0);
}

TEST_F(DataStoreErrorScreen, theFolderOfTheStoreIsShownInTheFileManager) {
    desktop.applicationSupportDirectories = QStringList{QStringLiteral("/first"), QStringLiteral("/second")};
    Button* open = button("Open Application Support Folder");
    EXPECT_EQ(open->kind(), Button::Kind::prominent);
    QTest::mouseClick(open, Qt::LeftButton);
    EXPECT_EQ(desktop.openedFolders, QStringList{QStringLiteral("/first/app.Quillstacks")});
}

TEST_F(DataStoreErrorScreen, withoutAnApplicationSupportDirectoryTheFolderButtonDoesNothing) {
    desktop.applicationSupportDirectories = QStringList{};
    QTest::mouseClick(button("Open Application Support Folder"), Qt::LeftButton);
    EXPECT_TRUE(desktop.openedFolders.isEmpty());
}

TEST_F(DataStoreErrorScreen, returnPressesTheProminentButton) {
    desktop.applicationSupportDirectories = QStringList{QStringLiteral("/first")};
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(desktop.openedFolders.size(), 1);
}

TEST_F(DataStoreErrorScreen, aLongErrorIsReadableInFull) {
    const StoreError error(StoreError::Kind::cannotOpen, QString(400, QLatin1Char('x')) + QStringLiteral("/store"),
                           QStringLiteral("words"));
    DataStoreErrorView other(std::make_exception_ptr(error));
    other.toggleFileLocation();
    other.resize(1280, 720);
    other.show();
    for (const Label* each : other.findChildren<Label*>())
        EXPECT_FALSE(each->isTruncated()) << qPrintable(each->text());
}

} // namespace
} // namespace Quillstacks
