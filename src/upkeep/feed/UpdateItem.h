#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <QVersionNumber>

namespace Quillstacks {

/// One version of the program, as the appcast announces it for this computer. Its texts are single lines.
struct UpdateItem {
    QVersionNumber version; ///< what is compared, with the program's own
    QString displayVersion; ///< what the user reads
    QString published;      ///< the date as the appcast has it; may be empty
    QUrl link;              ///< a page about it; may be empty
    QUrl url;               ///< of the file, HTTPS
    qint64 length = 0;      ///< of the file, in bytes
    QByteArray signature;   ///< Ed25519 over the file
};

} // namespace Quillstacks
