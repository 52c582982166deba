#pragma once

#include "platform/FakeDesktop.h"
#include "support/TestPreferences.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {

/// Finds what a person would see in a view.
class PanelFixture : public testing::Test {
protected:
    /// The texts of the labels that are visible, from the top.
    static QStringList texts(const QWidget& view) {
        QList<QLabel*> labels;
        for (QLabel* label : view.findChildren<QLabel*>())
            if (label->isVisible() && !label->text().isEmpty())
                labels += label;
        const auto place = [&view](const QLabel* label) {
            const QPoint at = label->mapTo(&view, QPoint(0, label->height() / 2));
            return std::pair(at.y() / 6, at.x());
        };
        std::stable_sort(labels.begin(), labels.end(), [&](QLabel* a, QLabel* b) { return place(a) < place(b); });
        QStringList result;
        for (const QLabel* label : labels)
            result += label->text();
        return result;
    }
    template <typename T = QAbstractButton>
    static T* named(const QWidget& view, const char* name) {
        for (T* each : view.findChildren<T*>())
            if (each->accessibleName() == QLatin1String(name))
                return each;
        return nullptr;
    }
    static void show(QWidget& view, QSize size) {
        view.resize(size);
        view.show();
        QCoreApplication::processEvents();
    }

    FakeDesktop& desktop = FakeDesktop::fresh();
    TestPreferences preferences;
};

} // namespace Quillstacks
