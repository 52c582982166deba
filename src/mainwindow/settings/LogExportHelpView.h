#pragma once

#include "interface/Sheet.h"

#include <QWidget>

class QLayout;

namespace Quillstacks {

class Card;
class IconButton;
class ScrollArea;

/// The sheet that tells how to get the log out of the system's journal.
class LogExportHelpView final : public QWidget {
    Q_OBJECT
public:
    explicit LogExportHelpView(QWidget* parent = nullptr);

    // State
    /// For two seconds after a copy.
    [[nodiscard]] bool showCopiedAlert() const { return showingCopied; }

    // Actions
    /// Puts the command on the clipboard.
    void copyCommand();
    void dismiss();

    /// What the user runs in a terminal: the last hour of the log goes to a file on the desktop.
    [[nodiscard]] static QString command();
    /// How the sheet is to be presented.
    [[nodiscard]] static Sheet::Options sheetOptions();
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void closed();

private:
    [[nodiscard]] QLayout* buildHeader();
    [[nodiscard]] QWidget* buildBody();
    [[nodiscard]] Card* buildTerminalSection();
    [[nodiscard]] Card* buildCommandBox();
    void setShowCopiedAlert(bool shown);

    bool showingCopied = false;
    QLayout* header = nullptr;
    ScrollArea* scroll = nullptr;
    IconButton* copyButton = nullptr;
};

} // namespace Quillstacks
