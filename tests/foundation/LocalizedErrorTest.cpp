#include "foundation/LocalizedError.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Quillstacks {
namespace {

class FolderError final : public LocalizedError {
public:
    explicit FolderError(QString folder) : path(std::move(folder)) {}
    QString errorDescription() const override { return QStringLiteral("Can’t open “%1”.").arg(path); }
    QString debugDescription() const override { return QStringLiteral("FolderError.cannotOpen(%1)").arg(path); }

private:
    QString path;
};

TEST(LocalizedError, whatIsTheSentenceInUtf8) {
    const FolderError error(QStringLiteral("/é"));
    const char* const what = error.what();
    EXPECT_STREQ(what, "Can’t open “/é”.");
    EXPECT_EQ(error.what(), what) << "the pointer lives as long as the error";
}

TEST(LocalizedError, isDescribedForUserAndDeveloper) {
    const FolderError error(QStringLiteral("/a"));
    EXPECT_EQ(localizedDescription(error), QStringLiteral("Can’t open “/a”."));
    EXPECT_EQ(fullDescription(error), QStringLiteral("FolderError.cannotOpen(/a)"));
}

TEST(LocalizedError, survivesBeingCaughtAsAnException) {
    try {
        throw FolderError(QStringLiteral("/b"));
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "Can’t open “/b”.");
        EXPECT_EQ(localizedDescription(error), QStringLiteral("Can’t open “/b”."));
    }
}

TEST(LocalizedError, aForeignExceptionIsDescribedByWhatAndItsType) {
    const std::runtime_error error("disk full: é");
    EXPECT_EQ(localizedDescription(error), QStringLiteral("disk full: é"));
    EXPECT_EQ(fullDescription(error), QStringLiteral("std::runtime_error: disk full: é"));
}

} // namespace
} // namespace Quillstacks
