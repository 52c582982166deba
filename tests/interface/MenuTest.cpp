#include "interface/Menu.h"

#include "Fixture.h"
#include "interface/Shadow.h"
#include "interface/Style.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>

namespace Quillstacks {
namespace {

class MenuOf : public InterfaceTest {
protected:
    MenuOf() {
        installStyle(*qApp);
        showWindow();
    }
    ~MenuOf() override {
        delete menu;
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    }
    void popup() {
        menu = new Menu(&window);
        edit = menu->add(QStringLiteral("pencil"), QStringLiteral("Edit"), [this] { ++edits; });
        menu->popup(place);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
    }
    /// Where the first row begins on the screen.
    [[nodiscard]] QPoint firstRow() const { return menu->mapToGlobal(menu->actionGeometry(edit).topLeft()); }

    const QPoint place{200, 150};
    const int reach = shadowReach(ShadowKind::menu);
    QPointer<Menu> menu;
    QAction* edit = nullptr;
    int edits = 0;
};

TEST_F(MenuOf, castsAShadowAroundThePlaceThatItWasAskedFor) {
    popup();
    EXPECT_EQ(firstRow(), place + QPoint(5, 5));
    const QImage picture = menu->grab().toImage();
    const QPoint middle = menu->rect().center();
    EXPECT_EQ(picture.pixelColor(middle.x(), reach + 2).alpha(), 255);
    const int below = menu->height() - reach + 4;
    EXPECT_GT(picture.pixelColor(middle.x(), below).alpha(), 20);
    EXPECT_LT(picture.pixelColor(middle.x(), below).alpha(), 200);
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
}

TEST_F(MenuOf, aClickOnARowChoosesIt) {
    popup();
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(edit).center());
    EXPECT_EQ(edits, 1);
}

TEST_F(MenuOf, aClickInItsShadowClosesIt) {
    popup();
    QTest::mouseClick(menu, Qt::LeftButton, {}, QPoint(menu->width() / 2, menu->height() - 5));
    EXPECT_TRUE(!menu || !menu->isVisible());
    EXPECT_EQ(edits, 0);
}

TEST_F(MenuOf, withoutACompositorItHasNone) {
    FakeDesktop::shared().setComposited(false);
    Theme::shared().refresh();
    popup();
    EXPECT_EQ(firstRow(), place + QPoint(5, 5));
    EXPECT_EQ(menu->pos(), place);
}

} // namespace
} // namespace Quillstacks
