#include "interface/Shadow.h"

#include "interface/Drawing.h"
#include "interface/Theme.h"

#include <QHash>
#include <QPainter>
#include <QPixmap>

#include <cmath>
#include <vector>

namespace Quillstacks {
namespace {

struct Layer {
    int offset; ///< downwards
    int blur;   ///< as in CSS: twice the standard deviation
    QColor color;
};

std::vector<Layer> layers(ShadowKind kind) {
    const bool dark = Theme::shared().isDark();
    const auto shade = [dark](qreal inDark, qreal inLight) {
        return dark ? withOpacity(Qt::black, inDark) : withOpacity(QColor(24, 26, 46), inLight);
    };
    switch (kind) {
    case ShadowKind::sheet:
        return {{24, 64, shade(.50, .26)}, {4, 14, shade(.28, .12)}};
    case ShadowKind::panel:
        return {{6, 12, withOpacity(Qt::black, .16)}};
    case ShadowKind::welcome:
        return {{22, 60, shade(.42, .26)}};
    case ShadowKind::toast:
        return {{4, 12, withOpacity(Qt::black, .15)}};
    case ShadowKind::menu:
        return {{10, 28, shade(.42, .20)}};
    case ShadowKind::card:
        break;
    }
    return dark ? std::vector<Layer>{} : std::vector<Layer>{{1, 2, withOpacity(QColor(22, 24, 40), .04)}};
}

/// How much of a box from `from` to `to` a Gaussian window sees at each pixel; a blurred box is the product of two such
/// rows.
std::vector<double> coverage(int count, double from, double to, double sigma) {
    std::vector<double> result(static_cast<std::size_t>(count));
    const double scale = 1 / (std::sqrt(2.0) * std::max(sigma, 0.01));
    for (int i = 0; i < count; ++i) {
        const double at = i + 0.5;
        result[static_cast<std::size_t>(i)] = 0.5 * (std::erf((at - from) * scale) - std::erf((at - to) * scale));
    }
    return result;
}

void addLayer(QImage& image, const QRectF& box, const Layer& layer, qreal ratio) {
    const double sigma = layer.blur / 2.0 * ratio;
    const auto columns = coverage(image.width(), box.left(), box.right(), sigma);
    const auto rows =
        coverage(image.height(), box.top() + layer.offset * ratio, box.bottom() + layer.offset * ratio, sigma);
    QImage shade(image.size(), QImage::Format_Alpha8);
    for (int y = 0; y < shade.height(); ++y) {
        uchar* line = shade.scanLine(y);
        const double row = rows[static_cast<std::size_t>(y)] * layer.color.alpha();
        for (int x = 0; x < shade.width(); ++x)
            line[x] = static_cast<uchar>(std::lround(row * columns[static_cast<std::size_t>(x)]));
    }
    QImage colored(image.size(), QImage::Format_ARGB32_Premultiplied);
    colored.fill(QColor(layer.color.red(), layer.color.green(), layer.color.blue()));
    QPainter tint(&colored);
    tint.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    tint.drawImage(0, 0, shade);
    tint.end();
    QPainter(&image).drawImage(0, 0, colored);
}

struct PatchKey {
    int kind, width, height, radius, ratio, dark;
    bool operator==(const PatchKey&) const = default;
};
std::size_t qHash(const PatchKey& key, std::size_t seed = 0) {
    return qHashMulti(seed, key.kind, key.width, key.height, key.radius, key.ratio, key.dark);
}

/// The shadow of a box of width x height logical pixels, with the box itself left out.
QPixmap makePatch(ShadowKind kind, const QSize& box, qreal radius, qreal ratio) {
    const int reach = shadowReach(kind);
    const QSize size = QSize(box.width() + 2 * reach, box.height() + 2 * reach) * ratio;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QRectF inner(reach * ratio, reach * ratio, box.width() * ratio, box.height() * ratio);
    for (const Layer& layer : layers(kind))
        addLayer(image, inner, layer, ratio);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    fillRounded(painter, inner, radius * ratio, Qt::black);
    painter.end();
    return QPixmap::fromImage(image);
}

QPixmap patch(ShadowKind kind, const QSize& box, qreal radius, qreal ratio) {
    static QHash<PatchKey, QPixmap> patches;
    const PatchKey key{static_cast<int>(kind),
                       box.width(),
                       box.height(),
                       static_cast<int>(radius * 10),
                       static_cast<int>(std::lround(ratio * 100)),
                       Theme::shared().isDark() ? 1 : 0};
    const auto found = patches.constFind(key);
    if (found != patches.constEnd())
        return *found;
    if (patches.size() > 40)
        patches.clear();
    return *patches.insert(key, makePatch(kind, box, radius, ratio));
}

/// Where a side is cut: from both ends, `margin` pixels stand as they are, the middle is stretched.
struct Cut {
    qreal from[4];
    Cut(qreal start, qreal length, qreal margin)
        : from{start, start + margin, start + length - margin, start + length} {}
};

} // namespace

int shadowReach(ShadowKind kind) {
    int reach = 0;
    for (const Layer& layer : layers(kind))
        reach = std::max(reach, layer.offset + layer.blur);
    return reach;
}

void paintShadow(QPainter& painter, const QRectF& box, qreal radius, ShadowKind kind) {
    const int reach = shadowReach(kind);
    if (reach == 0 || box.isEmpty())
        return;
    const qreal ratio = painter.device()->devicePixelRatio();
    // A corner's patch reaches so far into the box that its middle is level; smaller boxes are drawn at their size.
    const int corner = reach + static_cast<int>(std::ceil(radius));
    const int enough = 2 * corner + 2;
    const QSize core(std::min(enough, static_cast<int>(std::lround(box.width()))),
                     std::min(enough, static_cast<int>(std::lround(box.height()))));
    const QPixmap image = patch(kind, core, radius, ratio);
    const QRectF whole = box.adjusted(-reach, -reach, reach, reach);
    const qreal marginX = core.width() / 2.0 + reach - 0.5;
    const qreal marginY = core.height() / 2.0 + reach - 0.5;
    const Cut x(whole.left(), whole.width(), marginX), y(whole.top(), whole.height(), marginY);
    const Cut u(0, image.width(), marginX * ratio), v(0, image.height(), marginY * ratio);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            if (row == 1 && column == 1 && core.width() == enough && core.height() == enough)
                continue; // the middle is clear
            painter.drawPixmap(
                QRectF(QPointF(x.from[column], y.from[row]), QPointF(x.from[column + 1], y.from[row + 1])), image,
                QRectF(QPointF(u.from[column], v.from[row]), QPointF(u.from[column + 1], v.from[row + 1])));
        }
    }
}

} // namespace Quillstacks
