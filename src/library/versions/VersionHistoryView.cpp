#include "library/versions/VersionHistoryView.h"

#include "DiffContent.h"
#include "foundation/Clock.h"
#include "foundation/Log.h"
#include "interface/Accessible.h"
#include "interface/Alert.h"
#include "interface/Button.h"
#include "interface/Label.h"
#include "interface/LazyList.h"
#include "interface/SegmentedPicker.h"
#include "interface/ToastManager.h"
#include "library/versions/PromptVersionManager.h"
#include "library/versions/VersionPreferences.h"
#include "PreviewContent.h"
#include "RelativeDate.h"
#include "VersionRow.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace Quillstacks {
namespace {

constexpr double toastSeconds = 2.0;

} // namespace

VersionHistoryView::VersionHistoryView(ModelContext& context, Prompt& shownPrompt, std::function<void()> restored,
                                       QWidget* parent)
    : QWidget(parent), modelContext(context), prompt(shownPrompt), onRestore(std::move(restored)) {
    setObjectName(QStringLiteral("VersionHistoryView"));
    build();
    connectParts();
    refresh();
    (sorted.isEmpty() ? static_cast<QWidget*>(closeButton) : list)->setFocus(Qt::OtherFocusReason);
}

PromptVersion* VersionHistoryView::selectedVersion() const {
    return selected && !selected->isDeleted() ? selected : nullptr;
}

void VersionHistoryView::setViewMode(ViewMode viewMode) {
    mode = viewMode;
    modePicker->setSelection(static_cast<int>(mode));
    refreshDetail();
}

bool VersionHistoryView::hasChanges() const {
    const PromptVersion* version = selectedVersion();
    return version && (version->title() != prompt.title() || version->body() != prompt.body());
}

void VersionHistoryView::readVersions() {
    sorted.clear();
    try {
        sorted = prompt.versions();
    } catch (const std::exception& error) {
        Log::logDataError(QStringLiteral("reading versions"), error);
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const PromptVersion* a, const PromptVersion* b) { return a->createdAt() > b->createdAt(); });
    if (!sorted.contains(selected))
        selected = nullptr;
}

void VersionHistoryView::contextChanged(const ChangeSet& changes) {
    if (prompt.isDeleted()) {
        if (changes.deleted.contains(&prompt))
            closeHistory();
        return;
    }
    const auto isUpdated = [&changes](const Record* record) { return changes.updated.contains(record); };
    if (isUpdated(&prompt) || std::any_of(prompt.tags().begin(), prompt.tags().end(), isUpdated))
        refresh();
}

void VersionHistoryView::refresh() {
    readVersions();
    countLabel->setText(QString::number(sorted.size()));
    emptyState->setVisible(sorted.isEmpty());
    list->setVisible(!sorted.isEmpty());
    list->reload();
    refreshDetail();
}

void VersionHistoryView::refreshDetail() {
    list->rebind(); // all rows: the dates go on
    const PromptVersion* version = selectedVersion();
    detailTitle->setText(version ? QStringLiteral("Version Preview") : QStringLiteral("Current Version"));
    detailDate->setText(
        relativeDate(version ? version->createdAt() : prompt.updatedAt(), Clock::now(), RelativeDateUnits::full));
    modePicker->setVisible(version);
    restoreButton->setVisible(version);
    const bool compares = version && mode == ViewMode::diff;
    // The keyboard would go on to whatever comes next, with a ring.
    if ((compares ? static_cast<QWidget*>(preview) : diff)->isAncestorOf(window()->focusWidget()))
        list->setFocus(Qt::OtherFocusReason);
    // Filled before it is shown: what can't be seen is not laid out.
    if (compares)
        diff->setTexts({version->title(), prompt.title(), version->body(), prompt.body()});
    else if (version)
        preview->setFields({version->title(), version->body(), version->tagNames(), version->tagColors(), prompt.tags(),
                            false, hasChanges()});
    else
        preview->setFields({prompt.title(), prompt.body(), {}, {}, prompt.tags(), true, false});
    diff->setVisible(compares);
    preview->setVisible(!compares);
}

PromptVersion* VersionHistoryView::versionAt(int row) const {
    return row > 0 && row <= sorted.size() ? sorted[row - 1] : nullptr;
}

int VersionHistoryView::selectedRow() const {
    return static_cast<int>(sorted.indexOf(selectedVersion())) + 1; // the present state's row where there is none
}

void VersionHistoryView::bindRow(QWidget* row, int index) const {
    const PromptVersion* version = versionAt(index);
    VersionRow::Fields fields;
    fields.title =
        version ? QStringLiteral("Version %1").arg(sorted.size() - (index - 1)) : QStringLiteral("Current Version");
    fields.date = version ? version->createdAt() : prompt.updatedAt();
    fields.isCurrent = !version;
    fields.isSelected = index == selectedRow();
    static_cast<VersionRow*>(row)->setFields(fields);
}

void VersionHistoryView::select(PromptVersion* version) {
    selected = sorted.contains(version) ? version : nullptr;
    const int row = selectedRow();
    list->ensureVisible(row);
    if (QWidget* shown = list->row(row))
        announceState(shown);
    refreshDetail();
}

void VersionHistoryView::moveSelection(int rows) {
    select(versionAt(std::clamp(selectedRow() + rows, 0, static_cast<int>(sorted.size()))));
}

bool VersionHistoryView::handleKey(const QKeyEvent& event) {
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    const int all = static_cast<int>(sorted.size());
    switch (event.key()) {
    case Qt::Key_Up:
        moveSelection(-1);
        return true;
    case Qt::Key_Down:
        moveSelection(1);
        return true;
    case Qt::Key_Home:
        moveSelection(-all);
        return true;
    case Qt::Key_End:
        moveSelection(all);
        return true;
    default:
        return false; // Return is the sheet's: it presses "Restore"
    }
}

void VersionHistoryView::askToRestore() {
    if (showingRestoreAlert || !selectedVersion())
        return;
    showingRestoreAlert = true;
    restoreAlert = Alert::show(
        this,
        {.title = QStringLiteral("Restore Version?"),
         .message = QStringLiteral("This will replace the current version with the selected version. The "
                                   "current version will be saved in history."),
         .confirmTitle = QStringLiteral("Restore"),
         .destructive = true},
        [this] {
            showingRestoreAlert = false;
            restoreSelectedVersion();
        },
        [this] { cancelRestore(); });
}

void VersionHistoryView::cancelRestore() {
    showingRestoreAlert = false;
    if (restoreAlert)
        restoreAlert->dismiss();
}

void VersionHistoryView::restoreSelectedVersion() {
    const PromptVersion* version = selectedVersion();
    if (!version)
        return;
    // A full history prunes its oldest version to keep the present text, and a version that is deleted has no text any
    // more; it may be this one.
    const PromptVersion kept(version->promptId(), version->title(), version->body(), {});
    try {
        PromptVersionManager::createVersion(prompt, modelContext, versionHistoryLimitPreference().value());
    } catch (const std::exception& error) {
        Log::logDataError(QStringLiteral("restoring version"), error);
        return;
    }
    PromptVersionManager::restoreVersion(kept, prompt);
    try {
        modelContext.save();
    } catch (const std::exception&) {
        // Dropped: the changes stay in the context, and the next save writes them.
    }
    ToastManager::shared().show(QStringLiteral("Version restored"), toastSeconds);
    if (onRestore)
        onRestore();
    closeHistory();
}

void VersionHistoryView::closeHistory() {
    Q_EMIT closed();
}

} // namespace Quillstacks
