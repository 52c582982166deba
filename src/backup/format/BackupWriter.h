#pragma once

#include "backup/format/ExportedData.h"

#include <QByteArray>

namespace Quillstacks {

/// Writes the text of a backup piece by piece, so that a library need not stand in memory as records for it: two spaces
/// of indent, a blank on either side of a colon, "[]" for an empty list, a backslash before a slash.
///
/// What no UTF-8 can carry (half of a surrogate pair) is written as U+FFFD.
class BackupWriter final {
public:
    /// Appends to `text`, which must outlive the writer, what stands before the first prompt: version, date and tags.
    /// The prompts of `data` are not written.
    BackupWriter(QByteArray& text, const ExportedData& data);

    void write(const ExportedPrompt& prompt);
    /// Writes what stands after the last prompt. Nothing may be written afterwards.
    void finish();

    /// The whole document.
    [[nodiscard]] static QByteArray encoded(const ExportedData& data);

private:
    enum class Bracket : char { object = '{', array = '[' };

    void open(Bracket bracket);
    void close(Bracket bracket);
    void nextLine();
    void beginElement();
    void key(const char* name);
    void field(const char* name, const QString& value);
    void field(const char* name, const Uuid& value);
    void field(const char* name, Date value);
    void field(const char* name, const QStringList& values);
    void field(const char* name, const QList<Uuid>& values);
    void write(const ExportedTag& tag);
    void write(const ExportedPromptVersion& version);
    void string(QStringView value);
    void uuid(const Uuid& value);

    QByteArray& text;
    int depth = 0;
    bool isEmpty = true; ///< nothing stands yet in the innermost bracket
};

} // namespace Quillstacks
