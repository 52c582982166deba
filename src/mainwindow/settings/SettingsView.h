#pragma once

#include "interface/Sheet.h"
#include "mainwindow/settings/SettingsTab.h"

#include <QWidget>

class QLayout;

namespace Quillstacks {

class Button;
class DataExportImportViewModel;
class ModelContext;
class ScrollArea;
class SegmentedPicker;

/// The sheet with every setting of the program, on two tabs. What is changed is written at once; the sheet itself has
/// nothing to apply or to take back.
class SettingsView final : public QWidget {
    Q_OBJECT
public:
    /// The context must outlive it.
    explicit SettingsView(ModelContext& context, QWidget* parent = nullptr);

    // State
    [[nodiscard]] SettingsTab selectedTab() const { return tab; }
    [[nodiscard]] bool showLogExportHelp() const { return showingLogExportHelp; }

    // Actions
    /// Builds the view of the tab; the other tab's goes.
    void selectTab(SettingsTab tab);
    void presentLogExportHelp();
    void dismiss();

    /// How the sheet is to be presented.
    [[nodiscard]] static Sheet::Options sheetOptions();
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void closed();

private:
    void build();
    [[nodiscard]] QLayout* buildFooter();
    [[nodiscard]] QWidget* makeTab();
    void orderTabStops();

    ModelContext& modelContext;
    DataExportImportViewModel* dataExportImportSettings; ///< here, as a tab goes when the other is chosen
    SettingsTab tab = SettingsTab::general;
    bool showingLogExportHelp = false;
    SegmentedPicker* picker = nullptr;
    ScrollArea* content = nullptr;
    Button* done = nullptr;
};

} // namespace Quillstacks
