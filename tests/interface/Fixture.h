#pragma once

#include "interface/AppearanceMode.h"
#include "interface/Theme.h"
#include "platform/FakeDesktop.h"
#include "support/TestPreferences.h"

#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {

/// A desktop and preferences of its own for each test, and a window that has the keyboard.
class InterfaceTest : public testing::Test {
protected:
    InterfaceTest() {
        FakeDesktop::fresh();
        Theme::shared().refresh();
    }
    ~InterfaceTest() override { Theme::shared().refresh(); }

    void showWindow(const QSize& size = {800, 600}) {
        window.resize(size);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    TestPreferences preferences;
    QWidget window;
};

/// How often a widget was drawn.
class PaintCount final : public QObject {
public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }
    int count = 0;

private:
    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace Quillstacks
