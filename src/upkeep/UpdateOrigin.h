#pragma once

#include <QByteArray>
#include <QString>

namespace Quillstacks {

/// Where updates come from, and who signs them: settings of the build.
struct UpdateOrigin {
    QString address;      ///< "https://example.org"; empty where the build names none
    QByteArray publicKey; ///< Ed25519, 32 bytes; empty where the build names none, or none that is one

    [[nodiscard]] static UpdateOrigin ofBuild();
};

} // namespace Quillstacks
