#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

#include <cstdio>

/// Draws an SVG as a square PNG: RenderIcon SVG SIZE PNG, the size in pixels. Needs no display.
int main(int count, char** arguments) {
    if (count != 4) {
        std::fputs("RenderIcon SVG SIZE PNG\n", stderr);
        return 2;
    }
    const int size = QString::fromLocal8Bit(arguments[2]).toInt();
    QSvgRenderer picture(QString::fromLocal8Bit(arguments[1]));
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    if (!picture.isValid() || image.isNull()) {
        std::fprintf(stderr, "%s can't be drawn at %d pixels\n", arguments[1], size);
        return 1;
    }
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    picture.render(&painter);
    painter.end();
    if (!image.save(QString::fromLocal8Bit(arguments[3]), "PNG")) {
        std::fprintf(stderr, "%s can't be written\n", arguments[3]);
        return 1;
    }
    return 0;
}
