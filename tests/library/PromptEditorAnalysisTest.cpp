#include "analysis/AnalysisPreferences.h"
#include "analysis/LexiwellPanel.h"
#include "interface/Button.h"
#include "interface/ToastManager.h"
#include "platform/http/HttpServer.h"
#include "PromptEditorFixture.h"
#include "PromptPanelColumn.h"
#include "support/LogCapture.h"
#include "variables/VariablesPreviewView.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

namespace Quillstacks {

/// An editor whose prompts are rated by a server of the test's own.
class PromptEditorAnalysis : public PromptEditor {
protected:
    PromptEditorAnalysis() {
        selectedModelProviderPreference().set(ModelProviderType::ollama);
        ollamaBaseURLPreference().set(server.url());
    }
    static QByteArray rating() {
        const QString record =
            QStringLiteral(R"({"rating":8,"maxRating":10,"summary":"Fine.","strengths":[],"recommendations":[]})");
        const QJsonObject message{{QStringLiteral("content"), record}};
        return QJsonDocument(QJsonObject{{QStringLiteral("message"), message}}).toJson();
    }
    static LexiwellPanel* panel(const PromptEditorView& view) { return view.findChild<LexiwellPanel*>(); }
    static void analyze(const PromptEditorView& view) {
        for (Button* button : panel(view)->findChildren<Button*>())
            if (button->accessibleName() == QStringLiteral("Analyze"))
                QTest::mouseClick(button, Qt::LeftButton);
    }
    QString sentText() const {
        const QJsonArray messages =
            QJsonDocument::fromJson(server.requests.back().body).object().value(QStringLiteral("messages")).toArray();
        return messages.at(1).toObject().value(QStringLiteral("content")).toString();
    }

    LogCapture log;
    HttpServer server;
};

TEST_F(PromptEditorAnalysis, theBodyIsRatedAsItStandsTrimmedAndUnsaved) {
    server.answerWith(200, rating());
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("stored")));
    view.setEditorBody(QStringLiteral("  typed {a}\n"));
    analyze(view);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.promptAnalysis().has_value(); }));
    EXPECT_EQ(sentText(), QStringLiteral("Analyze this prompt:\n\ntyped {a}"));
    EXPECT_EQ(view.promptAnalysis()->rating, 8);
    EXPECT_EQ(view.analysisErrorMessage(), std::nullopt);
    EXPECT_EQ(panel(view)->analysis(), view.promptAnalysis());
    EXPECT_FALSE(panel(view)->isLoading());
    const QStringList lines = log.messages(QStringLiteral("data"), LogLevel::Info);
    EXPECT_EQ(lines.front(), QStringLiteral("Starting prompt analysis"));
    EXPECT_EQ(lines.back(), QStringLiteral("Prompt analysis completed successfully"));
}

TEST_F(PromptEditorAnalysis, whileItRunsTheEditorCanBeUsed) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    analyze(view);
    ASSERT_TRUE(server.waitForRequest());
    EXPECT_TRUE(panel(view)->isLoading());
    QTest::keyClicks(&titleField(view), QStringLiteral("typed"));
    EXPECT_TRUE(view.title().contains(QStringLiteral("typed")));
    server.requests.back().socket->write(HttpServer::answer(200, rating()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.promptAnalysis().has_value(); }));
}

TEST_F(PromptEditorAnalysis, whileTheServerDripsKeysAndMouseAreAnswered) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    PromptEditorView& view = present(prompt);
    analyze(view);
    QTcpSocket* socket = server.waitForRequest();
    ASSERT_TRUE(socket);
    const QByteArray body = rating();
    socket->write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n");
    qsizetype written = 0;
    QTimer drip;
    QObject::connect(&drip, &QTimer::timeout, socket, [&] {
        if (written < body.size())
            socket->write(body.sliced(written++, 1));
    });
    drip.start(5);
    bodyField(view).setFocus();
    QTest::keyClicks(&bodyField(view), QStringLiteral(" typed"));
    EXPECT_EQ(view.editorBody(), QStringLiteral("b typed"));
    for (QAbstractButton* button : view.findChild<VariablesPreviewView*>()->findChildren<QAbstractButton*>())
        QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(view.isVariablesCollapsed());
    ASSERT_TRUE(QTest::qWaitFor([&] { return written > 20; }));
    EXPECT_TRUE(panel(view)->isLoading());
    view.savePrompt();
    EXPECT_EQ(closed->size(), 1);
    EXPECT_EQ(prompt->body(), QStringLiteral("b typed"));
}

TEST_F(PromptEditorAnalysis, aServerThatSendsHeadersWithoutEndLeavesTheEditorUsable) {
    server.respond = [](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\n");
        const auto more = [&socket] {
            if (socket.bytesToWrite() < 1000000)
                socket.write("X-Header: " + QByteArray(50000, 'x') + "\r\n");
        };
        QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket, more);
        more();
    };
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    analyze(view);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.analysisErrorMessage().has_value(); }));
    EXPECT_TRUE(view.analysisErrorMessage()->startsWith(QStringLiteral("Analysis failed: Can't connect to Ollama.")));
    EXPECT_FALSE(panel(view)->isLoading());
    QTest::keyClicks(&titleField(view), QStringLiteral("typed"));
    EXPECT_TRUE(view.title().contains(QStringLiteral("typed")));
}

