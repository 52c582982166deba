#include "StoreFiles.h"
#include "TestLibrary.h"

#include <sys/stat.h>

using namespace Quillstacks;

namespace {

struct StoreFiles : testing::Test {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Quillstacks.store"));
    const QStringList names{path, path + QLatin1String("-wal"), path + QLatin1String("-shm")};

    /// Leaves a store with its side files, as a process does that is killed.
    void leaveBehind() {
        StoreProcess writer("write", path);
        ASSERT_EQ(writer.line(), QStringLiteral("held"));
        ASSERT_EQ(writer.line(), QStringLiteral("saved 1"));
        writer.kill();
        for (const QString& name : names)
            ASSERT_TRUE(QFile::exists(name)) << qPrintable(name);
    }
};

} // namespace

TEST_F(StoreFiles, anOpenStoreHasItsTwoSideFilesAndAllArePrivate) {
    const mode_t mask = ::umask(0);
    {
        const ModelContainer container(Schema::current(), {path});
        container.mainContext().insert(std::make_unique<Prompt>(QStringLiteral("p"), QString()));
        container.mainContext().save();
        for (const QString& name : names)
            EXPECT_EQ(modeOf(name), 0600) << qPrintable(name);
    }
    ::umask(mask);
    EXPECT_EQ(bytesOf(folder.path()).keys(), QStringList{QStringLiteral("Quillstacks.store")});
}

TEST_F(StoreFiles, widerModesAreNarrowedAtOpening) {
    leaveBehind();
    for (const QString& name : names)
        setMode(name, 0666);

    const ModelContainer container(Schema::current(), {path});

    for (const QString& name : names)
        EXPECT_EQ(modeOf(name), 0600) << qPrintable(name);
}

TEST_F(StoreFiles, aStoreThatWasCopiedWithoutSideFilesOpens) {
    { const ModelContainer container(Schema::current(), {path}); }
    const QString copy = folder.filePath(QStringLiteral("copy.store"));
    ASSERT_TRUE(QFile::copy(path, copy));

    EXPECT_NO_THROW(ModelContainer(Schema::current(), {copy}));
}

TEST_F(StoreFiles, aStoreThatWasCopiedWithItsLogAloneIsWhole) {
    leaveBehind();
    const QString copy = folder.filePath(QStringLiteral("copy.store"));
    ASSERT_TRUE(QFile::copy(path, copy));
    ASSERT_TRUE(QFile::copy(names[1], copy + QLatin1String("-wal")));

    const ModelContainer container(Schema::current(), {copy});
    EXPECT_EQ(container.mainContext().promptsWithTitle(QStringLiteral("counter")).size(), 1);
}

TEST_F(StoreFiles, theLogOfAStoreThatIsGoneIsSetAside) {
    leaveBehind();
    const QByteArray log = bytesOf(folder.path()).value(QStringLiteral("Quillstacks.store-wal"));
    QFile::remove(path);

    {
        const ModelContainer container(Schema::current(), {path});
        EXPECT_TRUE(container.mainContext().prompts().isEmpty());
    }

    const FolderBytes left = bytesOf(folder.path());
    EXPECT_EQ(left.value(QStringLiteral("Quillstacks.store-wal.orphan-1")), log);
    EXPECT_EQ(left.size(), 2);
}

TEST_F(StoreFiles, theDraftOfAStartThatWasCutShortIsInNobodysWay) {
    writeFile(path + QLatin1String(".new"), "half a store");
    writeFile(path + QLatin1String(".new-journal"), "its journal");

    { const ModelContainer container(Schema::current(), {path}); }

    EXPECT_EQ(bytesOf(folder.path()).keys(), QStringList{QStringLiteral("Quillstacks.store")});
}

TEST_F(StoreFiles, namesOutsideAsciiAndWithSpacesWork) {
    const QString odd = folder.filePath(QStringLiteral("Bücher & 100 % größer?#.store"));
    {
        const ModelContainer container(Schema::current(), {odd});
        container.mainContext().insert(std::make_unique<Tag>(QStringLiteral("t"), QString()));
        container.mainContext().save();
    }
    EXPECT_TRUE(QFile::exists(odd));
    EXPECT_EQ(ModelContainer(Schema::current(), {odd}).mainContext().tags().size(), 1);
}
