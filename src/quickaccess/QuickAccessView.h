#pragma once

#include "library/model/LiveQuery.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>

namespace Quillstacks {

class FillVariablesToggle;
class ModelContext;
class Prompt;
class QuickAccessEmptyState;
class QuickAccessFooter;
class QuickAccessResultList;
class QuickAccessSearchRow;

/// The content of the panel: a search field, the results, and a footer of key hints. It lives from one show of the
/// panel to the next, and never changes a prompt.
class QuickAccessView final : public QWidget {
    Q_OBJECT
public:
    /// `close` dismisses the panel.
    QuickAccessView(ModelContext& context, std::function<void()> close, QWidget* parent = nullptr);
    ~QuickAccessView() override;
    Q_DISABLE_COPY_MOVE(QuickAccessView)

    /// As typed, blanks included.
    [[nodiscard]] const QString& searchText() const { return search; }
    void setSearchText(const QString& text);
    /// Of the results; may lie outside of them.
    [[nodiscard]] int selectedIndex() const { return selection; }
    /// Whether the search field has the keyboard, or takes it as soon as no sheet lies over it.
    [[nodiscard]] bool isSearchFocused() const { return searchFocused; }
    [[nodiscard]] bool showVariableSubstitution() const { return sheetShown; }
    /// The prompt that the fill-in sheet is for; nullptr when there is none.
    [[nodiscard]] Prompt* pendingPrompt() const { return pending; }

    /// What the search text finds, pinned prompts first; worked out anew at each call.
    [[nodiscard]] QList<Prompt*> results() const;
    [[nodiscard]] QList<Prompt*> pinnedResults() const;
    [[nodiscard]] QList<Prompt*> otherResults() const;
    /// The line that stands in for the list while results() is empty.
    [[nodiscard]] QString emptyText() const;

    /// Measures and fills the list ahead, while nobody waits, for an appear() that finds the library as it is now.
    void prepare();
    /// Starts anew: no search text, the first row selected, and on the next turn the keyboard for the search field.
    void appear();
    void moveUp();
    void moveDown();
    /// Return: chooses the selected row, if there is one.
    void chooseSelected();
    /// A click on the row at an index.
    void choose(int index);
    /// Escape: leaves without copying.
    void escape();

    /// The visible card, within the view.
    [[nodiscard]] QRect cardRect() const;
    [[nodiscard]] int cardRadius() const;

    [[nodiscard]] QuickAccessResultList* resultList() const { return list; }
    [[nodiscard]] QuickAccessEmptyState* emptyState() const { return empty; }
    [[nodiscard]] QuickAccessSearchRow* searchRow() const { return searchBar; }
    [[nodiscard]] FillVariablesToggle* toggle() const;

Q_SIGNALS:
    /// Before its appear(): what prepare() has put there is no longer what that will show.
    void outdated();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void build();
    void connectParts();
    void connectToWhatItShows();
    void outdate();
    void placeParts();
    void refresh();
    void showResults(const QList<Prompt*>& results);
    void setSelectedIndex(int index, int count);
    void describeSelection();
    void setSearchFocused(bool focused);
    [[nodiscard]] bool handleKey(int key);
    void choosePrompt(Prompt* prompt);
    void fillIn(Prompt* prompt, const QStringList& variables);
    void copy(const QString& text, const QString& title);

    ModelContext& modelContext;
    PromptQuery prompts;
    std::function<void()> close;
    QString search;
    int selection = 0;
    bool searchFocused = false;
    bool sheetShown = false;
    Prompt* pending = nullptr;
    bool hasAppeared = false;
    bool isPrepared = false; ///< the list shows the library as it is, unsearched

    QuickAccessSearchRow* searchBar = nullptr;
    QuickAccessResultList* list = nullptr;
    QuickAccessEmptyState* empty = nullptr;
    QuickAccessFooter* footer = nullptr;
};

} // namespace Quillstacks
