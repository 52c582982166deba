// Saves that fail, and processes that end in the middle of one.
#include "StoreFiles.h"
#include "TestLibrary.h"

#include "library/model/StoreError.h"

#include <QRandomGenerator>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <csignal>
#include <thread>

using namespace Quillstacks;
using namespace std::chrono_literals;

namespace {

/// While one is alive, no file of this process can grow beyond a size.
class FileSizeLimit final {
public:
    explicit FileSizeLimit(qint64 bytes) : handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before);
        const struct rlimit limit { static_cast<rlim_t>(bytes), before.rlim_max };
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    struct rlimit before {};
    sighandler_t handler;
};

struct FailedSave : testing::Test {
    FailedSave() {
        for (const char* name : {"a", "b"})
            library.addTag(QLatin1String(name));
        for (const char* title : {"x", "y", "z"})
            library.addVersion(library.addPrompt(QLatin1String(title), {}, library.context().tags()),
                               QStringLiteral("v"));
        library.context().save();
    }
    /// One change of every kind, and much text.
    void changeEverything() {
        ModelContext& context = library.context();
        context.remove(library.prompt(QStringLiteral("x")));
        context.remove(library.tag(QStringLiteral("a")));
        Prompt* y = library.prompt(QStringLiteral("y"));
        context.remove(y->versions().first());
        library.addVersion(y, QStringLiteral("new version"));
        Tag* tag = library.addTag(QStringLiteral("new tag"));
        y->setTags({tag, library.tag(QStringLiteral("b"))});
        y->setBody(QString(200'000, QLatin1Char('b')));
        library.addPrompt(QStringLiteral("new"), QString(200'000, QLatin1Char('n')), {tag});
    }
    void expectEverything() {
        EXPECT_EQ(titlesOf(library.context().prompts()),
                  (QStringList{QStringLiteral("y"), QStringLiteral("z"), QStringLiteral("new")}));
        EXPECT_EQ(namesOf(library.context().tags()), (QStringList{QStringLiteral("b"), QStringLiteral("new tag")}));
        const Prompt* y = library.prompt(QStringLiteral("y"));
        EXPECT_EQ(titlesOf(y->versions()), QStringList{QStringLiteral("new version")});
        EXPECT_EQ(namesOf(y->tags()), (QStringList{QStringLiteral("new tag"), QStringLiteral("b")}));
        EXPECT_EQ(y->body().size(), 200'000);
        EXPECT_EQ(library.prompt(QStringLiteral("new"))->body().size(), 200'000);
        EXPECT_EQ(titlesOf(library.tag(QStringLiteral("new tag"))->prompts()),
                  (QStringList{QStringLiteral("y"), QStringLiteral("new")}));
        EXPECT_EQ(library.context().versions().size(), 2);
    }
    void expectUntouched() {
        EXPECT_EQ(titlesOf(library.context().prompts()), letters("xyz"));
        EXPECT_EQ(namesOf(library.context().tags()), letters("ab"));
        EXPECT_EQ(library.context().versions().size(), 3);
    }

    TestLibrary library;
};

} // namespace

TEST_F(FailedSave, leavesEverythingToTheNextSave) {
    changeEverything();
    {
        const FileSizeLimit limit(QFileInfo(library.path() + QLatin1String("-wal")).size() + 50'000);
        EXPECT_THROW(library.context().save(), StoreError);
        EXPECT_TRUE(library.context().hasChanges());
        EXPECT_THROW(library.context().save(), StoreError);
    }
    expectEverything();

    library.saveAndReopen();

    expectEverything();
}

TEST_F(FailedSave, writesNothingAtAll) {
    changeEverything();
    {
        const FileSizeLimit limit(QFileInfo(library.path() + QLatin1String("-wal")).size() + 50'000);
        EXPECT_THROW(library.context().save(), StoreError);
    }

    library.reopen();

    expectUntouched();
}

TEST(Saving, aTagOnALongPromptDoesNotWriteTheBodyAgain) {
    TestLibrary library;
    Prompt* prompt = library.addPrompt(QStringLiteral("p"), QString(1'000'000, QLatin1Char('x')));
    Tag* tag = library.addTag(QStringLiteral("t"));
    library.context().save();
    const QString log = library.path() + QLatin1String("-wal");
    const qint64 before = QFileInfo(log).size();

    prompt->setTags({tag});
    library.context().save();

    EXPECT_LT(QFileInfo(log).size() - before, 50'000);
    library.reopen();
    EXPECT_EQ(namesOf(library.prompt(QStringLiteral("p"))->tags()), QStringList{QStringLiteral("t")});
}

TEST(Saving, anEditWritesNoMoreInALargeLibrary) {
    qint64 grown[2] = {};
    for (const int size : {100, 20'000}) {
        TestLibrary library;
        Tag* tag = library.addTag(QStringLiteral("on all"));
        for (int number = 0; number < size; ++number)
            library.addPrompt(QString::number(number), {}, {tag});
        library.saveAndReopen();
        const QString log = library.path() + QLatin1String("-wal");
        const qint64 before = QFileInfo(log).size();
        Prompt* prompt = library.prompt(QStringLiteral("50"));
        prompt->setBody(QStringLiteral("edited"));
        library.addPrompt(QStringLiteral("new"), {}, {library.tag(QStringLiteral("on all"))});
        library.context().save();
        grown[size == 100 ? 0 : 1] = QFileInfo(log).size() - before;
    }
    // Each changed table and index costs a page, a deeper tree at most some more.
    EXPECT_LE(grown[1], grown[0] * 2);
}

TEST_F(FailedSave, namesThePathAndTheReason) {
    library.close();
    ModelContainer container(Schema::current(), {library.path(), false});
    container.mainContext().insert(std::make_unique<Tag>(QStringLiteral("t"), QString()));
    try {
        container.mainContext().save();
        FAIL() << "a store that may not be saved was saved";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.kind(), StoreError::Kind::readOnly);
        EXPECT_TRUE(error.errorDescription().contains(library.path()));
    }
    EXPECT_TRUE(container.mainContext().hasChanges());
}

TEST(FullDisk, failsTheSaveAndKeepsTheChanges) {
    QTemporaryDir folder;
    const QByteArray name = QFile::encodeName(folder.path());
    if (::mount("tmpfs", name.constData(), "tmpfs", 0, "size=400k") != 0)
        GTEST_SKIP() << "this needs the right to mount a tiny disk";
    const QString path = folder.filePath(QStringLiteral("Quillstacks.store"));
    {
        ModelContainer container(Schema::current(), {path});
        ModelContext& context = container.mainContext();
        context.insert(std::make_unique<Prompt>(QStringLiteral("kept"), QString()));
        context.save();
        Prompt* large =
            context.insert(std::make_unique<Prompt>(QStringLiteral("large"), QString(2'000'000, QLatin1Char('x'))));
        try {
            context.save();
            ADD_FAILURE() << "the disk was not full";
        } catch (const StoreError& error) {
            EXPECT_EQ(error.kind(), StoreError::Kind::diskFull) << qPrintable(error.debugDescription());
        }
        EXPECT_TRUE(context.hasChanges());
        large->setBody(QStringLiteral("small"));
        EXPECT_NO_THROW(context.save());
    }
    {
        const ModelContainer container(Schema::current(), {path});
        EXPECT_EQ(titlesOf(container.mainContext().prompts()),
                  (QStringList{QStringLiteral("kept"), QStringLiteral("large")}));
    }
    ::umount(name.constData());
}

namespace {

int lastSaved(const QString& told) {
    const QStringList lines = told.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (auto line = lines.crbegin(); line != lines.crend(); ++line) {
        if (line->startsWith(QLatin1String("saved ")) && told.endsWith(QLatin1Char('\n')))
            return line->mid(6).toInt();
    }
    return 0;
}

/// All that the writer changes in one save must tell of the same save.
void expectWhole(ModelContext& context, int atLeast) {
    const Prompt* counter = context.promptsWithTitle(QStringLiteral("counter")).value(0);
    if (!counter) {
        EXPECT_EQ(atLeast, 0);
        return;
    }
    const int number = static_cast<int>(microsecondsSinceEpoch(counter->updatedAt()));
    EXPECT_GE(number, atLeast);
    EXPECT_EQ(context.prompts().size(), number + 1);
    EXPECT_EQ(context.tags().size(), number);
    if (number == 0)
        return;
    const QString text = QString::number(number);
    EXPECT_EQ(counter->body(), text + QLatin1Char(' ') + QString(number % 7 * 5'000, QLatin1Char('b')));
    EXPECT_EQ(counter->versions().last()->title(), text);
    EXPECT_EQ(counter->versions().size(), std::min(number, 5));
    EXPECT_EQ(namesOf(counter->tags()), QStringList{text});
    EXPECT_EQ(context.promptsWithTitle(text).value(0)->body(), text);
}

void expectIntegrity(const QString& path) {
    SQLite::Database database(QFile::encodeName(path).constData(), SQLite::OPEN_READWRITE);
    EXPECT_STREQ(database.execAndGet("PRAGMA integrity_check").getText(), "ok");
    SQLite::Statement violations(database, "PRAGMA foreign_key_check");
    EXPECT_FALSE(violations.executeStep());
}

} // namespace

TEST(KilledProcess, aHundredKillsWhileSavingLoseNothingThatWasSaved) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Quillstacks.store"));
    QRandomGenerator random(QRandomGenerator::securelySeeded());
    int saved = 0;
    int savesSeen = 0;
    for (int round = 0; round < 100 && !testing::Test::HasFailure(); ++round) {
        {
            StoreProcess writer("write", path);
            if (round % 10 != 0) // now and then it is killed while it opens
                writer.line();
            std::this_thread::sleep_for(std::chrono::microseconds(random.bounded(40'000)));
            writer.kill();
            const int told = lastSaved(writer.rest());
            savesSeen += told > saved ? told - saved : 0;
            saved = std::max(saved, told);
        }
        if (!QFile::exists(path))
            continue;
        if (round % 5 == 0)
            expectIntegrity(path);
        const ModelContainer container(Schema::current(), {path});
        expectWhole(container.mainContext(), saved);
        saved = static_cast<int>(container.mainContext().tags().size());
    }
    expectIntegrity(path);
    EXPECT_GT(savesSeen, 20) << "the kills came before any save";
}
