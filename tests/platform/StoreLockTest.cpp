#include "platform/StoreLock.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

class StoreLockTest : public testing::Test {
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("Quillstacks.store.lock"));
};

TEST_F(StoreLockTest, theFirstHoldsIt) {
    StoreLock first(path);
    EXPECT_TRUE(first.tryLock());
    StoreLock second(path);
    EXPECT_FALSE(second.tryLock());
}

TEST_F(StoreLockTest, theSecondCanSayWhoHoldsIt) {
    StoreLock first(path);
    ASSERT_TRUE(first.tryLock());
    StoreLock second(path);
    ASSERT_FALSE(second.tryLock());
    EXPECT_TRUE(second.holder().contains(QString::number(QCoreApplication::applicationPid())))
        << qPrintable(second.holder());
}

TEST_F(StoreLockTest, isFreeAgainAfterItsHolder) {
    {
        StoreLock first(path);
        ASSERT_TRUE(first.tryLock());
    }
    StoreLock second(path);
    EXPECT_TRUE(second.tryLock());
}

TEST_F(StoreLockTest, aDeadHoldersLockIsTaken) {
    // The number of a process that cannot be: beyond the kernel's greatest.
    QFile left(path);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.write("4194999\nquillstacks\n" + QSysInfo::machineHostName().toLocal8Bit() + "\n");
    left.close();
    StoreLock lock(path);
    EXPECT_TRUE(lock.tryLock());
}

TEST_F(StoreLockTest, itsFileIsForTheUserAlone) {
    StoreLock lock(path);
    ASSERT_TRUE(lock.tryLock());
    EXPECT_EQ(QFileInfo(path).permissions() & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
}

TEST_F(StoreLockTest, whereNoLockCanBeMadeNobodyHoldsOne) {
    StoreLock lock(folder.filePath(QStringLiteral("missing/lock")));
    EXPECT_TRUE(lock.tryLock());
}

TEST_F(StoreLockTest, withoutAHolderTheMessageStillReads) {
    EXPECT_EQ(StoreLock(path).holder(), QStringLiteral("another process"));
}

} // namespace
} // namespace Quillstacks
