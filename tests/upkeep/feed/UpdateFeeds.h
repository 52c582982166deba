#pragma once

#include <QByteArray>

#include <vector>

namespace Quillstacks {

/// What an item of an appcast is made of; by default a good one for version 2.0.
struct FeedItem {
    QByteArray version = "2.0";
    QByteArray shortVersion = "2.0 “Ink”";
    QByteArray os = "linux";
    QByteArray url = "https://example.org/quillstacks-2.0.deb";
    QByteArray length = "12345";
    QByteArray signature = QByteArray(64, 's').toBase64();
    QByteArray link = "https://example.org/notes/2.0";
    QByteArray more{}; ///< attributes of the enclosure
};

inline QByteArray feedItem(const FeedItem& item) {
    const auto element = [](const QByteArray& name, const QByteArray& text) {
        return text.isEmpty() ? QByteArray() : "<" + name + ">" + text + "</" + name + ">\n";
    };
    const QByteArray os = item.os.isEmpty() ? QByteArray() : " sparkle:os=\"" + item.os + "\"";
    return "<item>\n<title>A version</title>\n" + element("sparkle:version", item.version) +
           element("sparkle:shortVersionString", item.shortVersion) +
           "<pubDate>Mon, 05 Jan 2026 10:00:00 +0000</pubDate>\n" + element("link", item.link) + "<enclosure url=\"" +
           item.url + "\" length=\"" + item.length + "\" type=\"application/octet-stream\" sparkle:edSignature=\"" +
           item.signature + "\"" + os + " " + item.more + "/>\n</item>\n";
}

inline QByteArray feedOf(const std::vector<QByteArray>& items) {
    QByteArray all;
    for (const QByteArray& item : items)
        all += item;
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<rss version=\"2.0\" xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">\n"
           "<channel>\n<title>Quillstacks</title>\n" +
           all + "</channel>\n</rss>\n";
}

} // namespace Quillstacks
