#pragma once

#include "interface/Sheet.h"
#include "library/model/ModelContext.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class QBoxLayout;

namespace Quillstacks {

class Button;
class DiffContent;
class Label;
class LazyList;
class PreviewContent;
class SegmentedPicker;

/// How the selected version is shown.
enum class ViewMode { preview, diff };

/// The sheet with the history of a prompt: a list of the present state and its versions, and beside it the one that is
/// selected, as it was or compared with the present, to be restored.
class VersionHistoryView final : public QWidget {
    Q_OBJECT
public:
    /// `onRestore` is called after a restore, before closed(). Context and prompt outlive the view.
    VersionHistoryView(ModelContext& modelContext, Prompt& prompt, std::function<void()> onRestore = {},
                       QWidget* parent = nullptr);

    // State
    /// None while the present state is selected; never one that has been deleted.
    [[nodiscard]] PromptVersion* selectedVersion() const;
    [[nodiscard]] bool isShowingRestoreAlert() const { return showingRestoreAlert; }
    /// Kept while the selection changes.
    [[nodiscard]] ViewMode viewMode() const { return mode; }
    void setViewMode(ViewMode viewMode);

    // Derived
    /// The newest first; equal dates in the order of the prompt's list. Empty where they can't be read.
    [[nodiscard]] const QList<PromptVersion*>& sortedVersions() const { return sorted; }
    /// Whether the selected version's title or body differs from the prompt's.
    [[nodiscard]] bool hasChanges() const;

    // Actions
    /// nullptr for the present state.
    void select(PromptVersion* version);
    void moveSelection(int rows);
    void askToRestore();
    void cancelRestore();
    /// Keeps the present text as a version and puts the selected one in its place, then closes. Where the present text
    /// can't be kept nothing happens.
    void restoreSelectedVersion();
    void closeHistory();

    /// How the sheet is to be presented.
    [[nodiscard]] static Sheet::Options sheetOptions();
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The sheet is to close.
    void closed();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void build();
    [[nodiscard]] QWidget* buildList();
    [[nodiscard]] QBoxLayout* buildDetail();
    [[nodiscard]] QBoxLayout* buildDetailHeader();
    [[nodiscard]] QBoxLayout* buildFooter();
    void connectParts();
    void contextChanged(const ChangeSet& changes);
    void readVersions();
    void refresh();
    void refreshDetail();
    void bindRow(QWidget* row, int index) const;
    [[nodiscard]] bool handleKey(const QKeyEvent& event);
    [[nodiscard]] int selectedRow() const;
    [[nodiscard]] PromptVersion* versionAt(int row) const;

    ModelContext& modelContext;
    Prompt& prompt;
    std::function<void()> onRestore;
    QList<PromptVersion*> sorted;
    PromptVersion* selected = nullptr;
    bool showingRestoreAlert = false;
    ViewMode mode = ViewMode::preview;

    Label* countLabel = nullptr;
    LazyList* list = nullptr;
    QWidget* emptyState = nullptr;
    Label* detailTitle = nullptr;
    Label* detailDate = nullptr;
    SegmentedPicker* modePicker = nullptr;
    PreviewContent* preview = nullptr;
    DiffContent* diff = nullptr;
    Button* closeButton = nullptr;
    Button* restoreButton = nullptr;
    QPointer<Sheet> restoreAlert;
};

} // namespace Quillstacks
