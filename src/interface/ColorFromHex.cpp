#include "interface/ColorFromHex.h"

#include <QByteArrayView>

#include <optional>

namespace Quillstacks {
namespace {

/// The code point that begins at `at`, or ends there when looked at from behind; lone surrogates stand for themselves.
char32_t codePointFrom(QStringView text, qsizetype at) {
    const QChar unit = text[at];
    if (unit.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text[at + 1]);
    return unit.unicode();
}
char32_t codePointBefore(QStringView text, qsizetype end) {
    const QChar unit = text[end - 1];
    if (unit.isLowSurrogate() && end > 1 && text[end - 2].isHighSurrogate())
        return QChar::surrogateToUcs4(text[end - 2], unit);
    return unit.unicode();
}

bool isAlphanumeric(char32_t point) {
    return QChar::isLetterOrNumber(point);
}

QStringView alphanumericCore(QStringView text) {
    while (!text.isEmpty()) {
        const char32_t first = codePointFrom(text, 0);
        if (isAlphanumeric(first))
            break;
        text = text.mid(QChar::requiresSurrogates(first) ? 2 : 1);
    }
    while (!text.isEmpty()) {
        const char32_t last = codePointBefore(text, text.size());
        if (isAlphanumeric(last))
            break;
        text.chop(QChar::requiresSurrogates(last) ? 2 : 1);
    }
    return text;
}

/// ASCII digits only, as many as fit into 64 bits.
std::optional<quint64> hexadecimal(QStringView text) {
    quint64 value = 0;
    for (const QChar unit : text) {
        const int digit =
            unit.unicode() < 128 ? QByteArrayView("0123456789abcdef").indexOf(unit.toLower().toLatin1()) : -1;
        if (digit < 0 || value >> 60 != 0)
            return std::nullopt;
        value = value << 4 | static_cast<quint64>(digit);
    }
    return text.isEmpty() ? std::nullopt : std::optional(value);
}

} // namespace

QColor colorFromHex(const QString& text) {
    const QStringView core = alphanumericCore(text);
    const auto number = hexadecimal(core);
    if (!number)
        return Qt::black;
    const auto part = [&](int shift, quint64 mask) { return static_cast<int>(*number >> shift & mask); };
    if (core.size() == 6)
        return {part(16, 0xFF), part(8, 0xFF), part(0, 0xFF)};
    if (core.size() == 3)
        return {part(8, 0xF) * 17, part(4, 0xF) * 17, part(0, 0xF) * 17};
    return Qt::black;
}

} // namespace Quillstacks
