#include "platform/Updates.h"

#include "foundation/ManualClock.h"
#include "platform/UpdateError.h"
#include "updates/Ed25519.h"
#include "updates/UpdateServer.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;
using Case = UpdateError::Case;

constexpr qint64 feedLimit = 1024 * 1024;

/// One request, and what became of it.
template <typename Value>
struct Outcome {
    std::optional<Value> value;
    std::optional<UpdateError> error;
    [[nodiscard]] bool isOver() const { return value || error; }
};

template <typename Value>
QCoro::Task<> follow(QCoro::Task<Value> task, Outcome<Value>& run) {
    try {
        run.value = co_await task;
    } catch (const UpdateError& failure) {
        run.error = failure;
    }
}

/// Servers that this process trusts, and a download folder of one's own.
class UpdatesOverNetwork : public testing::Test {
protected:
    static void SetUpTestSuite() {
        identity = new ServerIdentity(ServerIdentity::make());
        auto configuration = QSslConfiguration::defaultConfiguration();
        configuration.addCaCertificate(identity->certificate);
        QSslConfiguration::setDefaultConfiguration(configuration);
    }
    UpdatesOverNetwork() : server(identity) {
        qputenv("HOME", home.path().toUtf8());
        qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    }

    template <typename Value>
    [[nodiscard]] static Outcome<Value> ended(QCoro::Task<Value> task) {
        Outcome<Value> run;
        follow(std::move(task), run);
        EXPECT_TRUE(QTest::qWaitFor([&run] { return run.isOver(); }, 20000));
        return run;
    }
    [[nodiscard]] static Outcome<QByteArray> fetch(const QUrl& url, qint64 limit = feedLimit) {
        return ended(Updates::fetch(url, limit));
    }
    static void expectRefused(const QUrl& url, Case kind) {
        const auto run = fetch(url);
        EXPECT_FALSE(run.value);
        ASSERT_TRUE(run.error);
        EXPECT_EQ(run.error->which(), kind) << run.error->errorDescription().toStdString();
    }

