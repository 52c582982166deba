// A second process for the tests of the store. Tells each step on standard output, and ends when its input does:
//   store_process hold STORE    opens the store as the program does and keeps it
//   store_process read STORE    opens it with SQLite alone, reads a row and keeps the connection
//   store_process write STORE   changes and saves without end; "saved N" follows the save with number N
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"
#include "library/model/StoreError.h"

#include <QCoreApplication>
#include <QFile>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>

#include <cstdio>

using namespace Quillstacks;

namespace {

void tell(const char* what) {
    std::printf("%s\n", what);
    std::fflush(stdout);
}

void waitForTheEnd() {
    while (std::getchar() != EOF) {
    }
}

/// The same number in every text of a save, so that a half-written one would show.
void change(ModelContext& context, Prompt& counter, int number) {
    const QString text = QString::number(number);
    PromptVersion* version = counter.appendVersion(
        std::make_unique<PromptVersion>(counter.id(), text, QString(20'000, QLatin1Char('v')), counter.tags()));
    if (counter.versions().size() > 5)
        context.remove(counter.versions().first());
    counter.setBody(version->title() + QLatin1Char(' ') + QString(number % 7 * 5'000, QLatin1Char('b')));
    Tag* tag = context.insert(std::make_unique<Tag>(text, text));
    context.insert(std::make_unique<Prompt>(text, text, QList<Tag*>{tag}));
    counter.setTags({tag});
    counter.setUpdatedAt(dateFromMicroseconds(number));
}

[[noreturn]] void writeWithoutEnd(ModelContext& context) {
    const QString title = QStringLiteral("counter");
    Prompt* counter = context.promptsWithTitle(title).value(0);
    if (!counter) {
        counter = context.insert(std::make_unique<Prompt>(title, QString()));
        counter->setUpdatedAt(dateFromMicroseconds(0));
        context.save();
    }
    for (int number = static_cast<int>(microsecondsSinceEpoch(counter->updatedAt())) + 1;; ++number) {
        change(context, *counter, number);
        context.save();
        std::printf("saved %d\n", number);
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString mode = arguments.value(1);
    const QString path = arguments.value(2);
    try {
        if (mode == QLatin1String("read")) {
            SQLite::Database database(QFile::encodeName(path).constData(), SQLite::OPEN_READWRITE);
            database.execAndGet("SELECT count(*) FROM prompts");
            tell("held");
            waitForTheEnd();
            return 0;
        }
        const ModelContainer container(Schema::current(), {path});
        tell("held");
        if (mode == QLatin1String("write"))
            writeWithoutEnd(container.mainContext());
        waitForTheEnd();
    } catch (const std::exception& error) {
        tell(error.what());
        return 1;
    }
    return 0;
}
