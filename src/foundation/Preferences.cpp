#include "foundation/Preferences.h"

#include "foundation/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>

namespace Quillstacks {
namespace {

Preferences* replacement = nullptr;

constexpr QFile::Permissions onlyOwnerFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions onlyOwnerFolder = onlyOwnerFile | QFile::ExeOwner;

/// Makes the folder and those above it that are missing, for the owner alone.
bool makeFolder(const QString& path) {
    if (QFileInfo(path).isDir())
        return true;
    return makeFolder(QFileInfo(path).absolutePath()) && QDir().mkdir(path, onlyOwnerFolder);
}

/// Takes the rights of group and others from a file or folder that was made with more than it should have. File systems
/// without rights, and another owner's file, refuse this; it serves all the same.
void closeToOthers(const QString& path) {
    constexpr QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    const QFile::Permissions rights = QFile::permissions(path);
    if (rights & others)
        QFile::setPermissions(path, rights & ~others);
}

/// Gives a file that can't be used another name; an earlier one of that name stays.
bool setAside(const QString& path) {
    const QString plain = path + QStringLiteral(".broken");
    QString name = plain;
    for (int number = 2; QFileInfo(name).exists() || QFileInfo(name).isSymLink(); ++number)
        name = plain + QString::number(number);
    return QDir().rename(path, name);
}

} // namespace

Preferences::Preferences(QString filePath, QObject* parent) : QObject(parent), path(std::move(filePath)) {
    load();
}

Preferences& Preferences::standard() {
    if (replacement)
        return *replacement;
    static Preferences& own = *new Preferences(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                                               QStringLiteral("/app.Quillstacks/preferences.json"));
    return own;
}

void Preferences::setStandard(Preferences* preferences) {
    replacement = preferences;
}

void Preferences::load() {
    if (!QFileInfo::exists(path))
        return;
    closeToOthers(QFileInfo(path).absolutePath());
    closeToOthers(path);
    QString reason = QStringLiteral("not a regular file");
    if (QFileInfo(path).isFile()) {
        QFile file(path);
        const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        // It may be readable again at the next start, with all that it holds.
        unread = file.error() != QFile::NoError;
        QJsonParseError parse;
        const QJsonDocument document = QJsonDocument::fromJson(bytes, &parse);
        if (!unread && document.isObject()) {
            values = document.object();
            return;
        }
        reason = parse.error == QJsonParseError::NoError ? QStringLiteral("not an object") : parse.errorString();
        if (unread)
            reason = file.errorString();
    }
    Log::general.error(QStringLiteral("Preferences can't be read, defaults apply: %1 (%2)").arg(path, reason));
    unusable = !unread && !setAside(path);
}

bool Preferences::contains(const QString& key) const {
    return values.contains(key);
}

std::optional<bool> Preferences::boolean(const QString& key) const {
    const QJsonValue value = values.value(key);
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<qint64> Preferences::integer(const QString& key) const {
    const QJsonValue value = values.value(key);
    // A number that is no integer of 64 bits reads as whatever default is given.
    const qint64 number = value.toInteger(0);
    return number != 0 || value.toInteger(1) == 0 ? std::optional(number) : std::nullopt;
}

std::optional<QString> Preferences::text(const QString& key) const {
    const QJsonValue value = values.value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

void Preferences::set(const QString& key, bool value) {
    change(key, value);
}

void Preferences::set(const QString& key, qint64 value) {
    change(key, value);
}

void Preferences::set(const QString& key, const QString& value) {
    change(key, value);
}

void Preferences::remove(const QString& key) {
    change(key, QJsonValue(QJsonValue::Undefined));
}

void Preferences::change(const QString& key, const QJsonValue& value) {
    if (values.value(key) == value)
        return;
    if (value.isUndefined())
        values.remove(key);
    else
        values.insert(key, value);
    dirty = true;
    synchronizeUnlessBatched();
    Q_EMIT changed(key);
}

void Preferences::removePersistentDomain() {
    const QStringList keys = values.keys();
    if (keys.isEmpty())
        return;
    values = {};
    dirty = true;
    synchronizeUnlessBatched();
    for (const QString& key : keys)
        Q_EMIT changed(key);
}

void Preferences::synchronize() {
    if (dirty)
        write();
}

void Preferences::synchronizeUnlessBatched() {
    if (batches == 0)
        synchronize();
}

void Preferences::write() {
    const auto failed = [this](const QString& reason) {
        Log::general.error(QStringLiteral("Preferences can't be written: %1 (%2)").arg(path, reason));
    };
    if (unread && QFileInfo::exists(path))
        return failed(QStringLiteral("it could not be read at the start, and what it holds would be lost"));
    unread = false;
    if (unusable && QFileInfo::exists(path) && !setAside(path))
        return failed(QStringLiteral("the unreadable file can't be set aside"));
    unusable = false;
    // The file behind a link is the one to replace, not the link.
    const QString target = QFileInfo(path).canonicalFilePath();
    if (target.isEmpty() && !makeFolder(QFileInfo(path).absolutePath()))
        return failed(QStringLiteral("the folder can't be made"));
    QSaveFile file(target.isEmpty() ? path : target);
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(onlyOwnerFile))
        return failed(file.errorString());
    const QByteArray bytes = QJsonDocument(values).toJson();
    if (file.write(bytes) != bytes.size() || !file.commit())
        return failed(file.errorString());
    dirty = false;
}

Preferences::Batch::Batch(Preferences& target) : preferences(target) {
    ++preferences.batches;
}

Preferences::Batch::~Batch() {
    --preferences.batches;
    preferences.synchronizeUnlessBatched();
}

} // namespace Quillstacks
