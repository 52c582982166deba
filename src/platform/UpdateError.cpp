#include "platform/UpdateError.h"

#include <array>

namespace Quillstacks {

namespace {

constexpr std::array caseNames{"noOrigin",         "noKey",          "packaged",  "notSecure", "notReached",
                               "insecureRedirect", "badStatus",      "timedOut",  "tooLarge",  "unreadableFeed",
                               "wrongLength",      "wrongSignature", "notWritten"};

} // namespace

UpdateError::UpdateError(Case what, QString more) : kind(what), detail(std::move(more)) {}

QString UpdateError::errorDescription() const {
    switch (kind) {
    case Case::noOrigin:
        return QStringLiteral("This build of Quillstacks names no place to get updates from.");
    case Case::noKey:
        return QStringLiteral("This build of Quillstacks has no key to verify updates with.");
    case Case::packaged:
        return QStringLiteral("This installation of Quillstacks is kept up to date by %1.").arg(detail);
    case Case::notSecure:
        return QStringLiteral("The address of the updates is not secure (HTTPS).");
    case Case::notReached:
        return QStringLiteral("The update server could not be reached: %1.").arg(detail);
    case Case::insecureRedirect:
        return QStringLiteral("The update server leads to an address that is not secure.");
    case Case::badStatus:
        return QStringLiteral("The update server answered with status %1.").arg(detail);
    case Case::timedOut:
        return QStringLiteral("The update server took too long to answer.");
    case Case::tooLarge:
        return QStringLiteral("The update server sent more than was to be expected.");
    case Case::unreadableFeed:
        return QStringLiteral("The list of updates could not be read: %1.").arg(detail);
    case Case::wrongLength:
        return QStringLiteral("The update was not downloaded whole.");
    case Case::wrongSignature:
        return QStringLiteral("The downloaded file was thrown away, since its signature is not the publisher's.");
    case Case::notWritten:
        break;
    }
    return QStringLiteral("The update could not be kept. %1").arg(detail);
}

QString UpdateError::debugDescription() const {
    return QStringLiteral("UpdateError.%1(%2)").arg(QLatin1String(caseNames[static_cast<std::size_t>(kind)]), detail);
}

} // namespace Quillstacks
