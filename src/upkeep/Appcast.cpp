#include "upkeep/Appcast.h"

#include "platform/UpdateError.h"

#include <QSysInfo>
#include <QXmlStreamReader>

#include <algorithm>

namespace Quillstacks::Appcast {

namespace {

constexpr qsizetype signatureLength = 64;

bool isSparkle(QStringView nameSpace) {
    return nameSpace == QStringLiteral("http://www.andymatuschak.org/xml-namespaces/sparkle");
}

[[noreturn]] void refuse(const QString& what) {
    throw UpdateError(UpdateError::Case::unreadableFeed, what);
}

/// What an item says, before it is judged.
struct Draft {
    QString version;
    QString shortVersion;
    QString published;
    QString link;
    QXmlStreamAttributes enclosure;
    int enclosures = 0;

    [[nodiscard]] QString sparkle(const char* name) const {
        return enclosure
            .value(QStringLiteral("http://www.andymatuschak.org/xml-namespaces/sparkle"), QString::fromLatin1(name))
            .toString();
    }
};

bool isForThisComputer(const QString& os) {
    return os == QStringLiteral("linux") || os == QStringLiteral("linux-") + QSysInfo::buildCpuArchitecture();
}

/// Digits and dots alone: anything else is no release.
QVersionNumber versionOf(const QString& text) {
    qsizetype end = 0;
    const QVersionNumber version = QVersionNumber::fromString(text, &end);
    return end == text.size() ? version.normalized() : QVersionNumber();
}

QUrl secureUrl(const QString& text) {
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && url.scheme() == QStringLiteral("https") && !url.host().isEmpty() ? url : QUrl();
}

std::optional<UpdateItem> judged(const Draft& draft) {
    UpdateItem item;
    const QString version = draft.version.isEmpty() ? draft.sparkle("version") : draft.version;
    const QString shown = draft.shortVersion.isEmpty() ? draft.sparkle("shortVersionString") : draft.shortVersion;
    item.version = versionOf(version);
    item.displayVersion = shown.isEmpty() ? version : shown;
    item.published = draft.published;
    item.link = secureUrl(draft.link);
    item.url = secureUrl(draft.enclosure.value(QStringLiteral("url")).toString());
    item.length = draft.enclosure.value(QStringLiteral("length")).toLongLong();
    const auto signature = QByteArray::fromBase64Encoding(draft.sparkle("edSignature").toLatin1(),
                                                          QByteArray::AbortOnBase64DecodingErrors);
    item.signature = signature ? *signature : QByteArray();
    // With several files it would be a guess which one is meant.
    const bool isUsable = draft.enclosures == 1 && isForThisComputer(draft.sparkle("os")) && !item.version.isNull() &&
                          item.url.isValid() && !item.url.isEmpty() && item.length > 0 && item.length <= largestFile &&
                          item.signature.size() == signatureLength;
    return isUsable ? std::optional(item) : std::nullopt;
}

Draft readItem(QXmlStreamReader& xml) {
    Draft draft;
    while (xml.readNextStartElement()) {
        const QStringView name = xml.name();
        const bool ours = isSparkle(xml.namespaceUri());
        if (ours && name == QStringLiteral("version")) {
            draft.version = xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        } else if (ours && name == QStringLiteral("shortVersionString")) {
            draft.shortVersion = xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        } else if (name == QStringLiteral("pubDate")) {
            draft.published = xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        } else if (name == QStringLiteral("link")) {
            draft.link = xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        } else {
            if (name == QStringLiteral("enclosure")) {
                draft.enclosure = xml.attributes();
                ++draft.enclosures;
            }
            xml.skipCurrentElement();
        }
    }
    return draft;
}

} // namespace

std::vector<UpdateItem> read(const QByteArray& feed) {
    // What a document defines for itself can grow without bounds; no appcast needs it.
    if (feed.contains("<!DOCTYPE"))
        refuse(QStringLiteral("it defines its own names"));
    QXmlStreamReader xml(feed);
    std::vector<UpdateItem> items;
    if (!xml.readNextStartElement() || xml.name() != QStringLiteral("rss"))
        refuse(xml.hasError() ? xml.errorString() : QStringLiteral("it is no RSS"));
    while (xml.readNextStartElement()) {
        if (xml.name() != QStringLiteral("channel")) {
            xml.skipCurrentElement();
            continue;
        }
        while (xml.readNextStartElement()) {
            if (xml.name() != QStringLiteral("item"))
                xml.skipCurrentElement();
            else if (auto item = judged(readItem(xml)))
                items.push_back(*std::move(item));
        }
    }
    // To the end: half a list is no list.
    while (!xml.atEnd())
        xml.readNext();
    if (xml.hasError())
        refuse(xml.errorString());
    return items;
}

std::optional<UpdateItem> newest(const std::vector<UpdateItem>& items, const QVersionNumber& present) {
    const auto found = std::ranges::max_element(items, {}, &UpdateItem::version);
    if (found == items.end() || found->version <= present.normalized())
        return std::nullopt;
    return *found;
}

} // namespace Quillstacks::Appcast
