#pragma once

#include <QRect>
#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace Quillstacks {

/// The part of a window that the sheet covers; all of it by default.
struct FillInArea {
    std::function<QRect()> rect;
    qreal radius = 0; ///< of its corners
};

/// Shows the fill-in sheet over the host's window, each field holding the value last used for its variable. Exactly one
/// of the two is called: `onComplete` with the filled text, once the values are remembered, or `onCancel`. The sheet
/// goes right after that, and takes back neither when the host is destroyed first. `variables` are those of the body.
void presentFillIn(QWidget* host, const QString& promptTitle, const QString& promptBody, const QStringList& variables,
                   std::function<void(const QString& filled)> onComplete, std::function<void()> onCancel,
                   FillInArea area = {});
/// The same, where the body has not been scanned yet.
void presentFillIn(QWidget* host, const QString& promptTitle, const QString& promptBody,
                   std::function<void(const QString& filled)> onComplete, std::function<void()> onCancel,
                   FillInArea area = {});

} // namespace Quillstacks
