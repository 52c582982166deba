#include "backup/format/BackupWriter.h"

#include "BackupText.h"

#include <QStringEncoder>

#include <array>

namespace Quillstacks {
namespace {

constexpr int indent = 2;

/// What stands after the backslash for a character that may not stand for itself; 'u' where it has no short form.
constexpr std::array<char, 128> makeEscapes() {
    std::array<char, 128> escapes{};
    for (std::size_t control = 0; control < 0x20; ++control)
        escapes[control] = 'u';
    escapes['\b'] = 'b';
    escapes['\t'] = 't';
    escapes['\n'] = 'n';
    escapes['\f'] = 'f';
    escapes['\r'] = 'r';
    escapes['"'] = '"';
    escapes['\\'] = '\\';
    escapes['/'] = '/';
    return escapes;
}

constexpr std::array<char, 128> escapes = makeEscapes();

bool standsForItself(char16_t unit) {
    return unit >= escapes.size() || escapes[unit] == 0;
}

void appendEscaped(QByteArray& text, char16_t unit) {
    constexpr char digits[] = "0123456789abcdef";
    text.append('\\');
    text.append(escapes[unit]);
    if (escapes[unit] == 'u') {
        text.append("00");
        text.append(digits[unit >> 4]);
        text.append(digits[unit & 15]);
    }
}

/// UTF-8 straight into the text, without a copy between.
void appendUtf8(QByteArray& text, QStringView units) {
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    const qsizetype start = text.size();
    text.resize(start + encoder.requiredSpace(units.size()));
    const char* end = encoder.appendToBuffer(text.data() + start, units);
    text.resize(end - text.constData());
}

} // namespace

BackupWriter::BackupWriter(QByteArray& target, const ExportedData& data) : text(target) {
    open(Bracket::object);
    field("version", data.version);
    field("exportedAt", data.exportedAt);
    key("tags");
    open(Bracket::array);
    for (const ExportedTag& tag : data.tags)
        write(tag);
    close(Bracket::array);
    key("prompts");
    open(Bracket::array);
}

void BackupWriter::finish() {
    close(Bracket::array);
    close(Bracket::object);
}

QByteArray BackupWriter::encoded(const ExportedData& data) {
    QByteArray text;
    BackupWriter writer(text, data);
    for (const ExportedPrompt& prompt : data.prompts)
        writer.write(prompt);
    writer.finish();
    return text;
}

void BackupWriter::open(Bracket bracket) {
    text.append(static_cast<char>(bracket));
    ++depth;
    isEmpty = true;
}

void BackupWriter::close(Bracket bracket) {
    --depth;
    if (!isEmpty)
        nextLine();
    text.append(bracket == Bracket::object ? '}' : ']');
    isEmpty = false;
}

void BackupWriter::nextLine() {
    text.append('\n');
    text.append(qsizetype(depth) * indent, ' ');
}

void BackupWriter::beginElement() {
    if (!isEmpty)
        text.append(',');
    isEmpty = false;
    nextLine();
}

void BackupWriter::key(const char* name) {
    beginElement();
    text.append('"');
    text.append(name);
    text.append("\" : ");
}

void BackupWriter::field(const char* name, const QString& value) {
    key(name);
    string(value);
}

void BackupWriter::field(const char* name, const Uuid& value) {
    key(name);
    uuid(value);
}

void BackupWriter::field(const char* name, Date value) {
    key(name);
    text.append('"');
    BackupText::appendDate(text, value);
    text.append('"');
}

void BackupWriter::field(const char* name, const QStringList& values) {
    key(name);
    open(Bracket::array);
    for (const QString& value : values) {
        beginElement();
        string(value);
    }
    close(Bracket::array);
}

void BackupWriter::field(const char* name, const QList<Uuid>& values) {
    key(name);
    open(Bracket::array);
    for (const Uuid& value : values) {
        beginElement();
        uuid(value);
    }
    close(Bracket::array);
}

void BackupWriter::write(const ExportedTag& tag) {
    beginElement();
    open(Bracket::object);
    field("id", tag.id);
    field("name", tag.name);
    field("colorHex", tag.colorHex);
    field("createdAt", tag.createdAt);
    field("updatedAt", tag.updatedAt);
    close(Bracket::object);
}

void BackupWriter::write(const ExportedPrompt& prompt) {
    beginElement();
    open(Bracket::object);
    field("id", prompt.id);
    field("title", prompt.title);
    field("body", prompt.body);
    field("createdAt", prompt.createdAt);
    field("updatedAt", prompt.updatedAt);
    field("tagIds", prompt.tagIds);
    key("versions");
    open(Bracket::array);
    for (const ExportedPromptVersion& version : prompt.versions)
        write(version);
    close(Bracket::array);
    close(Bracket::object);
}

void BackupWriter::write(const ExportedPromptVersion& version) {
    beginElement();
    open(Bracket::object);
    field("id", version.id);
    field("promptId", version.promptId);
    field("title", version.title);
    field("body", version.body);
    field("tagNames", version.tagNames);
    field("tagColors", version.tagColors);
    field("createdAt", version.createdAt);
    close(Bracket::object);
}

void BackupWriter::string(QStringView value) {
    text.append('"');
    while (!value.isEmpty()) {
        const auto plainEnd = std::find_if_not(value.utf16(), value.utf16() + value.size(), standsForItself);
        const qsizetype plain = plainEnd - value.utf16();
        if (plain > 0)
            appendUtf8(text, value.first(plain));
        if (plain == value.size())
            break;
        appendEscaped(text, *plainEnd);
        value = value.sliced(plain + 1);
    }
    text.append('"');
}

void BackupWriter::uuid(const Uuid& value) {
    text.append('"');
    BackupText::appendUuid(text, value);
    text.append('"');
}

} // namespace Quillstacks
