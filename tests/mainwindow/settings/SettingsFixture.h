#pragma once

#include "foundation/ManualClock.h"
#include "interface/Button.h"
#include "interface/Label.h"
#include "interface/SegmentedPicker.h"
#include "interface/Sheet.h"
#include "interface/SymbolImage.h"
#include "interface/Theme.h"
#include "library/model/TestLibrary.h"
#include "mainwindow/settings/SettingsView.h"
#include "platform/FakeDesktop.h"
#include "support/ShownSymbol.h"
#include "support/TestPreferences.h"

#include <QScrollArea>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace Quillstacks {

/// The settings as a sheet of a window that has the keyboard, on a desktop of their own whose time stands still.
class SettingsFixture : public testing::Test {
protected:
    SettingsFixture() {
        FakeDesktop::fresh();
        Theme::shared().refresh();
    }

    void open(const QSize& windowSize = {1280, 720}) {
        window.resize(windowSize);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        auto content = std::make_unique<SettingsView>(library.context());
        settings = content.get();
        sheet = Sheet::present(&window, std::move(content), SettingsView::sheetOptions());
        QObject::connect(settings, &SettingsView::closed, sheet, &Sheet::dismiss);
        QCoreApplication::processEvents(); // lays it out
    }
    /// A key as the window system delivers it: to whatever has the keyboard.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window.windowHandle(), key, modifiers);
    }
    /// Scrolls there first, where it lies further down.
    void click(QWidget* widget) {
        for (QWidget* over = widget->parentWidget(); over; over = over->parentWidget())
            if (auto* area = qobject_cast<QScrollArea*>(over))
                area->ensureWidgetVisible(widget);
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, widget->mapTo(&window, widget->rect().center()));
    }
    /// The control with this name that can be seen in the window; nullptr for none.
    template <typename Control = QAbstractButton>
    [[nodiscard]] Control* named(const QString& accessibleName, const QWidget* within = nullptr) const {
        const QWidget* place = within ? within : &window;
        for (Control* control : place->findChildren<Control*>())
            if (control->accessibleName() == accessibleName && control->isVisibleTo(place))
                return control;
        return nullptr;
    }
    [[nodiscard]] static QStringList texts(const QWidget& within) {
        QStringList result;
        for (const Label* label : within.findChildren<Label*>())
            if (label->isVisibleTo(&within))
                result += label->text();
        return result;
    }
    /// Whether one of a widget's pictures is this symbol, `size` points wide.
    [[nodiscard]] static bool hasSymbol(const QWidget& within, const char* name, int size, ColorRole role) {
        const auto images = within.findChildren<SymbolImage*>();
        return std::ranges::any_of(images, [&](SymbolImage* image) {
            return showsSymbol(*image, QString::fromLatin1(name), size, Theme::shared().color(role));
        });
    }
    [[nodiscard]] QWidget* part(const char* name) const {
        return window.findChild<QWidget*>(QString::fromLatin1(name));
    }

    TestPreferences preferences;
    ManualClock clock;
    TestLibrary library;
    QWidget window;
    SettingsView* settings = nullptr;
    QPointer<Sheet> sheet;
};

} // namespace Quillstacks
