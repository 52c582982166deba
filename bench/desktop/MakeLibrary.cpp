// bench_make_library COUNT STORE LINES: a library of prompts of 1 KB each, and the same texts as lines, for a peer that
// takes a list of lines.
#include "foundation/Date.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"
#include "library/model/Prompt.h"
#include "library/model/Tag.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <random>
#include <stdexcept>

namespace Quillstacks::Bench {
namespace {

constexpr int bodySize = 1024;

QString word(std::mt19937& random) {
    static const QStringList words =
        QStringLiteral(
            "review this change as a careful colleague would and name what is wrong then missing translate into "
            "French keep tone write test for each edge case of function below explain why it fails summarise "
            "report three sentences without adjectives list open questions with their owners draft an answer "
            "customer who waits since Monday be kind short honest compare both plans cost risk time suggest "
            "better names these variables find duplicate rows table turn notes minutes meeting check grammar "
            "spelling only describe picture to somebody cannot see plan week around deadlines given context "
            "audience language style length format Markdown headings Python Rust query database index")
            .split(QLatin1Char(' '));
    return words[static_cast<qsizetype>(random() % static_cast<unsigned>(words.size()))];
}

QString text(std::mt19937& random, int size) {
    QString result;
    while (result.size() < size)
        result += word(random) + QLatin1Char(' ');
    result.chop(1);
    return result;
}

QList<Tag*> makeTags(ModelContext& context) {
    QList<Tag*> tags;
    for (const char* name : {"Work", "Home", "Code", "Letters", "Research", "Teaching", "Ideas", "Drafts"})
        tags += context.insert(std::make_unique<Tag>(QString::fromLatin1(name), QStringLiteral("7C5CFC")));
    return tags;
}

void make(int count, const QString& storePath, const QString& linesPath) {
    QDir().mkpath(QFileInfo(storePath).path());
    const ModelContainer container(Schema::current(), ModelConfiguration{storePath, true});
    ModelContext& context = container.mainContext();
    const QList<Tag*> tags = makeTags(context);
    QFile lines(linesPath);
    if (!lines.open(QIODevice::WriteOnly))
        throw std::runtime_error("the file of lines can't be written");
    std::mt19937 random(20240607);
    for (int number = 0; number < count; ++number) {
        const QString title = text(random, 20) + QStringLiteral(" %1").arg(number);
        const QString body = text(random, bodySize);
        const QList<Tag*> own{tags[number % tags.size()], tags[number / 8 % tags.size()]};
        Prompt* prompt =
            context.insert(std::make_unique<Prompt>(title, body, own.first() == own.last() ? own.mid(1) : own));
        if (number % 1000 == 0)
            prompt->togglePin();
        lines.write((title + QLatin1Char(' ') + body + QLatin1Char('\n')).toUtf8());
    }
    context.save();
}

} // namespace
} // namespace Quillstacks::Bench

int main(int count, char** arguments) {
    QCoreApplication application(count, arguments);
    const QStringList given = QCoreApplication::arguments();
    try {
        if (given.size() != 4)
            throw std::runtime_error("COUNT STORE LINES");
        Quillstacks::Bench::make(given[1].toInt(), given[2], given[3]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", arguments[0], error.what());
        return 1;
    }
}
