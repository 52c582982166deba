#include "StoreText.h"

#include <QByteArray>
#include <QtEndian>

#include <sqlite3.h>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>

#include <string>

namespace Quillstacks::StoreText {

namespace {

constexpr qsizetype lengthBytes = sizeof(quint32);
constexpr qsizetype unitBytes = sizeof(char16_t);
constexpr int uuidBytes = 16;

[[noreturn]] void refuse(const char* what) {
    throw SQLite::Exception(what, SQLITE_CORRUPT);
}

/// A leading U+FEFF would be taken for a byte order mark when read back, and tools end a text at U+0000.
bool utf8Carries(const QString& text) {
    return !text.startsWith(QChar::ByteOrderMark) && !text.contains(QChar::Null) && QStringView(text).isValidUtf16();
}

void appendUnits(QByteArray& bytes, const QString& text) {
    const qsizetype start = bytes.size();
    bytes.resize(start + text.size() * unitBytes);
    qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes.data() + start);
}

QString fromUnits(const char* bytes, qsizetype size) {
    QString text(size / unitBytes, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(bytes, text.size(), text.data());
    return text;
}

void bindBytes(SQLite::Statement& statement, int index, const QByteArray& bytes) {
    statement.bind(index, static_cast<const void*>(bytes.constData()), static_cast<int>(bytes.size()));
}

} // namespace

void bind(SQLite::Statement& statement, int index, const QString& text) {
    if (utf8Carries(text)) {
        statement.bind(index, text.toStdString());
        return;
    }
    QByteArray units;
    appendUnits(units, text);
    bindBytes(statement, index, units);
}

void bind(SQLite::Statement& statement, int index, const QStringList& texts) {
    bindBytes(statement, index, packed(texts));
}

void bind(SQLite::Statement& statement, int index, const Uuid& uuid) {
    bindBytes(statement, index, uuid.toRfc4122());
}

void bind(SQLite::Statement& statement, int index, Date date) {
    bind(statement, index, microsecondsSinceEpoch(date));
}

void bind(SQLite::Statement& statement, int index, std::optional<Date> date) {
    if (date)
        bind(statement, index, *date);
    else
        statement.bind(index);
}

void bind(SQLite::Statement& statement, int index, qint64 value) {
    statement.bind(index, static_cast<int64_t>(value));
}

void bind(SQLite::Statement& statement, int index, bool value) {
    statement.bind(index, value ? 1 : 0);
}

QString text(const SQLite::Column& column) {
    const int type = column.getType();
    if (type == SQLITE_TEXT) {
        const char* utf8 = column.getText();
        return QString::fromUtf8(utf8, column.getBytes());
    }
    if (type != SQLITE_BLOB)
        refuse("a text is neither TEXT nor BLOB");
    const char* units = static_cast<const char*>(column.getBlob());
    const int size = column.getBytes();
    if (size % unitBytes != 0)
        refuse("a text of UTF-16 has an odd number of bytes");
    return fromUnits(units, size);
}

QStringList textList(const SQLite::Column& column) {
    if (column.getType() != SQLITE_BLOB)
        refuse("a list of texts is not a BLOB");
    const char* bytes = static_cast<const char*>(column.getBlob());
    const auto texts = unpacked(QByteArrayView(bytes, column.getBytes()));
    if (!texts)
        refuse("a list of texts ends too early");
    return *texts;
}

Uuid uuid(const SQLite::Column& column) {
    const char* bytes = static_cast<const char*>(column.getBlob());
    if (column.getType() != SQLITE_BLOB || column.getBytes() != uuidBytes)
        refuse("an identifier has not 16 bytes");
    return QUuid::fromRfc4122(QByteArrayView(bytes, uuidBytes));
}

qint64 integer(const SQLite::Column& column) {
    if (column.getType() != SQLITE_INTEGER)
        refuse("a number is not an INTEGER");
    return column.getInt64();
}

Date date(const SQLite::Column& column) {
    return dateFromMicroseconds(integer(column));
}

std::optional<Date> optionalDate(const SQLite::Column& column) {
    if (column.getType() == SQLITE_NULL)
        return std::nullopt;
    return date(column);
}

QByteArray packed(const QStringList& texts) {
    QByteArray bytes;
    for (const QString& text : texts) {
        char length[lengthBytes];
        qToLittleEndian(static_cast<quint32>(text.size()), length);
        bytes.append(length, lengthBytes);
        appendUnits(bytes, text);
    }
    return bytes;
}

std::optional<QStringList> unpacked(QByteArrayView bytes) {
    QStringList texts;
    while (!bytes.isEmpty()) {
        if (bytes.size() < lengthBytes)
            return std::nullopt;
        const qsizetype size = qFromLittleEndian<quint32>(bytes.data()) * unitBytes;
        bytes = bytes.sliced(lengthBytes);
        if (bytes.size() < size)
            return std::nullopt;
        texts.append(fromUnits(bytes.data(), size));
        bytes = bytes.sliced(size);
    }
    return texts;
}

} // namespace Quillstacks::StoreText
