#include "FieldStyle.h"

#include <QApplication>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleFactory>

namespace Quillstacks {
namespace {

class FramelessStyle final : public QProxyStyle {
public:
    FramelessStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        return metric == PM_TextCursorWidth ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
    }
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element != PE_PanelLineEdit && element != PE_FrameLineEdit)
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
};

} // namespace

QStyle* fieldStyle() {
    static QPointer<FramelessStyle> style;
    if (!style) {
        style = new FramelessStyle;
        style->setParent(qApp);
    }
    return style;
}

int caretInterval() {
    return QApplication::cursorFlashTime() / 2;
}

} // namespace Quillstacks
