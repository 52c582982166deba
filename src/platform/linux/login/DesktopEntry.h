#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace Quillstacks {

/// The main group of a desktop file (Desktop Entry Specification 1.5), as far as autostart asks of it.
class DesktopEntry final {
public:
    explicit DesktopEntry(const QByteArray& contents);
    /// Empty when there is no such regular file, when it can't be read, and when it is larger than any desktop file.
    [[nodiscard]] static std::optional<DesktopEntry> read(const QString& path);

    /// With its escapes resolved; empty when the key is missing.
    [[nodiscard]] QString text(const QByteArray& key) const;
    /// Only "true" is true and only "false" is false.
    [[nodiscard]] bool boolean(const QByteArray& key, bool fallback) const;
    /// Divided by semicolons.
    [[nodiscard]] QStringList list(const QByteArray& key) const;
    /// The program that Exec starts: its first argument, unquoted. Empty when Exec makes no sense.
    [[nodiscard]] QString program() const;

    /// A program's path as the value of Exec.
    [[nodiscard]] static QString execOf(const QString& path);

private:
    QHash<QByteArray, QByteArray> values;
};

} // namespace Quillstacks
