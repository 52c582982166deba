#include "mainwindow/settings/SettingsView.h"

#include "AdvancedSettingsTab.h"
#include "backup/DataExportImportViewModel.h"
#include "GeneralSettingsTab.h"
#include "interface/Button.h"
#include "interface/Divider.h"
#include "interface/Label.h"
#include "interface/ScrollArea.h"
#include "interface/SegmentedPicker.h"
#include "LogExportHelpView.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr QSize fixedSize(900, 700);
constexpr int sidePadding = 32;

std::vector<SegmentedPicker::Segment> segments() {
    std::vector<SegmentedPicker::Segment> result;
    for (const SettingsTab tab : allSettingsTabs)
        result.push_back({label(tab), {}});
    return result;
}

QLayout* inset(QWidget* widget, int above, int below) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(sidePadding, above, sidePadding, below);
    row->addWidget(widget);
    return row;
}

} // namespace

SettingsView::SettingsView(ModelContext& context, QWidget* parent)
    : QWidget(parent), modelContext(context), dataExportImportSettings(new DataExportImportViewModel(this)) {
    setObjectName(QStringLiteral("SettingsView"));
    build();
    connect(picker, &SegmentedPicker::selectionChanged, this,
            [this](int index) { selectTab(allSettingsTabs.at(static_cast<std::size_t>(index))); });
}

Sheet::Options SettingsView::sheetOptions() {
    Sheet::Options options;
    options.accessibleName = QStringLiteral("Settings");
    // The one size that it has, even where the window leaves no margin around it.
    options.minimumSize = fixedSize;
    options.preferredSize = fixedSize;
    options.escape = Sheet::Escape::dismisses;
    return options;
}

QSize SettingsView::sizeHint() const {
    return fixedSize;
}

void SettingsView::build() {
    auto* title = new Label(QStringLiteral("Settings"), TextStyle::title, ColorRole::text, this);
    picker = new SegmentedPicker(QStringLiteral("Settings tab"), segments(), this);
    content = new ScrollArea(this);
    content->setTopFade(ColorRole::sheet);
    content->setBottomFade(ColorRole::sheet);
    content->setContent(makeTab());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(inset(title, 32, 24));
    column->addLayout(inset(picker, 0, 16));
    column->addWidget(content, 1);
    column->addLayout(inset(new Divider(Qt::Horizontal, ColorRole::separator, this), 0, 0));
    column->addLayout(buildFooter());
}

QLayout* SettingsView::buildFooter() {
    done = new Button(QStringLiteral("Done"), Button::Kind::prominent, this);
    done->setDefault(true);
    connect(done, &QAbstractButton::clicked, this, &SettingsView::dismiss);
    auto* footer = new QHBoxLayout;
    footer->setContentsMargins(sidePadding, 20, sidePadding, 20);
    footer->addStretch();
    footer->addWidget(done);
    return footer;
}

QWidget* SettingsView::makeTab() {
    if (tab == SettingsTab::general)
        return new GeneralSettingsTab;
    auto* advanced = new AdvancedSettingsTab(modelContext, *dataExportImportSettings);
    connect(advanced, &AdvancedSettingsTab::logExportHelpRequested, this, &SettingsView::presentLogExportHelp);
    return advanced;
}

void SettingsView::selectTab(SettingsTab chosen) {
    if (chosen == tab)
        return;
    tab = chosen;
    picker->setSelection(static_cast<int>(tab));
    content->setContent(makeTab());
    orderTabStops();
}

/// What was made last would be reached last, behind the button that closes the sheet.
void SettingsView::orderTabStops() {
    QWidget* last = nullptr;
    for (QWidget* next = content->widget(); content->isAncestorOf(next); next = next->nextInFocusChain())
        if (next->focusPolicy() & Qt::TabFocus)
            last = next;
    setTabOrder(last, done); // does nothing without one
}

void SettingsView::presentLogExportHelp() {
    if (showingLogExportHelp)
        return;
    showingLogExportHelp = true;
    auto help = std::make_unique<LogExportHelpView>();
    LogExportHelpView* view = help.get();
    Sheet* sheet = Sheet::present(this, std::move(help), LogExportHelpView::sheetOptions());
    connect(view, &LogExportHelpView::closed, sheet, &Sheet::dismiss);
    connect(sheet, &Sheet::closed, this, [this] { showingLogExportHelp = false; });
}

void SettingsView::dismiss() {
    Q_EMIT closed();
}

} // namespace Quillstacks
