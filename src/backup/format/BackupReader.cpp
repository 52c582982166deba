#include "backup/format/BackupReader.h"

#include "backup/format/BackupError.h"

#include "JsonParser.h"
#include "JsonScanner.h"

namespace Quillstacks {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view keys[] = {"version", "exportedAt", "tags", "prompts"};

[[noreturn]] void refuseText(const char* why) {
    throw BackupError(BackupError::Kind::notJson, QStringLiteral("The file is not valid JSON: ") + QLatin1String(why));
}

[[noreturn]] void refuseKey(std::string_view key, const char* why) {
    JsonValue::refuse(JsonPlace{nullptr, key}, why);
}

/// A key and what is done with its value.
template <typename Record>
struct Field {
    std::string_view key;
    void (*read)(Record& record, JsonValue value);
};

template <typename Record, std::size_t count>
Record readRecord(JsonValue value, const Field<Record> (&fields)[count]) {
    Record record;
    bool seen[count] = {};
    value.eachField([&](std::string_view key, JsonValue field) {
        const auto* found = std::ranges::find(fields, key, &Field<Record>::key);
        if (found == std::end(fields))
            return field.skip();
        bool& there = seen[found - std::begin(fields)];
        if (std::exchange(there, true))
            field.refuse("stands there twice");
        found->read(record, std::move(field));
    });
    for (std::size_t at = 0; at < count; ++at) {
        if (!seen[at])
            value.refuseMissing(fields[at].key);
    }
    return record;
}

QStringList readStrings(JsonValue value) {
    QStringList strings;
    value.eachElement([&strings](JsonValue element) { strings.append(element.string()); });
    return strings;
}

constexpr Field<ExportedTag> tagFields[] = {
    {"id", [](ExportedTag& tag, JsonValue value) { tag.id = value.uuid(); }},
    {"name", [](ExportedTag& tag, JsonValue value) { tag.name = value.string(); }},
    {"colorHex", [](ExportedTag& tag, JsonValue value) { tag.colorHex = value.string(); }},
    {"createdAt", [](ExportedTag& tag, JsonValue value) { tag.createdAt = value.date(); }},
    {"updatedAt", [](ExportedTag& tag, JsonValue value) { tag.updatedAt = value.date(); }},
};

using Version = ExportedPromptVersion;
constexpr Field<Version> versionFields[] = {
    {"id", [](Version& version, JsonValue value) { version.id = value.uuid(); }},
    {"promptId", [](Version& version, JsonValue value) { version.promptId = value.uuid(); }},
    {"title", [](Version& version, JsonValue value) { version.title = value.string(); }},
    {"body", [](Version& version, JsonValue value) { version.body = value.string(); }},
    {"tagNames", [](Version& version, JsonValue value) { version.tagNames = readStrings(std::move(value)); }},
    {"tagColors", [](Version& version, JsonValue value) { version.tagColors = readStrings(std::move(value)); }},
    {"createdAt", [](Version& version, JsonValue value) { version.createdAt = value.date(); }},
};

void readTagIds(ExportedPrompt& prompt, JsonValue value) {
    value.eachElement([&prompt](JsonValue element) { prompt.tagIds.append(element.uuid()); });
}

void readVersions(ExportedPrompt& prompt, JsonValue value) {
    value.eachElement([&prompt](JsonValue element) {
        prompt.versions.append(readRecord<Version>(std::move(element), versionFields));
    });
}

constexpr Field<ExportedPrompt> promptFields[] = {
    {"id", [](ExportedPrompt& prompt, JsonValue value) { prompt.id = value.uuid(); }},
    {"title", [](ExportedPrompt& prompt, JsonValue value) { prompt.title = value.string(); }},
    {"body", [](ExportedPrompt& prompt, JsonValue value) { prompt.body = value.string(); }},
    {"createdAt", [](ExportedPrompt& prompt, JsonValue value) { prompt.createdAt = value.date(); }},
    {"updatedAt", [](ExportedPrompt& prompt, JsonValue value) { prompt.updatedAt = value.date(); }},
    {"tagIds", readTagIds},
    {"versions", readVersions},
};

} // namespace

BackupReader::BackupReader(QByteArray text) : bytes(std::move(text)), parser(std::make_unique<JsonParser>()) {
    const auto size = static_cast<std::size_t>(bytes.size());
    bytes.append(qsizetype(JsonParser::padding), '\0');
    scanner = std::make_unique<JsonScanner>(std::string_view(bytes.constData(), size));
}

