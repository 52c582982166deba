#pragma once

#include "foundation/ManualClock.h"
#include "interface/Sheet.h"
#include "platform/FakeDesktop.h"
#include "support/TestPreferences.h"
#include "variables/FillInFlow.h"
#include "variables/VariableInputField.h"
#include "variables/VariablePreferences.h"
#include "variables/VariableSubstitutionView.h"

#include <QAbstractButton>
#include <QTest>
#include <QTextEdit>
#include <QWidget>

#include <gtest/gtest.h>

#include <chrono>

namespace Quillstacks {

/// A window that the fill-in sheet is shown over, with an empty domain and a clock that stands still.
class FillInFixture : public testing::Test {
protected:
    FillInFixture() {
        FakeDesktop::fresh();
        host.resize(900, 700);
        host.show();
        host.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&host));
    }

    /// Shows the sheet for a body, as the editor and quick access do.
    VariableSubstitutionView* present(const QString& body, const QString& title = QStringLiteral("Letter")) {
        presentFillIn(
            &host, title, body, [this](const QString& text) { completions << text; }, [this] { ++cancellations; });
        Sheet* sheet = Sheet::top(&host);
        return sheet ? qobject_cast<VariableSubstitutionView*>(sheet->content()) : nullptr;
    }
    /// The same, once the first field has taken the keyboard.
    VariableSubstitutionView* presentAndWait(const QString& body) {
        auto* view = present(body);
        clock.advance(std::chrono::milliseconds(100));
        return view;
    }
    static QAbstractButton* button(const QWidget* view, const char* name) {
        return view->findChild<QAbstractButton*>(QString::fromLatin1(name));
    }
    static QTextEdit* field(const VariableSubstitutionView* view, const QString& variable) {
        return view->inputField(variable)->findChild<QTextEdit*>();
    }
    static void press(VariableSubstitutionView* view, const QString& variable, Qt::Key key,
                      Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(field(view, variable), key, modifiers);
    }
    static void type(VariableSubstitutionView* view, const QString& variable, const QString& text) {
        QTest::keyClicks(field(view, variable), text);
    }
    [[nodiscard]] bool isSheetOpen() const { return Sheet::top(&host) != nullptr; }

    TestPreferences preferences;
    ManualClock clock;
    QWidget host;
    QStringList completions;
    int cancellations = 0;
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
};

} // namespace Quillstacks
