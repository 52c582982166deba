#pragma once

#include "library/restore/StatusMessage.h"

#include <QWidget>

#include <optional>

namespace Quillstacks {

class Button;
class ModelContext;
class StatusLine;

/// The group of settings that wipes library and settings, after a question.
class RestoreQuillstacksView final : public QWidget {
    Q_OBJECT
public:
    /// The context must outlive it.
    explicit RestoreQuillstacksView(ModelContext& modelContext, QWidget* parent = nullptr);

    // State
    [[nodiscard]] bool isConfirmingRestore() const { return confirming; }
    [[nodiscard]] bool isRestoring() const { return restoring; }
    [[nodiscard]] const std::optional<StatusMessage>& statusMessage() const { return message; }

    // Actions
    /// Asks.
    void confirmRestore();
    /// Restores without asking; goes on to its end when the view goes. Does nothing while one is running.
    void restore();

private:
    void build();
    void showRestoring(bool isRunning);
    void finish(const StatusMessage& result);

    ModelContext& modelContext;
    bool confirming = false;
    bool restoring = false;
    std::optional<StatusMessage> message;
    Button* button = nullptr;
    StatusLine* status = nullptr;
};

} // namespace Quillstacks
