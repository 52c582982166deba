#pragma once

#include "upkeep/feed/UpdateItem.h"

#include <optional>
#include <vector>

/// The list of versions that the update server publishes: RSS 2.0 with the elements and attributes of Sparkle's
/// namespace (version, shortVersionString, edSignature, os).
namespace Quillstacks::Appcast {

/// In bytes. No list of versions is larger.
inline constexpr qint64 largestFeed = 1024 * 1024;
inline constexpr qint64 largestFile = qint64(1024) * 1024 * 1024;
/// Of what an item says for people to read, in UTF-16 units.
inline constexpr qsizetype longestText = 100;

/// What the list has for this computer: items whose `os` is "linux", or "linux-" and this processor ("linux-x86_64",
/// "linux-arm64"), with a plain version number, an HTTPS address, a length and a signature. Others are passed over.
/// Throws UpdateError (unreadableFeed) for what is no well-formed RSS, to its end.
[[nodiscard]] std::vector<UpdateItem> read(const QByteArray& feed);

/// The newest of them that is newer than the program's version; empty when there is none.
[[nodiscard]] std::optional<UpdateItem> newest(const std::vector<UpdateItem>& items, const QVersionNumber& present);

} // namespace Quillstacks::Appcast
