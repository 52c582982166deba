#pragma once

#include "interface/Sheet.h"

#include <QWidget>

namespace Quillstacks {

/// The sheet that lists the keyboard shortcuts. It names the global shortcut as it was at first, whatever is stored.
class HelpView final : public QWidget {
    Q_OBJECT
public:
    explicit HelpView(QWidget* parent = nullptr);

    void dismiss();

    /// How the sheet is to be presented.
    [[nodiscard]] static Sheet::Options sheetOptions();
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void closed();
};

} // namespace Quillstacks
