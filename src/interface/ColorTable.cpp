#include "ColorTable.h"

#include "interface/Drawing.h"

#include <cmath>

namespace Quillstacks {
namespace {

constexpr double readable = 4.5;
constexpr float lightnessStep = 0.04F;

double luminance(const QColor& color) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor shifted(const QColor& color, float lightness) {
    float hue = 0;
    float saturation = 0;
    float old = 0;
    color.getHslF(&hue, &saturation, &old);
    return QColor::fromHslF(std::max(hue, 0.0F), saturation, std::clamp(old + lightness, 0.0F, 1.0F));
}

/// Steps the colour's lightness until it reads against `other`, or can go no further.
QColor readableAgainst(const QColor& other, QColor color, float step) {
    for (int i = 0; i < 26 && contrast(color, other) < readable; ++i)
        color = shifted(color, step);
    return color;
}

class Table {
public:
    explicit Table(bool isDark) : dark(isDark) {}

    void grounds() {
        set(ColorRole::window, 0x1E1F24, 0xFFFFFF);
        set(ColorRole::sidebar, 0x18191D, 0xEDEEF2);
        set(ColorRole::sheet, 0x25262C, 0xF6F6F8);
        set(ColorRole::card, 0x2D2E35, 0xFFFFFF);
        wash(ColorRole::cardEdge, 0, .07);
        set(ColorRole::field, 0x17181C, 0xFFFFFF);
        set(ColorRole::popover, 0x2B2C33, 0xFFFFFF);
        at(ColorRole::panel) = dark ? QColor(255, 255, 255, 7) : QColor(Qt::white);
        at(ColorRole::scrim) = dark ? withOpacity(QColor(8, 8, 11), .46) : withOpacity(QColor(30, 32, 48), .26);
        wash(ColorRole::separator, .09, .10);
        wash(ColorRole::separatorStrong, .16, .18);
        wash(ColorRole::border, .10, .10);
        wash(ColorRole::borderHover, .20, .20);
    }
    void texts() {
        set(ColorRole::text, 0xECEDF2, 0x1D1E24);
        set(ColorRole::text2, 0xB4B6C1, 0x545763);
        set(ColorRole::text3, 0x9A9DA9, 0x61646F);
        set(ColorRole::text4, 0x6A6D79, 0x9A9CA6);
        set(ColorRole::onAccent, 0xFFFFFF, 0xFFFFFF);
        set(ColorRole::red, 0xFF8078, 0xB3202C);
        set(ColorRole::orange, 0xF2A65A, 0x9C4F00);
        set(ColorRole::green, 0x52C98F, 0x0D6837);
        set(ColorRole::blue, 0x7EBBFF, 0x0A58AF);
        set(ColorRole::purple, 0xC79BFF, 0x7638BD);
        set(ColorRole::redFill, 0xC5373F, 0xC5373F);
    }
    void fills() {
        wash(ColorRole::quaternary, .10, .10);
        wash(ColorRole::fillHover, .05, .04);
        wash(ColorRole::fillPress, .09, .09);
        wash(ColorRole::fillSelect, .09, .075);
        wash(ColorRole::fillChip, .06, .06);
        wash(ColorRole::fillChipOn, .12, .12);
        wash(ColorRole::chipOnEdge, .18, .18);
        at(ColorRole::control) = dark ? withOpacity(Qt::white, .075) : QColor(Qt::white);
        wash(ColorRole::controlEdge, .10, .15);
        at(ColorRole::controlHover) = dark ? withOpacity(Qt::white, .115) : QColor(0xF1F2F5);
        wash(ColorRole::segmentTrack, .075, .075);
        set(ColorRole::segmentOn, 0x4A4C57, 0xFFFFFF);
        wash(ColorRole::switchOff, .17, .20);
        wash(ColorRole::scrollThumb, .20, .24);
    }
    void accents(const std::optional<QColor>& desktop) {
        set(ColorRole::accent, 0x9AA1FF, 0x4A50D0);
        set(ColorRole::accentFill, 0x5A61E6, 0x5057DD);
        set(ColorRole::accentFillHover, 0x6067E8, 0x5D64E6);
        set(ColorRole::accentFillPress, 0x4C53D2, 0x4349C4);
        if (desktop)
            takeAccent(*desktop);
        const QColor accent = at(ColorRole::accent);
        at(ColorRole::selectSide) = withOpacity(accent, dark ? .17 : .13);
        at(ColorRole::quickSelect) = withOpacity(accent, .15);
        at(ColorRole::quickSelectEdge) = withOpacity(accent, .30);
        at(ColorRole::versionSelect) = withOpacity(accent, .10);
        at(ColorRole::textSelection) = withOpacity(accent, dark ? .32 : .22);
    }
    [[nodiscard]] const ColorTable& result() const { return table; }

private:
    void takeAccent(const QColor& desktop) {
        const QColor fill = readableAgainst(Qt::white, desktop, -lightnessStep);
        const QColor lighter = shifted(fill, lightnessStep / 2);
        at(ColorRole::accentFill) = fill;
        at(ColorRole::accentFillHover) = contrast(lighter, Qt::white) < readable ? fill : lighter;
        at(ColorRole::accentFillPress) = shifted(fill, -1.5F * lightnessStep);
        at(ColorRole::accent) = readableAgainst(at(ColorRole::sheet), desktop, dark ? lightnessStep : -lightnessStep);
    }
    QColor& at(ColorRole role) { return table[static_cast<std::size_t>(role)]; }
    void set(ColorRole role, QRgb inDark, QRgb inLight) { at(role) = QColor(dark ? inDark : inLight); }
    /// The primary colour at an opacity.
    void wash(ColorRole role, qreal inDark, qreal inLight) {
        at(role) = dark ? withOpacity(Qt::white, inDark) : withOpacity(QColor(22, 24, 40), inLight);
    }

    ColorTable table;
    bool dark;
};

} // namespace

double contrast(const QColor& a, const QColor& b) {
    const double one = luminance(a) + 0.05;
    const double two = luminance(b) + 0.05;
    return std::max(one, two) / std::min(one, two);
}

ColorTable makeColorTable(bool dark, const std::optional<QColor>& desktopAccent) {
    Table table(dark);
    table.grounds();
    table.texts();
    table.fills();
    table.accents(desktopAccent);
    return table.result();
}

} // namespace Quillstacks
