#pragma once

#include "quickaccess/QuickAccessRow.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <QWidget>

namespace Quillstacks {

class LazyList;
class Prompt;

/// The list of results in its two sections. It knows results by their index; the headings between them are its own.
class QuickAccessResultList final : public QWidget {
    Q_OBJECT
public:
    explicit QuickAccessResultList(QWidget* parent = nullptr);

    /// The results, pinned ones first.
    void setResults(const QList<Prompt*>& results, int selectedIndex);
    void setSelectedIndex(int index);
    /// The heights of rows are kept from one search to the next; to be called when a prompt or the look has changed.
    void forgetHeights();
    /// Scrolls the row of a result into the middle, in 200 ms.
    void follow(int index);
    void scrollToTop();

    /// The headings that are shown, from the top.
    [[nodiscard]] QStringList sectionTitles() const;
    /// The title of a result as its row shows it; empty where there is none.
    [[nodiscard]] QString titleAt(int index) const;
    /// The row of a result, or nullptr while it cannot be seen.
    [[nodiscard]] QuickAccessRow* row(int index) const;
    [[nodiscard]] LazyList* list() const { return rows; }

Q_SIGNALS:
    void clicked(int index);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    enum Kind { promptKind, headerKind };
    struct Item {
        Kind kind = promptKind;
        int index = 0; ///< of the result, or the section's number
    };
    void installSource();
    void bind(QWidget* row, int at);
    void placeFade();
    void takeMetrics();
    void settle();
    [[nodiscard]] int heightOf(int at, int width);
    [[nodiscard]] int headerCount() const { return pinnedCount == 0 ? 0 : pinnedCount == results.size() ? 1 : 2; }
    [[nodiscard]] Item itemAt(int at) const;
    [[nodiscard]] int rowOf(int index) const;
    [[nodiscard]] bool holds(int index) const { return index >= 0 && index < results.size(); }

    LazyList* rows = nullptr;
    QList<Prompt*> results;
    qsizetype pinnedCount = 0;
    int selected = 0;
    QuickAccessRow::Metrics rowMetrics;
    int headerHeights[2] = {0, 0}; ///< by section
    QHash<const Prompt*, int> heights;
    int heightsWidth = 0; ///< the width that they hold for
};

} // namespace Quillstacks
