#include "LanguageModelFixture.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

namespace Quillstacks {

namespace {

std::vector<QJsonObject> linesOf(const QString& path) {
    std::vector<QJsonObject> lines;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        for (const QByteArray& line : file.readAll().split('\n'))
            if (const QJsonDocument document = QJsonDocument::fromJson(line); document.isObject())
                lines.push_back(document.object());
    return lines;
}

QCoro::Task<> follow(Turn& turn, QCoro::Task<LanguageModelSession::Response> task) {
    try {
        const LanguageModelSession::Response response = co_await task;
        turn.answer = response.content;
    } catch (const LanguageModelError& error) {
        turn.error = error;
    }
    turn.isOver = true;
}

} // namespace

bool eventually(const std::function<bool()>& holds, std::chrono::milliseconds patience) {
    return QTest::qWaitFor(holds, static_cast<int>(patience.count()));
}

bool isRunning(qint64 pid) {
    QFile status(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    const QByteArray line = status.readAll();
    return !line.mid(line.lastIndexOf(')')).startsWith(") Z");
}

LanguageModelTest::LanguageModelTest() {
    qputenv("XDG_DATA_HOME", QFile::encodeName(data.path()));
    qputenv("PATH", RUNTIME_FOLDER);
    QDir().mkpath(folder());
}

LanguageModelTest::~LanguageModelTest() {
    qputenv("PATH", searchPath);
}

QString LanguageModelTest::putModel(const QString& mode, const QString& name) {
    QFile file(folder() + QLatin1Char('/') + name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(mode.toUtf8());
    return file.fileName();
}

void LanguageModelTest::takeRuntimeAway() {
    qputenv("PATH", QFile::encodeName(nowhere.path()));
}

void LanguageModelTest::ask(Turn& turn, const QString& prompt, GenerationOptions options) {
    const LanguageModelSession session(SystemLanguageModel::defaultModel(), QStringLiteral("Be brief"));
    follow(turn, session.respond(prompt, options));
}

QString LanguageModelTest::answerTo(const QString& prompt, GenerationOptions options) {
    Turn turn;
    ask(turn, prompt, options);
    EXPECT_TRUE(eventually([&turn] { return turn.isOver; }));
    EXPECT_FALSE(turn.error) << qPrintable(turn.error ? turn.error->errorDescription() : QString());
    return turn.answer.value_or(QString());
}

std::optional<LanguageModelError> LanguageModelTest::failure() {
    Turn turn;
    ask(turn);
    EXPECT_TRUE(eventually([&turn] { return turn.isOver; }));
    EXPECT_FALSE(turn.answer) << qPrintable(turn.answer.value_or(QString()).left(80));
    return turn.error;
}

void LanguageModelTest::expectFailure(const QString& mode, LanguageModelError::Case kind, const QString& words) {
    putModel(mode);
    const auto error = failure();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->which(), kind) << qPrintable(error->debugDescription());
    EXPECT_TRUE(error->errorDescription().contains(words)) << qPrintable(error->errorDescription());
}

std::vector<QJsonObject> LanguageModelTest::runs(const QString& model) {
    return linesOf(model + QStringLiteral(".runs"));
}

std::vector<QJsonObject> LanguageModelTest::questions(const QString& model) {
    std::vector<QJsonObject> all = linesOf(model + QStringLiteral(".requests"));
    std::erase_if(all, [](const QJsonObject& request) {
        return request.value(QLatin1String("path")) == QLatin1String("/health");
    });
    return all;
}

qint64 LanguageModelTest::pidOf(const QString& model) {
    const auto all = runs(model);
    return all.empty() ? 0 : all.back().value(QLatin1String("pid")).toInteger();
}

} // namespace Quillstacks
