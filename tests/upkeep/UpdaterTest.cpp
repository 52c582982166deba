#include "upkeep/Updater.h"

#include "UpdatesFixture.h"

#include <QLabel>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class UpdaterChecks : public UpdatesFixture {
protected:
    void downloadTo(const QString& path) {
        desktop.downloadAnswer = [this, path](const Updates::SignedFile& file) {
            asked = file;
            return path;
        };
    }
    [[nodiscard]] qsizetype downloads() const { return desktop.callsOf(QStringLiteral("download")).size(); }

    std::optional<Updates::SignedFile> asked;
};

TEST_F(UpdaterChecks, looksSoonAfterTheStartAndThenOnceADay) {
    launch();
    pass(2999ms);
    EXPECT_EQ(fetches(), 0);
    pass(1ms);
    EXPECT_EQ(desktop.callsOf(QStringLiteral("fetch")),
              QStringList{QStringLiteral("fetch https://example.org/updater/appcast.xml 1048576")});
    pass(24h - 1s);
    EXPECT_EQ(fetches(), 1);
    pass(1s);
    EXPECT_EQ(fetches(), 2);
    pass(24h);
    EXPECT_EQ(fetches(), 3);
}

TEST_F(UpdaterChecks, withAutomaticChecksOffItNeverLooksByItself) {
    launch();
    updater().setAutomaticallyChecksForUpdates(false);
    pass(30 * 24h);
    EXPECT_EQ(fetches(), 0);
    check();
    EXPECT_EQ(fetches(), 1);
    pass(30 * 24h);
    EXPECT_EQ(fetches(), 1);
    updater().setAutomaticallyChecksForUpdates(true);
    pass(24h);
    EXPECT_EQ(fetches(), 2);
}

TEST_F(UpdaterChecks, aCheckByHandStartsTheDayAnew) {
    launch();
    pass(3s);
    pass(20h);
    check();
    pass(23h);
    EXPECT_EQ(fetches(), 2);
    pass(1h);
    EXPECT_EQ(fetches(), 3);
}

TEST_F(UpdaterChecks, aCheckByHandThatFindsNothingSaysSo) {
    launch();
    check();
    EXPECT_EQ(alert(), (QStringList{QStringLiteral("You’re up to date"),
                                    QStringLiteral("Quillstacks 1.0.0 is the newest version available.")}));
    EXPECT_EQ(alertButtons(), QStringList{QStringLiteral("OK")});
}

TEST_F(UpdaterChecks, anAutomaticCheckThatFindsNothingOrFailsSaysNothing) {
    launch();
    openWindow();
    pass(3s);
    failWith(UpdateError::Case::timedOut);
    pass(24h);
    EXPECT_EQ(fetches(), 2);
    EXPECT_TRUE(alert().isEmpty());
    EXPECT_TRUE(log.contains(QStringLiteral("Update check failed: The update server took too long to answer.")));
}

TEST_F(UpdaterChecks, aCheckByHandThatFailsSaysWhy) {
    launch();
    failWith(UpdateError::Case::insecureRedirect);
    check();
    EXPECT_TRUE(alert().contains(QStringLiteral("The update server leads to an address that is not secure.")));
}

TEST_F(UpdaterChecks, whateverKeepsAServerFromAnsweringIsSaid) {
    using Case = UpdateError::Case;
    for (const Case what :
         {Case::notSecure, Case::notReached, Case::insecureRedirect, Case::badStatus, Case::timedOut, Case::tooLarge}) {
        launch();
        failWith(what);
        check();
        EXPECT_EQ(alert(), (QStringList{QStringLiteral("No update"),
                                        UpdateError(what, QStringLiteral("so")).errorDescription()}));
        answer("OK");
    }
}

TEST_F(UpdaterChecks, aMalformedFeedIsAFailureAndNotNothing) {
    launch();
    desktop.fetchAnswer = [](const QUrl&) { return QByteArray("<rss><channel>"); };
    check();
    EXPECT_TRUE(alert().join(u' ').contains(QStringLiteral("The list of updates could not be read")));
    EXPECT_TRUE(manager->isCheckingForUpdates());
}

TEST_F(UpdaterChecks, anOlderVersionOrOneOfAnotherOsIsNoUpdate) {
    launch();
    publish({feedItem({.version = "0.9"}), feedItem({.version = "9.0", .os = "macos"})});
    check();
    EXPECT_TRUE(alert().contains(QStringLiteral("You’re up to date")));
    EXPECT_FALSE(manager->isCheckingForUpdates());
}

TEST_F(UpdaterChecks, anUpdateIsTold) {
    launch();
    publish({feedItem({})});
    check();
    EXPECT_EQ(alert(), (QStringList{QStringLiteral("A new version of Quillstacks is available"),
                                    QStringLiteral("Version 2.0 “Ink” (12.06 KiB) of Mon, 05 Jan 2026 10:00:00 +0000 "
                                                   "can be downloaded. You install it yourself.\n"
                                                   "https://example.org/notes/2.0")}));
    EXPECT_EQ(alertButtons(), (QStringList{QStringLiteral("Later"), QStringLiteral("Download")}));
    answer("Later");
    EXPECT_EQ(downloads(), 0);
}

