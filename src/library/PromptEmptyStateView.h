#pragma once

#include <QWidget>

#include <functional>

namespace Quillstacks {

/// Stands in for the prompt list while it has nothing to show.
class PromptEmptyStateView final : public QWidget {
    Q_OBJECT
public:
    explicit PromptEmptyStateView(QWidget* parent = nullptr);

    std::function<void()> onCreate;

private:
    [[nodiscard]] QWidget* buildColumn();
};

} // namespace Quillstacks
