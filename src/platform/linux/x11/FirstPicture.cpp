#include "x11/FirstPicture.h"

#include "x11/Connection.h"

#include <QEvent>
#include <QImage>
#include <QWidget>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <utility>

namespace Quillstacks::X11 {

namespace {

constexpr int bytesPerPixel = 4;

/// The window's depth, where its pixels lie in memory as the toolkit's do; 0 otherwise.
uint8_t sharedDepth(xcb_connection_t* server, xcb_window_t window) {
    constexpr auto ours = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? XCB_IMAGE_ORDER_LSB_FIRST : XCB_IMAGE_ORDER_MSB_FIRST;
    if (xcb_get_setup(server)->image_byte_order != ours)
        return 0;
    const std::unique_ptr<xcb_get_geometry_reply_t, decltype(&std::free)> reply(
        xcb_get_geometry_reply(server, xcb_get_geometry(server, window), nullptr), &std::free);
    return reply && (reply->depth == 24 || reply->depth == 32) ? reply->depth : uint8_t{0};
}

/// In strips: a request has a limit.
void upload(xcb_connection_t* server, xcb_pixmap_t pixmap, uint8_t depth, const QImage& picture) {
    const xcb_gcontext_t context = xcb_generate_id(server);
    xcb_create_gc(server, context, pixmap, 0, nullptr);
    const int rowBytes = picture.width() * bytesPerPixel;
    const auto limit = static_cast<qint64>(xcb_get_maximum_request_length(server)) * 4;
    const int strip = static_cast<int>(std::clamp<qint64>((limit - 64) / rowBytes, 1, picture.height()));
    for (int top = 0; top < picture.height(); top += strip) {
        const int rows = std::min(strip, picture.height() - top);
        xcb_put_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, static_cast<uint16_t>(picture.width()),
                      static_cast<uint16_t>(rows), 0, static_cast<int16_t>(top), 0, depth,
                      static_cast<uint32_t>(rows * rowBytes), picture.constScanLine(top));
    }
    xcb_free_gc(server, context);
}

void setBackground(xcb_connection_t* server, xcb_window_t window, xcb_pixmap_t pixmap) {
    xcb_change_window_attributes(server, window, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_flush(server);
}

} // namespace

FirstPicture::FirstPicture(QWidget* owner) : QObject(owner), window(owner) {
    window->installEventFilter(this);
}

FirstPicture* FirstPicture::of(const QWidget* window) {
    return window->findChild<FirstPicture*>(QString(), Qt::FindDirectChildrenOnly);
}

void FirstPicture::set(const QImage& picture) {
    auto* server = connection();
    if (!server || picture.isNull() || picture.bytesPerLine() != picture.width() * bytesPerPixel)
        return;
    const xcb_window_t native = nativeWindow(window);
    const uint8_t depth = sharedDepth(server, native);
    if (depth == 0)
        return;
    const xcb_pixmap_t pixmap = xcb_generate_id(server);
    xcb_create_pixmap(server, depth, pixmap, native, static_cast<uint16_t>(picture.width()),
                      static_cast<uint16_t>(picture.height()));
    upload(server, pixmap, depth, picture);
    setBackground(server, native, pixmap);
    xcb_free_pixmap(server, pixmap); // the window holds it from now on
    isSet = true;
}

void FirstPicture::clear() {
    auto* server = connection();
    if (std::exchange(isSet, false) && server && window->internalWinId() != 0)
        setBackground(server, nativeWindow(window), XCB_BACK_PIXMAP_NONE);
}

bool FirstPicture::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window && event->type() == QEvent::Paint)
        clear();
    return QObject::eventFilter(watched, event);
}

} // namespace Quillstacks::X11
