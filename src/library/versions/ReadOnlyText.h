#pragma once

#include "interface/PlainTextEdit.h"
#include "interface/TextStyle.h"

#include <QMargins>

#include <functional>
#include <memory>

namespace Quillstacks {

/// A text of any length to be read, selected and copied. It is as high as its text where there is room, and scrolls
/// where there is less. Only what can be seen is laid out.
class ReadOnlyText : public PlainTextEdit {
    Q_OBJECT
public:
    struct Shape {
        TextStyle style = TextStyle::body;
        int leading = 0;      ///< pixels between lines, on top of the style's own
        int minimumLines = 1; ///< never lower than these, if the text has as many
        int maximumLines = 0; ///< never higher; 0 for any height
        QMargins padding;
        qreal radius = 4; ///< of the focus ring's inside
    };
    ReadOnlyText(const QString& accessibleName, const Shape& shape, QWidget* parent = nullptr);

    /// The same text keeps selection and scroll position.
    void setContent(const QString& text);
    [[nodiscard]] const QString& content() const { return shownText; }

    /// How far the toolkit draws a text of this shape below the middle of its lines, in pixels.
    [[nodiscard]] static int drop(const Shape& shape);
    /// Where a paragraph stands in the document, its whole lines included.
    [[nodiscard]] QRectF placeOf(const QTextBlock& block) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void refresh() override;
    /// Lets `write` fill a document that takes the place of the present one. Nothing is selected then.
    void fill(const std::function<void(QTextDocument&)>& write);

private:
    [[nodiscard]] std::unique_ptr<QTextDocument> emptyDocument() const;
    [[nodiscard]] int aroundViewport() const;
    [[nodiscard]] int heightOfLines(int lines) const;
    [[nodiscard]] int wantedHeight() const;
    [[nodiscard]] int laidOutHeight(int enough) const;
    void grow();
    void contentChanged();

    Shape shape;
    QString shownText;
    int toldHeight = 0;
};

} // namespace Quillstacks
