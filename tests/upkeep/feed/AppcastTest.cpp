#include "upkeep/feed/Appcast.h"

#include "platform/UpdateError.h"
#include "UpdateFeeds.h"

#include <QSysInfo>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

QString refusalOf(const QByteArray& feed) {
    try {
        std::ignore = Appcast::read(feed);
    } catch (const UpdateError& error) {
        EXPECT_EQ(error.which(), UpdateError::Case::unreadableFeed);
        return error.errorDescription();
    }
    return {};
}

std::optional<UpdateItem> only(const QByteArray& item) {
    const auto items = Appcast::read(feedOf({item}));
    EXPECT_LE(items.size(), 1U);
    return items.empty() ? std::nullopt : std::optional(items.front());
}

TEST(Appcast, anItemIsReadWithAllItSays) {
    const auto item = only(feedItem({}));
    ASSERT_TRUE(item);
    EXPECT_EQ(item->version, QVersionNumber(2));
    EXPECT_EQ(item->displayVersion, QStringLiteral("2.0 “Ink”"));
    EXPECT_EQ(item->published, QStringLiteral("Mon, 05 Jan 2026 10:00:00 +0000"));
    EXPECT_EQ(item->link, QUrl(QStringLiteral("https://example.org/notes/2.0")));
    EXPECT_EQ(item->url, QUrl(QStringLiteral("https://example.org/quillstacks-2.0.deb")));
    EXPECT_EQ(item->length, 12345);
    EXPECT_EQ(item->signature, QByteArray(64, 's'));
}

TEST(Appcast, versionsMayStandInTheEnclosure) {
    const auto item = only(feedItem({.version = "", .shortVersion = "", .more = "sparkle:version=\"3.1\""}));
    ASSERT_TRUE(item);
    EXPECT_EQ(item->version, QVersionNumber(3, 1));
    EXPECT_EQ(item->displayVersion, QStringLiteral("3.1"));
}

TEST(Appcast, anItemOfAnotherOsIsPassedOver) {
    EXPECT_FALSE(only(feedItem({.os = "macos"})));
    EXPECT_FALSE(only(feedItem({.os = "windows"})));
    EXPECT_FALSE(only(feedItem({.os = ""}))) << "where none is named, it isn't ours that is meant";
    EXPECT_FALSE(only(feedItem({.os = "linux-another"})));
    EXPECT_TRUE(only(feedItem({.os = "linux-" + QSysInfo::buildCpuArchitecture().toLatin1()})));
}

TEST(Appcast, anItemWithoutAUsableFileIsPassedOver) {
    EXPECT_FALSE(only(feedItem({.url = "http://example.org/plain.deb"})));
    EXPECT_FALSE(only(feedItem({.url = "file:///etc/passwd"})));
    EXPECT_FALSE(only(feedItem({.url = "relative.deb"})));
    EXPECT_FALSE(only(feedItem({.url = "https:///nohost"})));
    EXPECT_FALSE(only(feedItem({.url = ""})));
    for (const char* length : {"", "0", "-1", "many", "99999999999999999999", "1073741825"})
        EXPECT_FALSE(only(feedItem({.length = length}))) << length;
    EXPECT_FALSE(only(feedItem({.signature = ""})));
    EXPECT_FALSE(only(feedItem({.signature = "not base64!"})));
    EXPECT_FALSE(only(feedItem({.signature = QByteArray(63, 's').toBase64()})));
    EXPECT_FALSE(only("<item><sparkle:version>2.0</sparkle:version></item>"));
}

TEST(Appcast, anItemWithTwoFilesIsPassedOver) {
    QByteArray item = feedItem({});
    const qsizetype at = item.indexOf("<enclosure");
    item.insert(at, item.mid(at, item.indexOf("/>", at) + 2 - at));
    EXPECT_FALSE(only(item));
}

TEST(Appcast, aVersionThatIsNoPlainNumberIsPassedOver) {
    for (const char* version : {"", "2.0-beta", "v2", "two", "2..0", "."})
        EXPECT_FALSE(only(feedItem({.version = version}))) << version;
    EXPECT_TRUE(only(feedItem({.version = " 2.0\n"})));
}

TEST(Appcast, aLinkThatIsNotSecureIsLeftOut) {
    const auto item = only(feedItem({.link = "javascript:alert(1)"}));
    ASSERT_TRUE(item);
    EXPECT_TRUE(item->link.isEmpty());
}

