#include "platform/LanguageModel.h"

#include "languagemodel/ChatCompletion.h"
#include "languagemodel/ModelServer.h"

#include <QCoroSignal>

namespace Quillstacks {

namespace {

using namespace std::chrono_literals;

// Without a graphics card, a long prompt takes minutes.
constexpr auto answerLimit = 10min;
constexpr int statusGood = 200;

QString refusalOf(const HttpExchange& exchange) {
    const QString status = QStringLiteral("status %1").arg(exchange.status());
    const QString said = ChatCompletion::refusal(exchange.body());
    return said.isEmpty() ? status : status + QStringLiteral(": ") + said;
}

/// The text of the answer, or why there is none.
QString contentOf(const HttpExchange& exchange, const ModelFiles& files) {
    using Case = LanguageModelError::Case;
    switch (exchange.outcome()) {
    case HttpExchange::Outcome::timedOut:
        throw files.error(Case::timedOut);
    case HttpExchange::Outcome::tooLarge:
        throw files.error(Case::tooLong);
    case HttpExchange::Outcome::pending:
    case HttpExchange::Outcome::broken:
        throw files.error(Case::ended);
    case HttpExchange::Outcome::answered:
        break;
    }
    if (exchange.status() != statusGood)
        throw files.error(Case::refused, refusalOf(exchange));
    const std::optional<QString> content = ChatCompletion::content(exchange.body());
    if (!content)
        throw files.error(Case::unreadable);
    if (content->trimmed().isEmpty())
        throw files.error(Case::empty);
    return *content;
}

/// By value: the session may be gone before the answer comes.
QCoro::Task<LanguageModelSession::Response> answer(QByteArray body) {
    ModelServer& server = ModelServer::shared();
    const ModelServer::Use use(server);
    const ModelRun* run = co_await server.ready();
    // All that is needed of the run now, as it may end any time from here on.
    const ModelFiles files = run->files();
    const auto exchange = run->post(QStringLiteral("/v1/chat/completions"), body, answerLimit);
    co_await qCoro(exchange.get(), &HttpExchange::ended);
    if (exchange->outcome() == HttpExchange::Outcome::timedOut)
        server.giveUp();
    co_return LanguageModelSession::Response{contentOf(*exchange, files)};
}

} // namespace

LanguageModelSession::LanguageModelSession(SystemLanguageModel, QString text) : instructions(std::move(text)) {}

QCoro::Task<LanguageModelSession::Response> LanguageModelSession::respond(QString prompt,
                                                                          GenerationOptions options) const {
    return answer(ChatCompletion::request(instructions, prompt, options));
}

} // namespace Quillstacks
