// Takes pictures of the analysis panel in all its states, and of the settings that go with it:
//   preview_analysis FOLDER [light]
#include "analysis/AnalysisPreferences.h"
#include "analysis/LexiwellPanel.h"
#include "analysis/LexiwellSettingsView.h"
#include "analysis/ModelProviderSettingsView.h"
#include "interface/AppearanceMode.h"
#include "interface/Card.h"
#include "interface/Style.h"
#include "interface/Theme.h"
#include "support/TestPreferences.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QTest>

using namespace Quillstacks;

namespace {

constexpr int settleTime = 400; ///< milliseconds, longer than any animation

LexiwellPanel* addPanel(QBoxLayout& row) {
    auto* frame = new Card(Card::box(ColorRole::panel, ColorRole::border, 12));
    auto* inner = new QVBoxLayout(frame);
    inner->setContentsMargins(1, 1, 1, 1);
    auto* panel = new LexiwellPanel([] {});
    panel->setPromptEmpty(false);
    inner->addWidget(panel);
    row.addWidget(frame);
    return panel;
}

PromptAnalysis sample() {
    return {
        8,
        10,
        QStringLiteral("Asks for a short, layered explanation of one topic for a named reader, bounded in length "
                       "and tone."),
        {{QStringLiteral("Clear order of parts"), QStringLiteral("Four numbered steps leave little room for drift.")},
         {QStringLiteral("Bounded output"), QStringLiteral("A word limit and a stated tone keep answers comparable.")}},
        {{QStringLiteral("Rewrite for clarity and intent"),
          QStringLiteral("Lead with the task, then the reader, then the limits."), QStringLiteral("high")},
         {QStringLiteral("State what the reader knows"),
          QStringLiteral("One line on prior knowledge sets the starting level."), QStringLiteral("medium")},
         {QStringLiteral("A name that is so long that it has to be broken into more than one line of the panel"),
          QStringLiteral("And so on."), QStringLiteral("low")}}};
}

class Ground final : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), Theme::shared().color(ColorRole::sheet)); }
};

void take(QWidget& window, const QString& path) {
    window.show();
    QTest::qWait(settleTime);
    window.grab().save(path);
}

void takePanels(const QString& folder) {
    Ground window;
    window.resize(1280, 720);
    auto* row = new QHBoxLayout(&window);
    row->setContentsMargins(32, 58, 32, 38);
    row->setSpacing(24);
    addPanel(*row);
    addPanel(*row)->setLoading(true);
    LexiwellPanel* failed = addPanel(*row);
    failed->setErrorMessage(QStringLiteral("Analysis failed: Can't connect to Ollama. Make sure Ollama is running (try "
                                           "'ollama serve')."));
    take(window, folder + QStringLiteral("/analysis-states.png"));
    failed->setErrorMessage({});
    failed->setAnalysis(sample());
    failed->toggleHelpPopover();
    take(window, folder + QStringLiteral("/analysis-result.png"));
}

void takeSettings(const QString& folder) {
    selectedModelProviderPreference().set(ModelProviderType::ollama);
    Ground window;
    window.resize(900, 560);
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(32, 32, 32, 32);
    column->setSpacing(24);
    for (QWidget* view :
         {static_cast<QWidget*>(new LexiwellSettingsView), static_cast<QWidget*>(new ModelProviderSettingsView)}) {
        auto* card = new Card;
        auto* inner = new QVBoxLayout(card);
        inner->setContentsMargins(20, 20, 20, 20);
        inner->addWidget(view);
        column->addWidget(card);
    }
    column->addStretch();
    take(window, folder + QStringLiteral("/analysis-settings.png"));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2)
        return 1;
    const TestPreferences preferences;
    QFont font(QStringLiteral("Inter"));
    font.setPointSizeF(10.5);
    QApplication::setFont(font);
    const bool light = arguments.contains(QStringLiteral("light"));
    appearanceModePreference().set(light ? AppearanceMode::light : AppearanceMode::dark);
    installStyle(application);
    takePanels(arguments.at(1));
    takeSettings(arguments.at(1));
    return 0;
}
