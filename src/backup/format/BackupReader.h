#pragma once

#include "backup/format/ExportedData.h"

#include <QByteArray>

#include <array>
#include <memory>
#include <string_view>

namespace Quillstacks {

struct JsonPlace;
class JsonParser;
class JsonScanner;
class JsonValue;

/// Reads the text of a backup piece by piece: a tag or a prompt at a time, in the order of the document.
///
/// Every key is required and of its type, none may stand twice, and unknown ones are ignored; the whole text must be
/// JSON (RFC 8259) in UTF-8 without a byte order mark. The failure names the key and where it stands:
/// "prompts[3].versions[0].createdAt is not an ISO 8601 date".
class BackupReader final {
public:
    explicit BackupReader(QByteArray text);
    ~BackupReader();
    Q_DISABLE_COPY_MOVE(BackupReader)

    /// Reads the next piece; false when there is none left. Throws BackupError.
    [[nodiscard]] bool step();
    /// How much has been read, from 0 to 1.
    [[nodiscard]] double fraction() const;
    /// What was read, when step() has said that it is all.
    [[nodiscard]] ExportedData take() { return std::move(data); }

    /// The whole document.
    [[nodiscard]] static ExportedData decoded(QByteArray text);

private:
    enum class State { start, fields, tags, prompts, end };
    enum Key { version, exportedAt, tags, prompts, keyCount };

    void begin();
    void nextField();
    void beginField(std::string_view keyText);
    void readField(Key key, std::string_view value);
    void skipField(std::string_view keyText, std::string_view value);
    void nextElement();
    void readElement(std::string_view element);
    void finishObject();
    [[nodiscard]] std::string_view requiredValue();

    QByteArray bytes; ///< with the parser's padding
    std::unique_ptr<JsonScanner> scanner;
    std::unique_ptr<JsonParser> parser;
    State state = State::start;
    bool isFirst = true; ///< nothing stands yet in the bracket that is being read
    qsizetype index = 0; ///< of the next element
    std::array<bool, keyCount> seen{};
    ExportedData data;
};

} // namespace Quillstacks
