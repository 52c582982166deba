#include "TagPalette.h"

namespace Quillstacks::TagPalette {
namespace {

struct Entry {
    const char* hex;
    const char* name;
};

constexpr Entry entries[] = {
    {"7C5CFC", "Violet"},    {"F6C549", "Yellow"}, {"2BB673", "Green"},       {"FF6B6B", "Coral"},
    {"4D96FF", "Blue"},      {"FF8E3C", "Orange"}, {"6D6D6D", "Gray"},        {"B36AE2", "Lilac"},
    {"2EC4B6", "Turquoise"}, {"E71D36", "Red"},    {"9B5DE5", "Purple"},      {"F15BB5", "Pink"},
    {"00BBF9", "Sky Blue"},  {"00F5D4", "Aqua"},   {"E36414", "Dark Orange"}, {"2D6A4F", "Dark Green"},
};

} // namespace

const QStringList& colors() {
    static const QStringList all = [] {
        QStringList list;
        for (const Entry& entry : entries)
            list += QLatin1String(entry.hex);
        return list;
    }();
    return all;
}

QString firstColor() {
    return colors().first();
}

QString nameOf(const QString& colorHex) {
    const qsizetype at = colors().indexOf(colorHex);
    return at < 0 ? colorHex : QString(QLatin1String(entries[at].name));
}

} // namespace Quillstacks::TagPalette
