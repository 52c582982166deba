#pragma once

#include <QWidget>

namespace Quillstacks {

/// What stands in place of the version list while there are no versions.
class EmptyHistoryView final : public QWidget {
    Q_OBJECT
public:
    explicit EmptyHistoryView(QWidget* parent = nullptr);
};

} // namespace Quillstacks