TEST_F(UpdaterChecks, onRequestItIsDownloadedAndItsFolderShownAndNothingElse) {
    launch();
    publish({feedItem({})});
    downloadTo(QStringLiteral("/home/me/Downloads/quillstacks-2.0.deb"));
    check();
    desktop.calls.clear();
    answer("Download");
    EXPECT_EQ(ToastManager::shared().message(), QStringLiteral("Downloading Quillstacks 2.0 “Ink”…"));
    ASSERT_TRUE(asked);
    EXPECT_EQ(asked->length, 12345);
    EXPECT_EQ(asked->signature, QByteArray(64, 's'));
    EXPECT_EQ(asked->publicKey, QByteArray(32, 'k'));
    EXPECT_TRUE(alert().contains(QStringLiteral("Quillstacks 2.0 “Ink” is downloaded")));
    answer("Show Folder");
    EXPECT_EQ(desktop.openedFolders, QStringList{QStringLiteral("/home/me/Downloads")});
    EXPECT_EQ(desktop.calls,
              (QStringList{QStringLiteral("download https://example.org/quillstacks-2.0.deb as quillstacks-2.0.deb"),
                           QStringLiteral("openFolder /home/me/Downloads")}));
}

TEST_F(UpdaterChecks, aDownloadThatIsNotThePublishersIsTold) {
    launch();
    publish({feedItem({})});
    desktop.downloadAnswer = [](const Updates::SignedFile&) -> QString {
        throw UpdateError(UpdateError::Case::wrongSignature);
    };
    check();
    answer("Download");
    EXPECT_TRUE(alert().join(u' ').contains(QStringLiteral("thrown away, since its signature is not the publisher's")));
}

TEST_F(UpdaterChecks, downloadsByItselfOnlyWhereThatIsChosen) {
    openWindow();
    launch();
    publish({feedItem({})});
    downloadTo(QStringLiteral("/home/me/Downloads/x.deb"));
    pass(3s);
    EXPECT_EQ(downloads(), 0);
    EXPECT_TRUE(alert().contains(QStringLiteral("A new version of Quillstacks is available")));
    answer("Later");
    pass(1s);
    updater().setAutomaticallyDownloadsUpdates(true);
    pass(24h);
    EXPECT_EQ(downloads(), 1);
    EXPECT_TRUE(alert().contains(QStringLiteral("Quillstacks 2.0 “Ink” is downloaded")));
}

TEST_F(UpdaterChecks, theChoiceToDownloadLastsFromRunToRun) {
    launch();
    updater().setAutomaticallyDownloadsUpdates(true);
    launch();
    EXPECT_TRUE(updater().automaticallyDownloadsUpdates());
}

TEST_F(UpdaterChecks, aNewsThatNobodyAskedForWaitsForTheWindow) {
    launch();
    publish({feedItem({})});
    pass(3s);
    EXPECT_FALSE(window.isVisible());
    openWindow();
    pass();
    EXPECT_TRUE(alert().contains(QStringLiteral("A new version of Quillstacks is available")));
}

TEST_F(UpdaterChecks, aNewsThatNobodyAskedForWaitsForTheEndOfASheet) {
    launch();
    openWindow();
    Sheet* sheet = Sheet::present(&window, std::make_unique<QWidget>(), {});
    publish({feedItem({})});
    pass(3s);
    EXPECT_EQ(Sheet::top(&window), sheet);
    Sheet* above = Sheet::present(&window, std::make_unique<QWidget>(), {});
    above->dismiss();
    pass();
    EXPECT_EQ(Sheet::top(&window), sheet);
    sheet->dismiss();
    EXPECT_FALSE(Sheet::top(&window)) << "not from within what ends the sheet";
    pass();
    EXPECT_TRUE(alert().contains(QStringLiteral("A new version of Quillstacks is available")));
    answer("Later");
    pass();
    EXPECT_TRUE(alert().isEmpty()) << "once";
}

TEST_F(UpdaterChecks, aCheckByHandJoinsOneThatRuns) {
    launch();
    desktop.calls.clear();
    clock.advance(3s); // the automatic one has begun, and waits for its answer
    manager->checkForUpdates();
    pass();
    EXPECT_EQ(fetches(), 1);
    EXPECT_TRUE(alert().contains(QStringLiteral("You’re up to date")));
}

TEST_F(UpdaterChecks, theNameOfTheFileIsANameAndNoPath) {
    const auto nameFor = [this](const char* url) {
        launch();
        publish({feedItem({.url = url})});
        downloadTo(QStringLiteral("/x"));
        check();
        answer("Download");
        answer("Close");
        return asked->name;
    };
    EXPECT_EQ(nameFor("https://example.org/a/quill%20stacks.deb"), QStringLiteral("quill_stacks.deb"));
    EXPECT_EQ(nameFor("https://example.org/%2e%2e%2f.bashrc"), QStringLiteral("bashrc"));
    EXPECT_EQ(nameFor("https://example.org/.profile"), QStringLiteral("profile"));
    EXPECT_EQ(nameFor("https://example.org/-rf"), QStringLiteral("rf"));
    EXPECT_EQ(nameFor("https://example.org/folder/"), QStringLiteral("Quillstacks-2"));
}

TEST_F(UpdaterChecks, anAnswerAfterItsEndIsNobodys) {
    launch();
    publish({feedItem({})});
    manager->checkForUpdates();
    manager.reset();
    pass();
    EXPECT_TRUE(alert().isEmpty());
}

} // namespace
} // namespace Quillstacks
