// The program, cut down to one question to the on-device model. Says the answer and ends.

#include "platform/LanguageModel.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

QCoro::Task<> ask() {
    const Quillstacks::LanguageModelSession session(Quillstacks::SystemLanguageModel::defaultModel(),
                                                    QStringLiteral("Be brief"));
    const Quillstacks::LanguageModelSession::Response response = co_await session.respond(QStringLiteral("Hi"), {});
    std::puts(qUtf8Printable(response.content));
    QCoreApplication::exit(0);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    ask();
    return QCoreApplication::exec();
}