    /// A file as its publisher has announced it.
    [[nodiscard]] Updates::SignedFile announced(const QByteArray& contents) const {
        return {server.url(QStringLiteral("/file")), contents.size(), publisher.sign(contents), publisher.publicKey(),
                QStringLiteral("quillstacks-2.0.deb")};
    }
    [[nodiscard]] static Outcome<QString> download(const Updates::SignedFile& file) {
        return ended(Updates::download(file));
    }
    void expectThrownAway(const Updates::SignedFile& file, Case kind) {
        const auto run = download(file);
        EXPECT_FALSE(run.value);
        ASSERT_TRUE(run.error);
        EXPECT_EQ(run.error->which(), kind) << run.error->errorDescription().toStdString();
        EXPECT_EQ(filesInFolder(), QStringList());
    }
    [[nodiscard]] static QDir folder() {
        return QDir(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    }
    /// Hidden ones too.
    [[nodiscard]] static QStringList filesInFolder() {
        return folder().entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }
    [[nodiscard]] static QByteArray contentsOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static inline ServerIdentity* identity = nullptr;
    QTemporaryDir home;
    UpdateServer server;
    const Publisher publisher;
};

TEST_F(UpdatesOverNetwork, anAnswerIsFetchedWhole) {
    const QByteArray body = QByteArray("<rss/>").repeated(10000);
    server.say("/feed", body);
    EXPECT_EQ(fetch(server.url(QStringLiteral("/feed"))).value, body);
    ASSERT_EQ(server.requests.size(), 1);
    EXPECT_TRUE(server.requests.first().startsWith("GET /feed HTTP/1.1\r\n"));
    EXPECT_FALSE(server.requests.first().contains("Cookie"));
}

TEST_F(UpdatesOverNetwork, aPlainAddressIsNeverAsked) {
    UpdateServer plain(nullptr);
    plain.say("/feed", "<rss/>");
    expectRefused(plain.url(QStringLiteral("/feed")), Case::notSecure);
    expectRefused(QUrl(QStringLiteral("file:///etc/hostname")), Case::notSecure);
    EXPECT_TRUE(plain.requests.isEmpty());
}

TEST_F(UpdatesOverNetwork, aRedirectToPlainHttpIsNotFollowed) {
    UpdateServer plain(nullptr);
    plain.say("/feed", "<rss/>");
    server.redirect("/feed", plain.url(QStringLiteral("/feed")));
    expectRefused(server.url(QStringLiteral("/feed")), Case::insecureRedirect);
    EXPECT_TRUE(plain.requests.isEmpty());
}

TEST_F(UpdatesOverNetwork, aRedirectToAnotherSecureAddressIsFollowed) {
    UpdateServer other(identity);
    other.say("/moved", "<rss/>");
    server.redirect("/feed", other.url(QStringLiteral("/moved")));
    EXPECT_EQ(fetch(server.url(QStringLiteral("/feed"))).value, QByteArray("<rss/>"));
}

TEST_F(UpdatesOverNetwork, redirectsInCirclesEnd) {
    server.redirect("/feed", server.url(QStringLiteral("/feed")));
    expectRefused(server.url(QStringLiteral("/feed")), Case::insecureRedirect);
    EXPECT_LE(server.requests.size(), 7);
}

TEST_F(UpdatesOverNetwork, aServerThatNobodyVouchesForIsRefused) {
    const ServerIdentity stranger = ServerIdentity::make();
    UpdateServer other(&stranger);
    other.say("/feed", "<rss/>");
    expectRefused(other.url(QStringLiteral("/feed")), Case::notReached);
    EXPECT_TRUE(other.requests.isEmpty());
}

TEST_F(UpdatesOverNetwork, aServerThatIsNotThereIsAReadableFailure) {
    quint16 port = 0;
    {
        QTcpServer gone;
        gone.listen(QHostAddress::LocalHost);
        port = gone.serverPort();
    }
    const auto run = fetch(QUrl(QStringLiteral("https://127.0.0.1:%1/feed").arg(port)));
    ASSERT_TRUE(run.error);
    EXPECT_EQ(run.error->which(), Case::notReached);
    EXPECT_TRUE(run.error->errorDescription().startsWith(QStringLiteral("The update server could not be reached: ")));
}

TEST_F(UpdatesOverNetwork, aStatusThatIsNoSuccessIsAFailureWhateverThePageSays) {
    for (const char* status : {"HTTP/1.1 404 Not Found", "HTTP/1.1 500 Oops", "HTTP/1.1 204 No Content"}) {
        server.say("/feed", "", status);
        expectRefused(server.url(QStringLiteral("/feed")), Case::badStatus);
    }
    server.say("/feed", "<rss/>", "HTTP/1.1 403 Forbidden");
    expectRefused(server.url(QStringLiteral("/feed")), Case::badStatus);
}

TEST_F(UpdatesOverNetwork, aHugeAnswerIsGivenUpAtTheLimit) {
    server.say("/exact", QByteArray(feedLimit, 'x'));
    server.say("/over", QByteArray(feedLimit + 1, 'x'));
    EXPECT_EQ(fetch(server.url(QStringLiteral("/exact"))).value.value_or(QByteArray()).size(), feedLimit);
    expectRefused(server.url(QStringLiteral("/over")), Case::tooLarge);
    server.sayWithoutEnd("/endless");
    expectRefused(server.url(QStringLiteral("/endless")), Case::tooLarge);
    EXPECT_LT(server.endless, 16 * feedLimit);
}

TEST_F(UpdatesOverNetwork, aPackedAnswerIsNotUnpacked) {
    server.say("/feed", "packed", "HTTP/1.1 200 OK\r\nContent-Encoding: identity");
    EXPECT_EQ(fetch(server.url(QStringLiteral("/feed"))).value, QByteArray("packed"));
    EXPECT_TRUE(server.requests.first().toLower().contains("accept-encoding: identity"));
}

TEST_F(UpdatesOverNetwork, anAnswerCutShortIsAFailure) {
    server.answers["/feed"] = [](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n<rss>");
        socket.disconnectFromHost();
    };
    expectRefused(server.url(QStringLiteral("/feed")), Case::notReached);
}

TEST_F(UpdatesOverNetwork, aServerThatSaysNothingIsGivenUpAfterAMinute) {
    ManualClock clock;
    server.answers["/feed"] = [](QTcpSocket&) {};
    Outcome<QByteArray> run;
    follow(Updates::fetch(server.url(QStringLiteral("/feed")), feedLimit), run);
    clock.advance(0s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !server.requests.isEmpty(); }, 20000));
    clock.advance(59s);
    EXPECT_FALSE(run.isOver());
    clock.advance(1s);
    ASSERT_TRUE(QTest::qWaitFor([&run] { return run.isOver(); }, 20000));
    ASSERT_TRUE(run.error);
    EXPECT_EQ(run.error->which(), Case::timedOut);
}