TEST_F(PromptEditorAnalysis, aFailureIsShownAndANewRunTakesItAway) {
    server.answerWith(500, {});
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    analyze(view);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.analysisErrorMessage().has_value(); }));
    const QString text = QStringLiteral("Analysis failed: Ollama error (500). Check that the service is running.");
    EXPECT_EQ(view.analysisErrorMessage(), text);
    EXPECT_EQ(panel(view)->errorMessage(), text);
    EXPECT_EQ(view.promptAnalysis(), std::nullopt);
    EXPECT_TRUE(log.contains(QStringLiteral("Data error in analyzing prompt: ") + text));
    server.respond = {};
    analyze(view);
    ASSERT_TRUE(server.waitForRequest(2));
    EXPECT_EQ(view.analysisErrorMessage(), std::nullopt);
    server.requests.back().socket->write(HttpServer::answer(200, rating()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.promptAnalysis().has_value(); }));
}

TEST_F(PromptEditorAnalysis, anEmptyBodyIsNotRated) {
    PromptEditorView& view = present();
    view.setEditorBody(QStringLiteral(" \n "));
    EXPECT_TRUE(panel(view)->isPromptEmpty());
    analyze(view);
    EXPECT_FALSE(log.contains(QStringLiteral("Cannot analyze empty prompt")));
    view.analyzePrompt();
    EXPECT_EQ(log.messages(QStringLiteral("data"), LogLevel::Error),
              QStringList{QStringLiteral("Cannot analyze empty prompt")});
    QCoreApplication::processEvents();
    EXPECT_TRUE(server.requests.empty());
    view.setEditorBody(QStringLiteral("x"));
    EXPECT_FALSE(panel(view)->isPromptEmpty());
}

TEST_F(PromptEditorAnalysis, theSheetMayCloseWhileAnAnalysisRuns) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    analyze(view);
    QTcpSocket* socket = server.waitForRequest();
    ASSERT_TRUE(socket);
    const QPointer<PromptEditorView> watched(&view);
    view.cancel();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !watched; }));
    socket->write(HttpServer::answer(200, rating()));
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return log.contains(QStringLiteral("Prompt analysis completed successfully")); }));
}

TEST_F(PromptEditorAnalysis, thePanelFollowsItsPreference) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    ASSERT_TRUE(panel(view));
    EXPECT_FALSE(panel(view)->isPromptEmpty());
    lexiwellEnabledPreference().set(false);
    EXPECT_FALSE(panel(view));
    view.setLexiwellCollapsed(true);
    lexiwellEnabledPreference().set(true);
    ASSERT_TRUE(panel(view));
    EXPECT_TRUE(panel(view)->isCollapsed());
}

TEST_F(PromptEditorAnalysis, aPanelThatComesBackIsReachedByTabWhereItStands) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    const auto stopsAfterTheVariables = [&] {
        view.findChild<VariablesPreviewView*>()->findChild<QAbstractButton*>()->setFocus(Qt::TabFocusReason);
        QStringList names;
        for (int i = 0; i < 6; ++i) {
            QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
            names += QApplication::focusWidget()->accessibleName();
        }
        return names;
    };
    const QStringList inOrder{
        QStringLiteral("Lexiwell"), QStringLiteral("Analyze"), QStringLiteral("Collapse Lexiwell"),
        QStringLiteral("Delete"),   QStringLiteral("Cancel"),  QStringLiteral("Save")};
    EXPECT_EQ(stopsAfterTheVariables(), inOrder);
    lexiwellEnabledPreference().set(false);
    lexiwellEnabledPreference().set(true);
    EXPECT_EQ(stopsAfterTheVariables(), inOrder);
}

TEST_F(PromptEditorAnalysis, thePanelsShareTheColumnAndFold) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    QCoreApplication::processEvents();
    const int column = view.findChild<PromptPanelColumn*>()->height();
    const QWidget* analysis = panel(view)->parentWidget();
    const QWidget* variables = view.findChild<VariablesPreviewView*>()->parentWidget();
    EXPECT_EQ(analysis->height(), ((column - 16) * 7 + 5) / 10);
    EXPECT_EQ(variables->height(), column - 16 - analysis->height());
    view.setLexiwellCollapsed(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return analysis->height() == 46; }, 2000));
    EXPECT_EQ(variables->height(), column - 16 - 46);
    view.setLexiwellCollapsed(false);
    view.setVariablesCollapsed(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return variables->height() == 46; }, 2000));
    EXPECT_EQ(analysis->height(), column - 16 - 46);
}

} // namespace Quillstacks
