#include "interface/Style.h"

#include "interface/Drawing.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"
#include "MenuPainter.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolTip>

namespace Quillstacks {
namespace {

constexpr int toolTipDelay = 600; ///< milliseconds

class InterfaceStyle final : public QProxyStyle {
public:
    InterfaceStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    using QProxyStyle::polish;
    void polish(QWidget* widget) override {
        QProxyStyle::polish(widget);
        // Round corners need a translucent window.
        if (Theme::shared().isComposited() && (qobject_cast<QMenu*>(widget) || widget->inherits("QTipLabel")))
            widget->setAttribute(Qt::WA_TranslucentBackground);
    }
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        switch (hint) {
        case SH_ToolTip_WakeUpDelay:
            return toolTipDelay;
        case SH_ToolTipLabel_Opacity:
            return 255;
        case SH_Menu_MouseTracking:
        case SH_Menu_SupportsSections:
            return 1;
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
        }
    }
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        switch (metric) {
        case PM_ToolTipLabelFrameWidth:
            return 5;
        case PM_MenuPanelWidth:
            return 0;
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return MenuPainter::margin + MenuPainter::shadowMargin(widget);
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override {
        if (type == CT_MenuItem)
            if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option))
                return MenuPainter::itemSize(*item);
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_PanelMenu)
            MenuPainter::paintMenu(*painter, option->rect, widget);
        else if (element == PE_PanelTipLabel)
            MenuPainter::paintGround(*painter, option->rect, 6);
        else if (element != PE_FrameMenu)
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (element == CE_MenuItem && item)
            MenuPainter::paintItem(*painter, *item, qobject_cast<const QMenu*>(widget));
        else if (element != CE_MenuEmptyArea)
            QProxyStyle::drawControl(element, option, painter, widget);
    }
};

void styleToolTips() {
    QToolTip::setFont(textFont(TextStyle::caption));
    QPalette palette = Theme::shared().palette();
    palette.setColor(QPalette::Inactive, QPalette::ToolTipText, palette.color(QPalette::ToolTipText));
    QToolTip::setPalette(palette);
}

} // namespace

void installStyle(QApplication& application) {
    application.setStyle(new InterfaceStyle);
    QObject::connect(&Theme::shared(), &Theme::changed, &application, styleToolTips);
    styleToolTips();
}

} // namespace Quillstacks