TEST_F(UpdatesOverNetwork, aSignedFileIsKeptForTheUserAlone) {
    const QByteArray contents = QByteArray("a program, ").repeated(50000);
    server.say("/file", contents);
    const auto run = download(announced(contents));
    ASSERT_TRUE(run.value) << run.error->errorDescription().toStdString();
    EXPECT_EQ(*run.value, folder().filePath(QStringLiteral("quillstacks-2.0.deb")));
    EXPECT_EQ(contentsOf(*run.value), contents);
    EXPECT_EQ(filesInFolder(), QStringList{QStringLiteral("quillstacks-2.0.deb")});
    struct stat now {};
    ASSERT_EQ(::stat(QFile::encodeName(*run.value).constData(), &now), 0);
    EXPECT_EQ(now.st_mode & 07777, 0600U) << "and it is not made executable";
}

TEST_F(UpdatesOverNetwork, aFileSignedWithAnotherKeyIsThrownAway) {
    const QByteArray contents = "a program";
    server.say("/file", contents);
    auto file = announced(contents);
    file.signature = Publisher().sign(contents);
    expectThrownAway(file, Case::wrongSignature);
    file = announced(contents);
    file.publicKey = Publisher().publicKey();
    expectThrownAway(file, Case::wrongSignature);
    file.publicKey.clear();
    expectThrownAway(file, Case::wrongSignature);
}

TEST_F(UpdatesOverNetwork, aFileThatDiffersInOneBitIsThrownAway) {
    QByteArray contents = "a program";
    const auto file = announced(contents);
    contents[3] = char(contents[3] ^ 1);
    server.say("/file", contents);
    expectThrownAway(file, Case::wrongSignature);
}

TEST_F(UpdatesOverNetwork, aFileOfAnotherLengthIsThrownAway) {
    const auto file = announced("a program");
    server.say("/file", "a prog");
    expectThrownAway(file, Case::wrongLength);
    server.say("/file", "a program and more");
    expectThrownAway(file, Case::tooLarge);
    server.sayWithoutEnd("/file");
    expectThrownAway(file, Case::tooLarge);
}

TEST_F(UpdatesOverNetwork, aDownloadRedirectedToPlainHttpIsNotFollowed) {
    UpdateServer plain(nullptr);
    plain.say("/file", "a program");
    server.redirect("/file", plain.url(QStringLiteral("/file")));
    expectThrownAway(announced("a program"), Case::insecureRedirect);
    EXPECT_TRUE(plain.requests.isEmpty());
}

TEST_F(UpdatesOverNetwork, aFileThatIsThereAlreadyIsTakenAsItStands) {
    server.say("/file", "a program");
    const auto first = download(announced("a program"));
    const auto second = download(announced("a program"));
    EXPECT_EQ(second.value, first.value);
    EXPECT_EQ(server.requests.size(), 1);
    EXPECT_EQ(filesInFolder().size(), 1);
}

TEST_F(UpdatesOverNetwork, anotherFileOfThatNameIsLeftAlone) {
    folder().mkpath(QStringLiteral("."));
    QFile own(folder().filePath(QStringLiteral("quillstacks-2.0.deb")));
    ASSERT_TRUE(own.open(QIODevice::WriteOnly));
    own.write("my own!!!"); // as long as the other
    own.close();
    server.say("/file", "a program");
    const auto run = download(announced("a program"));
    EXPECT_EQ(run.value, folder().filePath(QStringLiteral("quillstacks-2.0 (2).deb")));
    EXPECT_EQ(contentsOf(own.fileName()), "my own!!!");
}

