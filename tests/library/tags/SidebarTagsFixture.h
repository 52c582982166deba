#pragma once

#include "interface/Menu.h"
#include "interface/Sheet.h"
#include "library/LibraryFixture.h"
#include "library/tags/SidebarTagsSection.h"
#include "TagRow.h"

#include <QLayout>

namespace Quillstacks {

/// The sidebar's rows in a window that has the keyboard.
class SidebarTagsFixture : public LibraryFixture {
protected:
    SidebarTagsSection& open() {
        section = new SidebarTagsSection(library.context(), all, &window);
        section->setGeometry(0, 0, 319, 700);
        section->onCreate = [this] { ++created; };
        section->onEdit = [this](Tag* tag) { edited += tag; };
        QObject::connect(section, &SidebarTagsSection::selectedTagIdChanged, &window,
                         [this](const std::optional<Uuid>& id) { told += id.value(); });
        show(window, QSize(600, 700));
        return *section;
    }
    /// The row with this title; nullptr for none.
    SidebarRow* row(const char* title) { return named<SidebarRow>(*section, QLatin1String(title)); }
    /// The titles of all rows from top to bottom.
    QStringList titles() {
        section->layout()->activate();
        QList<SidebarRow*> rows;
        for (SidebarRow* each : section->findChildren<SidebarRow*>())
            if (each->isVisible())
                rows += each;
        std::ranges::sort(rows, {}, [this](SidebarRow* each) { return each->mapTo(section, QPoint(0, 0)).y(); });
        QStringList result;
        for (const SidebarRow* each : rows)
            result += each->text();
        return result;
    }
    /// The titles of the rows that are shown as selected.
    QStringList selectedTitles() {
        QStringList result;
        for (const SidebarRow* each : section->findChildren<SidebarRow*>())
            if (each->isChecked())
                result += each->text();
        return result;
    }
    void click(const char* title) { QTest::mouseClick(row(title), Qt::LeftButton, {}, QPoint(60, 17)); }
    void press(Qt::Key key) { QTest::keyClick(window.windowHandle(), key); }
    void settle() { library.context().processPendingChanges(); }

    const Uuid all{};
    QWidget window;
    SidebarTagsSection* section = nullptr;
    int created = 0;
    QList<Tag*> edited;
    QList<Uuid> told;
};

} // namespace Quillstacks
