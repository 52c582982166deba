#pragma once

#include "foundation/Clock.h"
#include "interface/Label.h"
#include "interface/LazyList.h"
#include "interface/SegmentedPicker.h"
#include "interface/Sheet.h"
#include "library/versions/VersionHistoryView.h"
#include "LibraryFixture.h"
#include "VersionRow.h"

#include <QApplication>

namespace Quillstacks {

/// A window for the sheet, and a prompt whose history it shows.
class VersionHistory : public LibraryFixture {
protected:
    VersionHistory() { prompt = addPrompt(QStringLiteral("Now"), QStringLiteral("one\ntwo")); }

    /// Adds a version dated now; a second goes by.
    PromptVersion* addVersion(const QString& title, const QString& body, const QList<Tag*>& tags = {}) {
        PromptVersion* version =
            prompt->appendVersion(std::make_unique<PromptVersion>(prompt->id(), title, body, tags));
        library.context().save();
        clock.advance(std::chrono::seconds(1));
        return version;
    }
    PromptVersion* addVersion(const char* title) {
        return addVersion(QString::fromUtf8(title), QStringLiteral("text of ") + QString::fromUtf8(title));
    }
    /// The same, dated as told and not saved.
    PromptVersion* addVersionOf(const QString& title, Date created) {
        auto version = std::make_unique<PromptVersion>(prompt->id(), title, QString(), QList<Tag*>());
        version->restoreIdentity(randomUuid(), {}, {}, created);
        return prompt->appendVersion(std::move(version));
    }
    VersionHistoryView& present() {
        if (!host.isVisible())
            show(host, QSize(1200, 800));
        auto made = std::make_unique<VersionHistoryView>(library.context(), *prompt, [this] { ++restores; });
        view = made.get();
        Sheet* sheet = Sheet::present(&host, std::move(made), VersionHistoryView::sheetOptions());
        QObject::connect(view, &VersionHistoryView::closed, sheet, &Sheet::dismiss);
        QObject::connect(view, &VersionHistoryView::closed, &host, [this] { ++closes; });
        return *view;
    }
    /// The topmost sheet that is not on its way out: the history, an alert over it, or none.
    [[nodiscard]] Sheet* topSheet() const {
        Sheet* sheet = Sheet::top(&host);
        return sheet && !sheet->isDismissed() ? sheet : nullptr;
    }
    [[nodiscard]] LazyList& rows() const { return *view->findChild<LazyList*>(); }
    [[nodiscard]] VersionRow& row(int index) const { return *qobject_cast<VersionRow*>(rows().row(index)); }
    [[nodiscard]] QStringList rowTitles() const {
        QStringList titles;
        for (int i = 0; i < rows().count(); ++i)
            if (const auto* shown = qobject_cast<VersionRow*>(rows().row(i)))
                titles += shown->fields().title;
        return titles;
    }
    void clickRow(int index) const {
        QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, rows().rowGeometry(index).center());
    }
    /// Presses a key where the keyboard is.
    void press(Qt::Key key) const {
        QWidget* focus = QApplication::focusWidget();
        ASSERT_TRUE(focus);
        QTest::keyClick(focus, key);
    }
    /// The labels' texts that can be seen.
    [[nodiscard]] QStringList texts() const {
        QStringList result;
        for (const QLabel* label : view->findChildren<QLabel*>())
            if (label->isVisibleTo(view))
                result += label->text();
        return result;
    }
    [[nodiscard]] bool shows(const char* text) const { return texts().contains(QString::fromUtf8(text)); }
    template <typename Part>
    [[nodiscard]] Part* part() const {
        return view->findChild<Part*>();
    }
    void answerAlert(const QString& button) {
        Sheet* alert = topSheet();
        ASSERT_TRUE(alert);
        ASSERT_NE(alert->content(), view);
        Button* answer = visibleButton(*alert, button);
        ASSERT_TRUE(answer);
        answer->click();
    }

    QWidget host;
    Prompt* prompt = nullptr;
    VersionHistoryView* view = nullptr;
    int restores = 0;
    int closes = 0;
};

} // namespace Quillstacks
