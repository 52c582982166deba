#pragma once

#include <QSizeF>
#include <QString>

class QPainter;
class QRectF;

namespace Quillstacks {

/// The drawing of a token, in logical pixels: a pill with a dot and the variable's name.
struct VariableTokenAttachmentCell {
    QString name;

    static constexpr int height = 20;

    [[nodiscard]] QSizeF size() const;
    /// `frame` has the size() of the cell.
    void draw(QPainter& painter, const QRectF& frame, bool isSelected = false) const;
};

} // namespace Quillstacks
