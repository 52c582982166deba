#include "shell/WindowAccessor.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

TEST(WindowAccessor, theWindowIsToldOnceItIsThereAndNotBefore) {
    QWidget window;
    QList<QWidget*> told;
    new WindowAccessor([&told](QWidget* found) { told << found; }, &window);
    EXPECT_TRUE(told.isEmpty());
    window.show();
    EXPECT_EQ(told, QList<QWidget*>{&window});
}

TEST(WindowAccessor, aWindowThatShowsAgainIsToldAgain) {
    QWidget window;
    int told = 0;
    new WindowAccessor([&told](QWidget*) { ++told; }, &window);
    window.show();
    window.hide();
    window.show();
    EXPECT_EQ(told, 2);
}

TEST(WindowAccessor, theCallbackIsTheOneThatIsSetAtThatMoment) {
    QWidget window;
    bool old = false;
    bool present = false;
    auto* accessor = new WindowAccessor([&old](QWidget*) { old = true; }, &window);
    accessor->onResolve = [&present](QWidget*) { present = true; };
    window.show();
    EXPECT_FALSE(old);
    EXPECT_TRUE(present);
}

TEST(WindowAccessor, withoutACallbackNothingHappens) {
    QWidget window;
    new WindowAccessor({}, &window);
    window.show();
    EXPECT_TRUE(window.isVisible());
}

} // namespace
} // namespace Quillstacks
