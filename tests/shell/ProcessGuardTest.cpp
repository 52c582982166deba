#include "shell/ProcessGuard.h"

#include "platform/FakeDesktop.h"
#include "shell/StoreLocation.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

class Guard : public testing::Test {
protected:
    void SetUp() override { desktop.applicationSupportDirectories = QStringList{support.path()}; }
    [[nodiscard]] QString lockFile() const { return StoreLocation::store() + QStringLiteral(".lock"); }
    QTemporaryDir support;
    FakeDesktop& desktop = FakeDesktop::fresh();
};

TEST_F(Guard, aSecondStartHandsOverAndEndsWith0) {
    desktop.isAlreadyRunning = true;
    ProcessGuard guard;
    EXPECT_EQ(guard.enter(), 0);
}

TEST_F(Guard, theFirstStartOnTheSessionBusGoesOnWithoutALock) {
    ProcessGuard guard;
    EXPECT_EQ(guard.enter(), std::nullopt);
    EXPECT_FALSE(QFile::exists(lockFile()));
}

TEST_F(Guard, withoutASessionBusTheFirstStartHoldsTheLockBesideTheStore) {
    desktop.hasSessionBus = false;
    ProcessGuard guard;
    EXPECT_EQ(guard.enter(), std::nullopt);
    EXPECT_TRUE(QFile::exists(lockFile()));
}

TEST_F(Guard, withoutASessionBusTheSecondStartSaysWhoHoldsTheLibraryAndEndsWith1) {
    desktop.hasSessionBus = false;
    ProcessGuard first;
    ASSERT_EQ(first.enter(), std::nullopt);
    ProcessGuard second;
    testing::internal::CaptureStderr();
    EXPECT_EQ(second.enter(), 1);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_NE(said.find("its library is held by process " + std::to_string(QCoreApplication::applicationPid())),
              std::string::npos)
        << said;
}

TEST_F(Guard, theLockGoesWithItsHolder) {
    desktop.hasSessionBus = false;
    { EXPECT_EQ(ProcessGuard().enter(), std::nullopt); }
    ProcessGuard next;
    EXPECT_EQ(next.enter(), std::nullopt);
}

TEST_F(Guard, aFolderThatCannotBeMadeIsLeftToTheStart) {
    desktop.hasSessionBus = false;
    QFile inTheWay(support.filePath(QStringLiteral("app.Quillstacks")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    ProcessGuard guard;
    EXPECT_EQ(guard.enter(), std::nullopt);
}

TEST_F(Guard, withoutAnApplicationSupportDirectoryThereIsNothingToLock) {
    desktop.hasSessionBus = false;
    desktop.applicationSupportDirectories = QStringList{};
    ProcessGuard guard;
    EXPECT_EQ(guard.enter(), std::nullopt);
}

} // namespace
} // namespace Quillstacks