TEST_F(UpdatesOverNetwork, aLinkOfThatNameIsNotFollowed) {
    folder().mkpath(QStringLiteral("."));
    const QString target = home.filePath(QStringLiteral("target"));
    QFile::link(target, folder().filePath(QStringLiteral("quillstacks-2.0.deb")));
    server.say("/file", "a program");
    const auto run = download(announced("a program"));
    EXPECT_EQ(run.value, folder().filePath(QStringLiteral("quillstacks-2.0 (2).deb")));
    EXPECT_FALSE(QFile::exists(target));
}

TEST_F(UpdatesOverNetwork, aFolderThatCannotBeWrittenIsAReadableFailure) {
    QFile file(folder().path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    server.say("/file", "a program");
    const auto run = download(announced("a program"));
    ASSERT_TRUE(run.error);
    EXPECT_EQ(run.error->which(), Case::notWritten);
    EXPECT_TRUE(run.error->errorDescription().contains(folder().path()));
    EXPECT_TRUE(server.requests.isEmpty());
}

TEST_F(UpdatesOverNetwork, aFullDiskLeavesNothingBehind) {
    const QByteArray contents(512 * 1024, 'x');
    server.say("/file", contents);
    const auto file = announced(contents);
    struct rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small { 64 * 1024, before.rlim_max };
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const auto run = download(file);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    ASSERT_TRUE(run.error);
    EXPECT_EQ(run.error->which(), Case::notWritten);
    EXPECT_EQ(filesInFolder(), QStringList());
}

TEST_F(UpdatesOverNetwork, aFileThatIsStillComingHasNoName) {
    server.answers["/file"] = [](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\na pro");
    };
    Outcome<QString> run;
    follow(Updates::download(announced("a program")), run);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !server.requests.isEmpty(); }, 20000));
    EXPECT_FALSE(filesInFolder().contains(QStringLiteral("quillstacks-2.0.deb")));
    EXPECT_FALSE(run.isOver());
    // Hangs up, each time that it is called again, so that nothing goes on after the test.
    const auto isOver = [&] {
        server.hangUp();
        return run.isOver();
    };
    EXPECT_TRUE(QTest::qWaitFor(isOver, 20000));
    EXPECT_EQ(filesInFolder(), QStringList());
}

TEST_F(UpdatesOverNetwork, theEndOfTheProgramEndsWhatIsOnItsWayAndTellsNobody) {
    server.answers["/file"] = [](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\na pro");
    };
    Outcome<QString> run;
    follow(Updates::download(announced("a program")), run);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !server.requests.isEmpty(); }, 20000));
    EXPECT_TRUE(server.isTalking());
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::quit(); }, Qt::QueuedConnection);
    QCoreApplication::exec();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !server.isTalking(); }, 20000));
    EXPECT_FALSE(run.isOver());
}

TEST(Ed25519, knowsTheStandardsOwnExamples) {
    const auto bytes = [](const char* hex) { return QByteArray::fromHex(hex); };
    // RFC 8032, 7.1, tests 1 and 2.
    EXPECT_TRUE(Ed25519::verifies(
        {},
        bytes("e5564300c360ac729086e2cc806e828a84877f1eb8e5d974d873e065224901555fb8821590a33bacc61e39701cf9b46bd25bf5f0"
              "595bbe24655141438e7a100b"),
        bytes("d75a980182b10ab7d54bfed3c964073a0ee172f3daa62325af021a68f707511a")));
    const QByteArray key = bytes("3d4017c3e843895a92b70aa74d1b7ebc9c982ccf2ec4968cc0cd55f12af4660c");
    const QByteArray signature =
        bytes("92a009a9f0d4cab8720e820b5f642540a2b27b5416503f8fb3762223ebdb69da085ac1e43e15996e458f3613d0f11d8c387b2eae"
              "b4302aeeb00d291612bb0c00");
    EXPECT_TRUE(Ed25519::verifies(bytes("72"), signature, key));
    EXPECT_FALSE(Ed25519::verifies(bytes("73"), signature, key));
    EXPECT_FALSE(Ed25519::verifies(bytes("72"), signature.first(63), key));
    EXPECT_FALSE(Ed25519::verifies(bytes("72"), signature, key.first(31)));
    EXPECT_FALSE(Ed25519::verifies(bytes("72"), QByteArray(64, '\xff'), key));
    EXPECT_FALSE(Ed25519::verifies(bytes("72"), signature, QByteArray(32, '\xff')));
}

} // namespace
} // namespace Quillstacks
