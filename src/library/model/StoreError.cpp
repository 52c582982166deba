#include "library/model/StoreError.h"

#include <utility>

namespace Quillstacks {

namespace {

QString reason(StoreError::Kind kind) {
    switch (kind) {
    case StoreError::Kind::cannotOpen:
        return QStringLiteral("The library at “%1” can't be opened.");
    case StoreError::Kind::notADatabase:
        return QStringLiteral("The library at “%1” is damaged, or is another kind of file.");
    case StoreError::Kind::unknownSchema:
        return QStringLiteral("The library at “%1” was written by another program, or by a newer version of this one.");
    case StoreError::Kind::locked:
        return QStringLiteral("The library at “%1” is held open by another program.");
    case StoreError::Kind::diskFull:
        return QStringLiteral("There is no space left on the disk for the library at “%1”.");
    case StoreError::Kind::readOnly:
        return QStringLiteral("The library at “%1” can't be written.");
    case StoreError::Kind::failed:
        break;
    }
    return QStringLiteral("The library at “%1” could not be read or written.");
}

const char* caseName(StoreError::Kind kind) {
    switch (kind) {
    case StoreError::Kind::cannotOpen:
        return "cannotOpen";
    case StoreError::Kind::notADatabase:
        return "notADatabase";
    case StoreError::Kind::unknownSchema:
        return "unknownSchema";
    case StoreError::Kind::locked:
        return "locked";
    case StoreError::Kind::diskFull:
        return "diskFull";
    case StoreError::Kind::readOnly:
        return "readOnly";
    case StoreError::Kind::failed:
        break;
    }
    return "failed";
}

} // namespace

StoreError::StoreError(Kind kind, QString storePath, QString systemDetail)
    : failure(kind), path(std::move(storePath)), detail(std::move(systemDetail)) {}

QString StoreError::errorDescription() const {
    const QString sentence = reason(failure).arg(path);
    return detail.isEmpty() ? sentence : QStringLiteral("%1 (%2)").arg(sentence, detail);
}

QString StoreError::debugDescription() const {
    return QStringLiteral("StoreError.%1(path: \"%2\", detail: \"%3\")")
        .arg(QLatin1String(caseName(failure)), path, detail);
}

} // namespace Quillstacks
