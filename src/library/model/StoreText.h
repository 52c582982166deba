#pragma once

#include "foundation/Date.h"
#include "foundation/Uuid.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace SQLite {
class Column;
class Statement;
} // namespace SQLite

namespace Quillstacks {

/// How values stand in the store. Every QString comes back unit by unit: as TEXT in UTF-8 where that carries it, and
/// otherwise (lone surrogates, U+0000, U+FEFF at the start) as a BLOB of UTF-16, little-endian. A null text is stored
/// as an empty one; NULL is only an absent date. Dates are microseconds since 1970, identifiers their 16 bytes.
namespace StoreText {

void bind(SQLite::Statement& statement, int index, const QString& text);
void bind(SQLite::Statement& statement, int index, const QStringList& texts);
void bind(SQLite::Statement& statement, int index, const Uuid& uuid);
void bind(SQLite::Statement& statement, int index, Date date);
void bind(SQLite::Statement& statement, int index, std::optional<Date> date);
void bind(SQLite::Statement& statement, int index, qint64 value);
void bind(SQLite::Statement& statement, int index, bool value);

/// The readers throw SQLite::Exception with SQLITE_CORRUPT where the column holds what no writer above leaves there.
[[nodiscard]] QString text(const SQLite::Column& column);
[[nodiscard]] QStringList textList(const SQLite::Column& column);
[[nodiscard]] Uuid uuid(const SQLite::Column& column);
[[nodiscard]] Date date(const SQLite::Column& column);
[[nodiscard]] std::optional<Date> optionalDate(const SQLite::Column& column);
[[nodiscard]] qint64 integer(const SQLite::Column& column);

/// Each text as its length in units, 32 bits, and its units, all little-endian.
[[nodiscard]] QByteArray packed(const QStringList& texts);
/// Nothing where the bytes are not those of packed().
[[nodiscard]] std::optional<QStringList> unpacked(QByteArrayView bytes);

} // namespace StoreText
} // namespace Quillstacks
