// Whatever bytes come as the list of updates: they are refused with one short line that says why, or what they offer is
// sound, and only what is newer than the program is an update. Built with -D QUILLSTACKS_FUZZ=ON and clang; the tests
// run it for a bounded number of rounds.

#include "platform/UpdateError.h"
#include "upkeep/feed/Appcast.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace Quillstacks;

namespace {

constexpr qsizetype signatureLength = 64;

void require(bool condition, const char* what) {
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

bool isShortLine(const QString& text) {
    return text.size() <= Appcast::longestText && !text.contains(u'\n') && !text.contains(QChar(0x202E));
}

bool isSecure(const QUrl& url) {
    return url.isValid() && url.scheme() == QStringLiteral("https") && !url.host().isEmpty();
}

void requireSound(const UpdateItem& item) {
    require(!item.version.isNull() && item.version == item.version.normalized(), "a version that is none");
    require(isShortLine(item.displayVersion) && isShortLine(item.published), "a text that nobody can read");
    require(isSecure(item.url), "a file from an address that is not secure");
    require(item.link.isEmpty() || isSecure(item.link), "a page at an address that is not secure");
    require(item.length > 0 && item.length <= Appcast::largestFile, "a length that no file has");
    require(item.signature.size() == signatureLength, "a signature that is none");
}

void requireUpgrade(std::vector<UpdateItem> items, const QVersionNumber& present) {
    const auto found = Appcast::newest(items, present);
    const auto isNewer = [&present](const UpdateItem& item) { return item.version > present; };
    require(found.has_value() == std::ranges::any_of(items, isNewer), "an update is passed over, or made up");
    if (!found)
        return;
    require(found->version > present, "an update that is none");
    require(std::ranges::none_of(items, [&](const UpdateItem& item) { return item.version > found->version; }),
            "an update that is not the newest");
    std::ranges::reverse(items);
    require(Appcast::newest(items, present)->version == found->version, "the order changes what is newest");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    try {
        const auto items =
            Appcast::read(QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size)));
        std::ranges::for_each(items, requireSound);
        requireUpgrade(items, QVersionNumber());
        requireUpgrade(items, QVersionNumber(2));
    } catch (const UpdateError& error) {
        require(error.which() == UpdateError::Case::unreadableFeed, "a failure of another kind");
        const QString line = error.errorDescription();
        require(line.size() < 200 && !line.contains(u'\n'), "the failure is not one short line");
    }
    return 0;
}
