#include "interface/KeyCap.h"

#include "interface/Drawing.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace Quillstacks {
namespace {

struct Glyph {
    char16_t sign;
    const char* name;
    bool isModifier;
};
/// What the signs are on a PC keyboard.
constexpr Glyph glyphs[] = {{u'⌃', "Super", true},   {u'⌥', "Alt", true},        {u'⇧', "Shift", true},
                            {u'⌘', "Ctrl", true},    {u'↩', "Return", false},    {u'↑', "Up", false},
                            {u'↓', "Down", false},   {u'←', "Left", false},      {u'→', "Right", false},
                            {u'⎋', "Escape", false}, {u'⌫', "Backspace", false}, {u'⇥', "Tab", false}};

const Glyph* glyphOf(QChar unit) {
    for (const Glyph& glyph : glyphs)
        if (unit == glyph.sign)
            return &glyph;
    return nullptr;
}

/// Calls `run(text, isGlyphs)` for each stretch of one kind.
template <typename Run>
void forEachRun(const QString& text, Run run) {
    for (qsizetype start = 0; start < text.size();) {
        const bool isGlyphs = glyphOf(text[start]) != nullptr;
        qsizetype end = start + 1;
        while (end < text.size() && (glyphOf(text[end]) != nullptr) == isGlyphs)
            ++end;
        run(text.mid(start, end - start), isGlyphs);
        start = end;
    }
}

QFont runFont(bool isGlyphs, qreal points) {
    return isGlyphs ? keyGlyphFont(points) : absoluteMonospacedFont(points);
}

QString spelledWord(const QString& text) {
    QString modifiers;
    QString rest;
    // Ctrl comes first on a PC, whatever the order of the signs.
    for (const char16_t sign : {u'⌘', u'⌃', u'⌥', u'⇧'})
        if (text.contains(QChar(sign)))
            modifiers += QLatin1String(glyphOf(QChar(sign))->name) + QLatin1Char('+');
    for (const QChar unit : text) {
        const Glyph* glyph = glyphOf(unit);
        if (!glyph)
            rest += unit;
        else if (!glyph->isModifier)
            rest += (rest.isEmpty() ? QString() : QStringLiteral(" ")) + QLatin1String(glyph->name);
    }
    if (rest.isEmpty() && modifiers.endsWith(QLatin1Char('+')))
        modifiers.chop(1);
    return modifiers + rest;
}

} // namespace

qreal KeyText::width(const QString& text, qreal points) {
    qreal width = 0;
    forEachRun(text, [&](const QString& run, bool isGlyphs) {
        width += QFontMetricsF(runFont(isGlyphs, points)).horizontalAdvance(run);
    });
    return width;
}

void KeyText::draw(QPainter& painter, const QRectF& box, const QString& text, qreal points, const QColor& color) {
    painter.setPen(color);
    const QFontMetricsF metrics(runFont(false, points));
    const qreal baseline = std::round(box.center().y() + (metrics.ascent() - metrics.descent()) / 2);
    qreal x = box.left();
    forEachRun(text, [&](const QString& run, bool isGlyphs) {
        const QFont font = runFont(isGlyphs, points);
        painter.setFont(font);
        painter.drawText(QPointF(x, baseline), run);
        x += QFontMetricsF(font).horizontalAdvance(run);
    });
}

QString KeyText::spelledOut(const QString& text) {
    // Word by word: "P or ⌘N" has its modifier at the second key only.
    QStringList words = text.split(QLatin1Char(' '));
    for (QString& word : words)
        word = spelledWord(word);
    return words.join(QLatin1Char(' '));
}

KeyCap::KeyCap(const QString& text, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setKeys(text);
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        updateGeometry();
        update();
    });
}

void KeyCap::setPaddingY(int padding) {
    paddingY = padding;
    updateGeometry();
}

void KeyCap::setLarge(bool isLarge) {
    large = isLarge;
    paddingY = large ? 4 : 2;
    updateGeometry();
    update();
}

void KeyCap::setKeys(const QString& text) {
    keys = text;
    const QString spelled = KeyText::spelledOut(text);
    setAccessibleName(spelled);
    setToolTip(spelled == text ? QString() : spelled);
    updateGeometry();
    update();
}

qreal KeyCap::points() const {
    return pixelSize(textFont(large ? TextStyle::callout : TextStyle::monoCaption));
}

QSize KeyCap::sizeHint() const {
    const int height = textLineHeight(large ? TextStyle::subheadline : TextStyle::monoCaption) + 2 * paddingY;
    return {static_cast<int>(std::ceil(KeyText::width(keys, points()))) + (large ? 16 : 12), height};
}

void KeyCap::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    fillRounded(painter, rect(), large ? 6 : 4, theme.color(ColorRole::quaternary));
    const int padding = large ? 8 : 6;
    KeyText::draw(painter, rect().adjusted(padding, 0, -padding, 0), keys, points(), theme.color(ColorRole::text));
}

} // namespace Quillstacks
