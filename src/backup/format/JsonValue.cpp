#include "JsonValue.h"

#include "backup/format/BackupError.h"

#include "BackupText.h"

#include <QStringDecoder>

#include <cstring>

namespace Quillstacks {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// UTF-8 in which half of a surrogate pair was put, from an escape without its other half.
bool holdsLoneSurrogate(std::string_view utf8) {
    constexpr char lead = '\xED';
    constexpr uchar firstOfSurrogates = 0xA0;
    for (std::size_t at = utf8.find(lead); at != std::string_view::npos; at = utf8.find(lead, at + 1)) {
        if (at + 1 < utf8.size() && static_cast<uchar>(utf8[at + 1]) >= firstOfSurrogates)
            return true;
    }
    return false;
}

QString toString(std::string_view utf8) {
    const auto size = static_cast<qsizetype>(utf8.size());
    if (!utf8.starts_with(byteOrderMark))
        return QString::fromUtf8(utf8.data(), size);
    // Within a text it is a character like any other.
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    return decoder(QByteArrayView(utf8.data(), size));
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::size_t digitsFrom(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    return end - at;
}

/// By the grammar alone, so that a number which exceeds 64 bits is a number as well.
bool isNumber(std::string_view text) {
    std::size_t at = text.starts_with('-') ? 1 : 0;
    const std::size_t whole = digitsFrom(text, at);
    if (whole == 0 || (whole > 1 && text[at] == '0'))
        return false;
    at += whole;
    if (at < text.size() && text[at] == '.') {
        const std::size_t fraction = digitsFrom(text, at + 1);
        if (fraction == 0)
            return false;
        at += 1 + fraction;
    }
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        ++at;
        if (at < text.size() && (text[at] == '+' || text[at] == '-'))
            ++at;
        const std::size_t exponent = digitsFrom(text, at);
        if (exponent == 0)
            return false;
        at += exponent;
    }
    return at == text.size();
}

bool isScalar(std::string_view token) {
    const std::size_t end = token.find_last_not_of(" \t\r\n");
    const std::string_view text = token.substr(0, end == std::string_view::npos ? 0 : end + 1);
    return text == "true" || text == "false" || text == "null" || isNumber(text);
}

const char* reason(simdjson::error_code error) {
    switch (error) {
    case simdjson::UTF8_ERROR:
        return "is not valid UTF-8";
    case simdjson::DEPTH_ERROR:
        return "is nested too deeply";
    case simdjson::UNESCAPED_CHARS:
        return "is not valid JSON: a control character stands in a string";
    case simdjson::UNCLOSED_STRING:
        return "is not valid JSON: a string has no end";
    case simdjson::STRING_ERROR:
        return "is not valid JSON: a string has a wrong escape";
    case simdjson::MEMALLOC:
    case simdjson::CAPACITY:
        return "is too large";
    default:
        return "is not valid JSON";
    }
}

} // namespace

void JsonValue::refuse(const JsonPlace& at, const char* why) {
    throw BackupError(BackupError::Kind::notABackup, at.text() + QLatin1Char(' ') + QLatin1String(why));
}

void JsonValue::refuse(const JsonPlace& at, simdjson::error_code error) {
    throw BackupError(BackupError::Kind::notJson, at.text() + QLatin1Char(' ') + QLatin1String(reason(error)));
}

void JsonValue::refuseMissing(std::string_view key) const {
    refuse(JsonPlace{&place, key}, "is missing");
}

void JsonValue::expect(simdjson::ondemand::json_type type, const char* name) {
    simdjson::ondemand::json_type found{};
    if (const auto error = value.type().get(found))
        refuse(place, error);
    if (found != type)
        refuse(QByteArray("is not ").append(name).constData());
}

std::string_view JsonValue::utf8(const char* name) {
    expect(simdjson::ondemand::json_type::string, name);
    std::string_view text;
    if (const auto error = value.get_string().get(text))
        refuse(place, error);
    if (holdsLoneSurrogate(text))
        refuse(place, simdjson::STRING_ERROR);
    return text;
}

QString JsonValue::string() {
    return toString(utf8("a string"));
}

Uuid JsonValue::uuid() {
    const auto uuid = BackupText::uuid(utf8("a UUID"));
    if (!uuid)
        refuse("is not a UUID");
    return *uuid;
}

Date JsonValue::date() {
    const auto date = BackupText::date(utf8("an ISO 8601 date"));
    if (!date)
        refuse("is not an ISO 8601 date");
    return *date;
}

void JsonValue::skip(int depth) {
    if (depth > deepest)
        refuse(place, simdjson::DEPTH_ERROR);
    simdjson::ondemand::json_type type{};
    if (const auto error = value.type().get(type))
        refuse(place, error);
    switch (type) {
    case simdjson::ondemand::json_type::array:
        return guarded([&] {
            for (auto element : simdjson::ondemand::array(value.get_array()))
                JsonValue(element.value(), place).skip(depth + 1);
        });
    case simdjson::ondemand::json_type::object:
        return guarded([&] {
            for (auto field : simdjson::ondemand::object(value.get_object())) {
                const std::string_view key = field.unescaped_key();
                if (holdsLoneSurrogate(key))
                    refuse(place, simdjson::STRING_ERROR);
                JsonValue(field.value(), place).skip(depth + 1);
            }
        });
    case simdjson::ondemand::json_type::string:
        std::ignore = utf8("a string");
        return;
    default:
        if (!isScalar(value.raw_json_token()))
            refuse(place, simdjson::TAPE_ERROR);
    }
}

} // namespace Quillstacks
