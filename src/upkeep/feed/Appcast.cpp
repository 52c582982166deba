#include "upkeep/feed/Appcast.h"

#include "platform/UpdateError.h"

#include <QSysInfo>
#include <QXmlStreamReader>

#include <algorithm>

namespace Quillstacks::Appcast {

namespace {

constexpr qsizetype signatureLength = 64;
constexpr qsizetype longestAddress = 2048;

bool isSparkle(QStringView nameSpace) {
    return nameSpace == QStringLiteral("http://www.andymatuschak.org/xml-namespaces/sparkle");
}

/// A text of the feed's, as an alert or the log can show it: one line, not a long one, without what turns writing
/// round or is not seen at all.
QString forReading(const QString& text) {
    QString line = text.left(2 * longestText).simplified();
    line.removeIf([](QChar letter) { return !letter.isPrint() && !letter.isSurrogate(); });
    line.truncate(longestText);
    if (!line.isEmpty() && line.back().isHighSurrogate())
        line.chop(1);
    return line;
}

/// The reason stands within a sentence, and may quote names of the feed's.
[[noreturn]] void refuse(const QString& what) {
    QString reason = forReading(what);
    while (reason.endsWith(u'.'))
        reason.chop(1);
    throw UpdateError(UpdateError::Case::unreadableFeed, reason);
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
    if (text.size() > longestText)
        return {};
    qsizetype end = 0;
    const QVersionNumber version = QVersionNumber::fromString(text, &end);
    return end == text.size() ? version.normalized() : QVersionNumber();
}

QUrl secureUrl(const QString& text) {
    if (text.size() > longestAddress)
        return {};
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && url.scheme() == QStringLiteral("https") && !url.host().isEmpty() ? url : QUrl();
}

std::optional<UpdateItem> judged(const Draft& draft) {
    UpdateItem item;
    const QString version = draft.version.isEmpty() ? draft.sparkle("version") : draft.version;
    const QString shown = draft.shortVersion.isEmpty() ? draft.sparkle("shortVersionString") : draft.shortVersion;
    item.version = versionOf(version);
    item.displayVersion = forReading(shown.isEmpty() ? version : shown);
    item.published = forReading(draft.published);
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

void enterRss(QXmlStreamReader& xml) {
    while (!xml.atEnd() && xml.readNext() != QXmlStreamReader::StartElement) {
        // What a document defines for itself can grow without bounds; no appcast needs it.
        if (xml.tokenType() == QXmlStreamReader::DTD)
            refuse(QStringLiteral("it defines its own names"));
    }
    if (!xml.isStartElement() || xml.name() != QStringLiteral("rss"))
        refuse(xml.hasError() ? xml.errorString() : QStringLiteral("it is no RSS"));
}

} // namespace

std::vector<UpdateItem> read(const QByteArray& feed) {
    QXmlStreamReader xml(feed);
    std::vector<UpdateItem> items;
    enterRss(xml);
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