BackupReader::~BackupReader() = default;

ExportedData BackupReader::decoded(QByteArray text) {
    BackupReader reader(std::move(text));
    while (reader.step()) {
    }
    return reader.take();
}

double BackupReader::fraction() const {
    const auto size = static_cast<double>(bytes.size()) - static_cast<double>(JsonParser::padding);
    return size > 0 ? static_cast<double>(scanner->position()) / size : 1;
}

bool BackupReader::step() {
    switch (state) {
    case State::start:
        begin();
        break;
    case State::fields:
        nextField();
        break;
    case State::tags:
    case State::prompts:
        nextElement();
        break;
    case State::end:
        break;
    }
    return state != State::end;
}

void BackupReader::begin() {
    if (std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())).starts_with(byteOrderMark))
        refuseText("it begins with a byte order mark");
    if (scanner->peek() == '\0' && fraction() >= 1)
        refuseText("it is empty");
    if (!scanner->take('{'))
        throw BackupError(BackupError::Kind::notABackup, QStringLiteral("The file is not a JSON object"));
    state = State::fields;
}

void BackupReader::nextField() {
    if (scanner->take('}'))
        return finishObject();
    if (!isFirst && !scanner->take(','))
        refuseText("a comma or the end of the object is missing");
    isFirst = false;
    if (scanner->peek() != '"')
        refuseText("a key is missing");
    const std::string_view key = requiredValue();
    if (!scanner->take(':'))
        refuseText("a colon is missing");
    beginField(key);
}

void BackupReader::beginField(std::string_view keyText) {
    Key known = keyCount;
    parser->readField(keyText, "null", JsonPlace{nullptr, "A key"}, [&](std::string_view key, JsonValue nothing) {
        known = static_cast<Key>(std::ranges::find(keys, key) - std::begin(keys));
        nothing.skip();
    });
    if (known == keyCount)
        return skipField(keyText, requiredValue());
    if (std::exchange(seen[known], true))
        refuseKey(keys[known], "stands there twice");
    if ((known == tags || known == prompts) && scanner->take('[')) {
        state = known == tags ? State::tags : State::prompts;
        isFirst = true;
        index = 0;
        return;
    }
    readField(known, requiredValue());
}

void BackupReader::readField(Key key, std::string_view value) {
    parser->readField("\"\"", value, JsonPlace{nullptr, keys[key]}, [&](std::string_view, JsonValue field) {
        if (key == version)
            data.version = field.string();
        else if (key == exportedAt)
            data.exportedAt = field.date();
        else
            field.refuse("is not an array");
    });
}

void BackupReader::skipField(std::string_view keyText, std::string_view value) {
    parser->readField(keyText, value, JsonPlace{nullptr, "A value of an unknown key"},
                      [](std::string_view, JsonValue field) { field.skip(); });
}

void BackupReader::nextElement() {
    if (scanner->take(']')) {
        state = State::fields;
        isFirst = false;
        return;
    }
    if (!isFirst && !scanner->take(','))
        refuseText("a comma or the end of an array is missing");
    isFirst = false;
    readElement(requiredValue());
    ++index;
}

void BackupReader::readElement(std::string_view element) {
    const JsonPlace list{nullptr, state == State::tags ? keys[tags] : keys[prompts]};
    const JsonPlace place{&list, {}, index};
    if (element.front() != '{')
        JsonValue::refuse(place, "is not an object");
    parser->read(element, place, [this](JsonValue value) {
        if (state == State::tags)
            data.tags.append(readRecord(std::move(value), tagFields));
        else
            data.prompts.append(readRecord(std::move(value), promptFields));
    });
}

void BackupReader::finishObject() {
    if (scanner->peek() != '\0' || fraction() < 1)
        refuseText("something stands after its end");
    for (std::size_t key = 0; key < keyCount; ++key) {
        if (!seen[key])
            refuseKey(keys[key], "is missing");
    }
    state = State::end;
}

std::string_view BackupReader::requiredValue() {
    const std::string_view value = scanner->value();
    if (value.empty())
        refuseText(scanner->peek() == '\0' ? "it ends too early" : "a value is missing or has no end");
    return value;
}

} // namespace Quillstacks
