#include "interface/Symbol.h"

#include "interface/Theme.h"

#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

namespace Quillstacks::Symbol {
namespace {

struct Key {
    QString name;
    int pixels = 0;    ///< device pixels of a side
    int lineWidth = 0; ///< in hundredths; 0 for the symbol's own
    QRgb color = 0;    ///< 0 for the mask that all colours are made of

    bool operator==(const Key&) const = default;
};

std::size_t qHash(const Key& key, std::size_t seed = 0) {
    return qHashMulti(seed, key.name, key.pixels, key.lineWidth, key.color);
}

QString path(const QString& name) {
    return QStringLiteral(":/symbols/") + name + QStringLiteral(".svg");
}

QByteArray source(const QString& name, int lineWidth) {
    QFile file(path(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray svg = file.readAll();
    svg.replace("currentColor", "#000000");
    if (lineWidth > 0)
        svg.replace("stroke-width=\"1.75\"", "stroke-width=\"" + QByteArray::number(lineWidth / 100.0) + '"');
    return svg;
}

QImage mask(const Key& key) {
    static QHash<Key, QImage> masks;
    const Key maskKey{key.name, key.pixels, key.lineWidth, 0};
    const auto found = masks.constFind(maskKey);
    if (found != masks.constEnd())
        return *found;
    QImage image(key.pixels, key.pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(source(key.name, key.lineWidth));
    if (renderer.isValid()) {
        QPainter painter(&image);
        renderer.render(&painter);
    }
    return *masks.insert(maskKey, image);
}

const QPixmap& tinted(const Key& key, const QColor& color) {
    static QHash<Key, QPixmap> pixmaps;
    const auto found = pixmaps.constFind(key);
    if (found != pixmaps.constEnd())
        return *found;
    // Fades pass through many colours; what they leave behind must not pile up.
    if (pixmaps.size() > 500)
        pixmaps.clear();
    QImage image = mask(key);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    return *pixmaps.insert(key, QPixmap::fromImage(image));
}

Key makeKey(const QString& name, qreal size, const QColor& color, qreal ratio, qreal lineWidth) {
    const int pixels = std::max(1, static_cast<int>(std::lround(size * ratio)));
    // A clear colour has the value of the mask's key; its symbol is empty, which the opaque black one is not.
    return {name, pixels, static_cast<int>(std::lround(lineWidth * 100)), color.rgba() == 0 ? 1U : color.rgba()};
}

class Engine final : public QIconEngine {
public:
    explicit Engine(QString symbol) : name(std::move(symbol)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto role = mode == QIcon::Disabled ? ColorRole::text4 : ColorRole::text;
        Symbol::paint(*painter, rect, name, Theme::shared().color(role));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, result.rect(), mode, state);
        return result;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new Engine(name); }
    QString iconName() override { return name; }

private:
    QString name;
};

} // namespace

void paint(QPainter& painter, const QRectF& box, const QString& name, const QColor& color, qreal lineWidth) {
    if (name.isEmpty() || color.alpha() == 0)
        return;
    const qreal size = std::min(box.width(), box.height());
    const qreal ratio = painter.device()->devicePixelRatio();
    QPointF place = box.center() - QPointF(size / 2, size / 2);
    // The pixmap has whole device pixels; off their grid it would be resampled.
    const QTransform transform = painter.deviceTransform();
    const bool snaps = transform.type() <= QTransform::TxScale;
    if (snaps) {
        const QPointF device = transform.map(place);
        place = transform.inverted().map(QPointF(std::round(device.x()), std::round(device.y())));
    }
    QPixmap image = tinted(makeKey(name, size, color, ratio, lineWidth), color);
    image.setDevicePixelRatio(ratio);
    painter.drawPixmap(place, image);
}

QPixmap pixmap(const QString& name, qreal size, const QColor& color, qreal devicePixelRatio, qreal lineWidth) {
    QPixmap result = tinted(makeKey(name, size, color, devicePixelRatio, lineWidth), color);
    result.setDevicePixelRatio(devicePixelRatio);
    return result;
}

QIcon icon(const QString& name) {
    return QIcon(new Engine(name));
}

bool exists(const QString& name) {
    return QFile::exists(path(name));
}

} // namespace Quillstacks::Symbol
