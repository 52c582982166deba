#include "interface/TextStyle.h"

#include <QApplication>
#include <QFontDatabase>
#include <QHash>
#include <QRawFont>
#include <QScreen>

#include <array>
#include <cmath>

namespace Quillstacks {
namespace {

struct Definition {
    qreal factor;
    int weight;
    int line;       ///< at a base of 14
    qreal tracking; ///< of the size
    bool monospaced = false;
};

constexpr std::array<Definition, 13> definitions{{{1.86, QFont::DemiBold, 32, -.015},
                                                  {1.57, QFont::DemiBold, 28, -.012},
                                                  {1.29, QFont::DemiBold, 24, -.008},
                                                  {1.14, QFont::Normal, 22, -.005},
                                                  {1.00, QFont::DemiBold, 20, 0},
                                                  {1.00, QFont::Normal, 20, 0},
                                                  {0.965, QFont::Normal, 19, 0},
                                                  {0.93, QFont::Normal, 18, 0},
                                                  {0.86, QFont::Normal, 16, 0},
                                                  {0.79, QFont::Normal, 14, 0},
                                                  {1.00, QFont::Normal, 20, 0, true},
                                                  {0.86, QFont::Normal, 16, .02, true},
                                                  {0.93, QFont::Normal, 20, 0, true}}};
constexpr qreal designBase = 14;

struct Kept {
    QHash<int, QFont> fonts;
    qreal base = 0;
    QString monospacedFamily;
    QString glyphFamily;
};
Kept& kept() {
    static Kept value;
    return value;
}

const Definition& definition(TextStyle style) {
    return definitions[static_cast<std::size_t>(style)];
}

qreal base() {
    if (kept().base == 0)
        kept().base = pixelSize(QApplication::font());
    return kept().base;
}

const QString& monospacedFamily() {
    if (kept().monospacedFamily.isEmpty())
        kept().monospacedFamily = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    return kept().monospacedFamily;
}

/// Logical pixels of one point of a font's size.
qreal pixelsPerPoint() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return (screen ? std::round(screen->logicalDotsPerInchY()) : 96.0) / 72.0;
}

QFont makeFont(bool monospaced, qreal pixels, int weight, qreal tracking) {
    QFont font = QApplication::font();
    if (monospaced) {
        font.setFamily(monospacedFamily());
        font.setFixedPitch(true);
        font.setStyleHint(QFont::Monospace);
    }
    font.setPointSizeF(pixels / pixelsPerPoint()); // setPixelSize() takes whole pixels only
    font.setWeight(static_cast<QFont::Weight>(weight));
    if (tracking != 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, tracking * pixels);
    return font;
}

const QString& glyphFamily() {
    if (kept().glyphFamily.isEmpty()) {
        kept().glyphFamily = QApplication::font().family();
        for (const QString& family : {kept().glyphFamily, QStringLiteral("DejaVu Sans"),
                                      QStringLiteral("Noto Sans Symbols"), QStringLiteral("Noto Sans Symbols2")}) {
            const QRawFont raw = QRawFont::fromFont(QFont(family));
            if (raw.supportsCharacter(QChar(u'⌘')) && raw.supportsCharacter(QChar(u'↩'))) {
                kept().glyphFamily = family;
                break;
            }
        }
    }
    return kept().glyphFamily;
}

} // namespace

QFont textFont(TextStyle style, int weight) {
    const Definition& wanted = definition(style);
    const int used = weight > 0 ? weight : wanted.weight;
    const int key = static_cast<int>(style) * 2000 + used;
    auto& fonts = kept().fonts;
    auto found = fonts.find(key);
    if (found == fonts.end()) {
        const qreal pixels = std::round(base() * wanted.factor * 2) / 2;
        found = fonts.insert(key, makeFont(wanted.monospaced, pixels, used, wanted.tracking));
    }
    return *found;
}

int textLineHeight(TextStyle style) {
    return static_cast<int>(std::lround(definition(style).line * base() / designBase));
}

QFont absoluteFont(qreal points, int weight) {
    return makeFont(false, points, weight, 0);
}

QFont absoluteMonospacedFont(qreal points, int weight) {
    return makeFont(true, points, weight, .02);
}

QFont keyGlyphFont(qreal points) {
    QFont font = makeFont(false, points * 1.06, QFont::Normal, .07);
    font.setFamily(glyphFamily());
    return font;
}

qreal pixelSize(const QFont& font) {
    if (font.pixelSize() > 0)
        return font.pixelSize();
    return font.pointSizeF() * pixelsPerPoint();
}

void resetTextFonts() {
    kept() = {};
}

} // namespace Quillstacks
