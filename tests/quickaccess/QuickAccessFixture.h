#pragma once

#include "foundation/ManualClock.h"
#include "interface/Sheet.h"
#include "interface/TextField.h"
#include "interface/Theme.h"
#include "interface/ToastManager.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"
#include "platform/FakeDesktop.h"
#include "quickaccess/QuickAccessEmptyState.h"
#include "quickaccess/QuickAccessPanel.h"
#include "quickaccess/QuickAccessResultList.h"
#include "quickaccess/QuickAccessRow.h"
#include "quickaccess/QuickAccessSearchRow.h"
#include "quickaccess/QuickAccessView.h"
#include "support/TestPreferences.h"
#include "variables/VariablePreferences.h"
#include "variables/VariableSubstitutionView.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>

namespace Quillstacks {

/// A library on disk, an empty domain, a clock that stands still and a desktop that remembers.
class LibraryFixture : public testing::Test {
protected:
    LibraryFixture() {
        FakeDesktop::fresh();
        Theme::shared().refresh();
    }

    /// Each one that is added is newer than those before.
    Prompt* add(const QString& title, const QString& body = {}, const QList<Tag*>& tags = {}) {
        clock.advance(std::chrono::seconds(1));
        return context.insert(std::make_unique<Prompt>(title, body, tags));
    }
    Prompt* addPinned(const QString& title, const QString& body = {}) {
        Prompt* prompt = add(title, body);
        prompt->togglePin();
        return prompt;
    }
    Tag* addTag(const QString& name) { return context.insert(std::make_unique<Tag>(name, QStringLiteral("#4D96FF"))); }
    static QStringList titles(const QList<Prompt*>& prompts) {
        QStringList result;
        for (const Prompt* prompt : prompts)
            result << prompt->title();
        return result;
    }

    TestPreferences preferences;
    ManualClock clock;
    QTemporaryDir folder;
    ModelContainer container{Schema::current(), {folder.filePath(QStringLiteral("Quillstacks.store"))}};
    ModelContext& context = container.mainContext();
};

/// The view in a panel, as it is shown.
class QuickAccessFixture : public LibraryFixture {
protected:
    /// Shows a fresh view over the library as it is now; its search field has the keyboard then.
    QuickAccessView& show() {
        view = new QuickAccessView(context, [this] { close(); });
        panel.setRootView(view);
        panel.resize(712, 552);
        view->appear();
        panel.show();
        panel.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&panel));
        QTest::qWait(0);
        return *view;
    }
    void close() {
        ++closings;
        textAtClosing = FakeDesktop::shared().clipboardText;
        if (onClose)
            onClose();
        panel.hide();
    }
    [[nodiscard]] TextField* field() const { return view->searchRow()->field(); }
    void press(Qt::Key key) { QTest::keyClick(field(), key); }
    void type(const QString& text) { QTest::keyClicks(field(), text); }
    [[nodiscard]] VariableSubstitutionView* fillIn() const {
        const Sheet* sheet = Sheet::top(&panel);
        return sheet ? qobject_cast<VariableSubstitutionView*>(sheet->content()) : nullptr;
    }
    [[nodiscard]] static QString clipboard() { return FakeDesktop::shared().clipboardText; }

    QuickAccessPanel panel;
    QuickAccessView* view = nullptr;
    int closings = 0;
    QString textAtClosing;
    std::function<void()> onClose;
};

} // namespace Quillstacks
