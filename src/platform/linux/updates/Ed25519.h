#pragma once

#include <QByteArrayView>

namespace Quillstacks::Ed25519 {

/// Whether `signature` is that of `message` under the public key (RFC 8032). False for keys and signatures that are
/// none.
[[nodiscard]] bool verifies(QByteArrayView message, QByteArrayView signature, QByteArrayView publicKey);

} // namespace Quillstacks::Ed25519
