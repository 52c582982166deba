#include "Tool.h"

#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

constexpr int patienceMilliseconds = 10'000;

} // namespace

bool eventually(const std::function<bool()>& holds) {
    return QTest::qWaitFor(holds, patienceMilliseconds);
}

QString run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    EXPECT_TRUE(eventually([&process] { return process.state() == QProcess::NotRunning; })) << qPrintable(program);
    const QString output = QString::fromUtf8(process.readAll());
    EXPECT_EQ(process.error(), QProcess::UnknownError) << qPrintable(program);
    EXPECT_EQ(process.exitCode(), 0) << qPrintable(program + QLatin1Char(' ') + arguments.join(QLatin1Char(' ')))
                                     << ": " << qPrintable(output);
    return output;
}

void keys(const char* action, std::initializer_list<int> keyCodes) {
    QStringList arguments{QString::fromLatin1(action)};
    for (const int code : keyCodes)
        arguments << QString::number(code);
    run(QStringLiteral("xdotool"), arguments);
}

void press(std::initializer_list<int> modifiers, int key) {
    if (modifiers.size() > 0)
        keys("keydown", modifiers);
    keys("key", {key});
    if (modifiers.size() > 0)
        keys("keyup", modifiers);
}

} // namespace Quillstacks
