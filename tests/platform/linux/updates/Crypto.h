#pragma once

#include <QByteArray>
#include <QSslCertificate>
#include <QSslKey>

namespace Quillstacks {

/// A publisher of updates, with a key of its own.
class Publisher final {
public:
    Publisher();
    ~Publisher();
    Q_DISABLE_COPY_MOVE(Publisher)

    [[nodiscard]] QByteArray publicKey() const;
    [[nodiscard]] QByteArray sign(const QByteArray& message) const;

private:
    void* key;
};

/// A server's certificate for 127.0.0.1, signed by itself, with its key.
struct ServerIdentity {
    QSslCertificate certificate;
    QSslKey key;

    [[nodiscard]] static ServerIdentity make();
};

} // namespace Quillstacks
