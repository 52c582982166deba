#include "platform/FileError.h"

#include <system_error>

namespace Quillstacks {

namespace {

QString reason(int errorNumber) {
    return QString::fromStdString(std::generic_category().message(errorNumber));
}

} // namespace

FileError::FileError(QString filePath, int number, QString what)
    : path(std::move(filePath)), errorNumber(number), operation(std::move(what)) {}

QString FileError::errorDescription() const {
    return QStringLiteral("Could not %1 “%2”: %3.").arg(operation, path, reason(errorNumber));
}

QString FileError::debugDescription() const {
    return QStringLiteral("FileError(%1, path: %2, error number: %3, %4)")
        .arg(operation, path, QString::number(errorNumber), reason(errorNumber));
}

} // namespace Quillstacks
