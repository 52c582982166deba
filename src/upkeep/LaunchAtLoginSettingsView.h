#pragma once

#include "interface/Transition.h"
#include "upkeep/FeedbackMessage.h"

#include <QWidget>

#include <optional>

namespace Quillstacks {

class Label;
class Switch;
class SymbolImage;

/// The settings card with the switch that lets the desktop start the program after login. The desktop has the only
/// record of it; the view looks there each time it appears.
class LaunchAtLoginSettingsView final : public QWidget {
    Q_OBJECT
public:
    explicit LaunchAtLoginSettingsView(QWidget* parent = nullptr);

    // State
    bool launchAtLogin = false;
    std::optional<FeedbackMessage> feedbackMessage;
    bool isProcessing = false;

    // Actions
    /// What a press of the switch does.
    void setLaunchAtLogin(bool value);

    /// How long a failure can be read before the switch's way back, a change of its own, takes the line. In seconds.
    static constexpr double failureStays = 4.0;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void build();
    [[nodiscard]] QWidget* buildFeedback();
    void appear();
    void changeValue(bool value, double delay);
    void apply(bool oldValue, bool newValue);
    void rollBack(bool oldValue, const QString& reason);
    void showFeedback(FeedbackMessage message);

    quint64 changes = 0;
    Switch* toggle = nullptr;
    QWidget* feedbackLine = nullptr;
    Label* feedbackText = nullptr;
    SymbolImage* successSymbol = nullptr;
    SymbolImage* failureSymbol = nullptr;
    Transition fade;
};

} // namespace Quillstacks
