#include "TagRow.h"

#include "interface/IconButton.h"
#include "interface/Theme.h"
#include "library/LibraryFixture.h"
#include "support/ShownSymbol.h"

namespace Quillstacks {
namespace {

class TagRowTest : public LibraryFixture {
protected:
    TagRow& open(const QString& name = QStringLiteral("Learning")) {
        row = new TagRow(library.addTag(name, QStringLiteral("2BB673")), &window);
        row->setGeometry(12, 20, 295, row->height());
        show(window, QSize(320, 100));
        return *row;
    }
    IconButton& pencil() { return *row->findChild<IconButton*>(); }
    void pointTo(bool inside) {
        QEvent leave(QEvent::Leave);
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(row, inside ? static_cast<QEvent*>(&enter) : &leave);
    }
    /// Whether the pencil is painted in full.
    bool showsPencil() {
        return showsSymbol(pencil(), QStringLiteral("pencil"), 14, Theme::shared().color(ColorRole::text2));
    }
    /// Whether anything is painted where the pencil stands.
    bool isBare() {
        QImage picture(28, 28, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        pencil().render(&picture, {}, {}, QWidget::DrawChildren);
        for (int y = 0; y < 28; ++y)
            for (int x = 0; x < 28; ++x)
                if (qAlpha(picture.pixel(x, y)) != 0)
                    return false;
        return true;
    }

    QWidget window;
    TagRow* row = nullptr;
};

} // namespace

TEST_F(TagRowTest, thePencilIsTransparentUnlessTheRowIsHovered) {
    open();
    EXPECT_EQ(pencil().toolTip(), QStringLiteral("Edit Tag"));
    EXPECT_FALSE(row->isHovered());
    EXPECT_TRUE(isBare());
    pointTo(true);
    EXPECT_TRUE(row->isHovered());
    EXPECT_TRUE(QTest::qWaitFor([this] { return showsPencil(); }));
    pointTo(false);
    EXPECT_FALSE(row->isHovered());
    EXPECT_TRUE(QTest::qWaitFor([this] { return isBare(); }));
}

TEST_F(TagRowTest, thePencilShowsWhileItHasTheKeyboard) {
    open().setTabStop(true);
    pencil().setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(showsPencil());
    pencil().clearFocus();
    EXPECT_TRUE(isBare());
}

TEST_F(TagRowTest, aClickOnThePencilEditsAndDoesNotSelect) {
    int edits = 0;
    int clicks = 0;
    open().onEdit = [&] { ++edits; };
    QObject::connect(row, &QAbstractButton::clicked, &window, [&] { ++clicks; });
    QTest::mouseClick(&pencil(), Qt::LeftButton);
    EXPECT_EQ(edits, 1);
    EXPECT_EQ(clicks, 0);
    QTest::mouseClick(row, Qt::LeftButton, {}, QPoint(60, 17));
    EXPECT_EQ(edits, 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(TagRowTest, showsADotOfTenInTheTagsColour) {
    open();
    const QImage picture = row->grab().toImage();
    for (const QPoint at : {QPoint(17, 17), QPoint(13, 17), QPoint(20, 17), QPoint(17, 13), QPoint(17, 20)})
        EXPECT_EQ(picture.pixelColor(at).name(), QStringLiteral("#2bb673")) << at.x() << ' ' << at.y();
    for (const QPoint at : {QPoint(10, 17), QPoint(24, 17), QPoint(17, 10), QPoint(17, 24)})
        EXPECT_NE(picture.pixelColor(at).name(), QStringLiteral("#2bb673")) << at.x() << ' ' << at.y();
}

TEST_F(TagRowTest, isNamedAfterItsTagWithAnyCharacters) {
    open(QStringLiteral("R&D"));
    EXPECT_EQ(row->accessibleName(), QStringLiteral("R&D"));
    EXPECT_TRUE(row->shortcut().isEmpty());
    row->tag()->setName(QStringLiteral("Other"));
    row->refresh();
    EXPECT_EQ(row->accessibleName(), QStringLiteral("Other"));
}

TEST_F(TagRowTest, aLongNameEndsBeforeThePencil) {
    open(QStringLiteral("W").repeated(300));
    const QImage picture = row->grab().toImage();
    const QColor ground = picture.pixelColor(2, 2);
    for (int x = pencil().x(); x < row->width(); ++x)
        EXPECT_EQ(picture.pixelColor(x, 17), ground) << x;
}

} // namespace Quillstacks