TEST(Appcast, anAddressWithoutEndIsNone) {
    const QByteArray endless = "https://example.org/" + QByteArray(100'000, 'a');
    EXPECT_FALSE(only(feedItem({.url = endless})));
    const auto item = only(feedItem({.link = endless}));
    ASSERT_TRUE(item);
    EXPECT_TRUE(item->link.isEmpty());
}

TEST(Appcast, aTextIsOneShortLineWhateverTheFeedSays) {
    const auto item = only(feedItem({.shortVersion = "2.0\n\nInk \xE2\x80\xAE" + QByteArray(500'000, 'k')}));
    ASSERT_TRUE(item);
    EXPECT_EQ(item->displayVersion.size(), Appcast::longestText);
    EXPECT_TRUE(item->displayVersion.startsWith(QStringLiteral("2.0 Ink kkk")));
}

TEST(Appcast, aTextIsNotCutWithinACharacter) {
    const auto item = only(feedItem({.shortVersion = "2" + QByteArray("\xF0\x9F\xAA\xB6").repeated(100)}));
    ASSERT_TRUE(item);
    EXPECT_EQ(item->displayVersion.size(), Appcast::longestText - 1);
    EXPECT_TRUE(item->displayVersion.back().isLowSurrogate());
}

TEST(Appcast, aVersionWithoutEndIsNone) {
    EXPECT_FALSE(only(feedItem({.version = QByteArray("1.").repeated(100'000) + "1"})));
    EXPECT_FALSE(only(feedItem({.version = QByteArray(1000, '9')})));
}

TEST(Appcast, theSameNamesOfAnotherNamespaceAreOthers) {
    QByteArray feed = feedOf({feedItem({})});
    feed.replace("http://www.andymatuschak.org/xml-namespaces/sparkle", "urn:other");
    EXPECT_TRUE(Appcast::read(feed).empty());
}

TEST(Appcast, anEmptyListIsAListAndHasNothing) {
    EXPECT_TRUE(Appcast::read(feedOf({})).empty());
}

TEST(Appcast, aMalformedFeedIsRefused) {
    EXPECT_FALSE(refusalOf("").isEmpty());
    EXPECT_FALSE(refusalOf("{\"not\": \"xml\"}").isEmpty());
    EXPECT_FALSE(refusalOf("<html><body>Please log in to the network</body></html>").isEmpty());
    EXPECT_FALSE(refusalOf(QByteArray("\xff\xfe\x00\x01", 4)).isEmpty());
    EXPECT_FALSE(refusalOf(feedOf({feedItem({})}) + "<rss/>").isEmpty());
}

TEST(Appcast, aFeedCutAnywhereIsRefusedWhole) {
    const QByteArray feed = feedOf({feedItem({}), feedItem({.version = "3.0"})}).trimmed();
    for (qsizetype length = 0; length < feed.size(); ++length)
        EXPECT_FALSE(refusalOf(feed.first(length)).isEmpty()) << length;
}

TEST(Appcast, aFeedThatDefinesItsOwnNamesIsRefused) {
    QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE rss [<!ENTITY a \"x\">";
    for (char name = 'b'; name < 'p'; ++name) {
        const QByteArray below = QByteArray("&") + char(name - 1) + ";";
        bomb += QByteArray("<!ENTITY ") + name + " \"" + below.repeated(10) + "\">";
    }
    EXPECT_FALSE(refusalOf(bomb + "]><rss><channel><title>&o;</title></channel></rss>").isEmpty());
}

TEST(Appcast, aFeedThatDefinesItsOwnNamesIsRefusedInEveryEncoding) {
    const QString feed = QStringLiteral("\uFEFF<!DOCTYPE rss [<!ENTITY a \"x\">]><rss><channel>&a;</channel></rss>");
    EXPECT_FALSE(refusalOf(feed.toUtf8()).isEmpty());
    EXPECT_FALSE(
        refusalOf(QByteArray(reinterpret_cast<const char*>(feed.utf16()), feed.size() * qsizetype(sizeof(char16_t))))
            .isEmpty());
}

TEST(Appcast, notesThatAreAPageOfTheirOwnAreReadOver) {
    const QByteArray notes = "<description><![CDATA[<!DOCTYPE html><html><b>New!</b></html>]]></description>";
    QByteArray item = feedItem({});
    item.insert(item.indexOf("<enclosure"), notes);
    EXPECT_TRUE(only(item));
}

TEST(Appcast, theReasonOfARefusalIsOneSentence) {
    const QByteArray name(100'000, 'n');
    for (const QByteArray& feed :
         {QByteArray("<rss>"), QByteArray("<rss><" + name + "></x></rss>"), QByteArray("<rss>&" + name + ";</rss>")}) {
        const QString reason = refusalOf(feed);
        EXPECT_LT(reason.size(), 200);
        EXPECT_TRUE(reason.endsWith(u'.'));
        EXPECT_FALSE(reason.endsWith(QStringLiteral(".."))) << reason.toStdString();
    }
}

TEST(Appcast, elementsNestedWithoutEndAreReadOver) {
    const int depth = 100'000;
    const QByteArray deep = QByteArray("<x>").repeated(depth) + QByteArray("</x>").repeated(depth);
    EXPECT_EQ(Appcast::read(feedOf({deep, feedItem({})})).size(), 1U);
}

TEST(Appcast, theNewestIsChosenWhateverTheOrder) {
    const auto items = Appcast::read(
        feedOf({feedItem({.version = "1.9"}), feedItem({.version = "1.10"}), feedItem({.version = "1.2"})}));
    const auto found = Appcast::newest(items, QVersionNumber(1, 0, 0));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->version, QVersionNumber(1, 10));
}

TEST(Appcast, whatIsOlderOrTheSameIsNoUpdate) {
    const auto items = Appcast::read(feedOf({feedItem({.version = "1.2"}), feedItem({.version = "1.1.9"})}));
    EXPECT_FALSE(Appcast::newest(items, QVersionNumber(1, 3)));
    EXPECT_FALSE(Appcast::newest(items, QVersionNumber(1, 2)));
    EXPECT_FALSE(Appcast::newest(items, QVersionNumber(1, 2, 0))) << "1.2 and 1.2.0 are the same";
    EXPECT_TRUE(Appcast::newest(items, QVersionNumber(1, 1, 10)));
    EXPECT_FALSE(Appcast::newest({}, QVersionNumber(1)));
}

} // namespace
} // namespace Quillstacks
