#include "analysis/AnalysisPreferences.h"
#include "analysis/LexiwellSettingsView.h"
#include "analysis/ModelProviderSettingsView.h"
#include "interface/SegmentedPicker.h"
#include "interface/TextField.h"
#include "PanelFixture.h"

namespace Quillstacks {

class AnalysisSettings : public PanelFixture {};

TEST_F(AnalysisSettings, theSwitchHasItsTextsAndSetsThePreferenceAtOnce) {
    LexiwellSettingsView view;
    show(view, QSize(800, 200));
    EXPECT_EQ(
        texts(view),
        (QStringList{QStringLiteral("Lexiwell"),
                     QStringLiteral("Analyze prompt quality using Apple's local LLM. Provides suggestions to "
                                    "improve your prompts."),
                     QStringLiteral("Enable Lexiwell"), QStringLiteral("Shows analysis panel in the prompt editor"),
                     QStringLiteral("Analysis runs locally using Apple Intelligence. Your prompts are never sent "
                                    "to external servers.")}));
    auto* control = named(view, "Enable Lexiwell");
    ASSERT_TRUE(control);
    EXPECT_TRUE(control->isChecked());
    QTest::mouseClick(control, Qt::LeftButton);
    EXPECT_FALSE(lexiwellEnabledPreference().value());
    lexiwellEnabledPreference().set(true);
    EXPECT_TRUE(control->isChecked());
}

TEST_F(AnalysisSettings, theFooterFollowsTheProvider) {
    ModelProviderSettingsView view;
    show(view, QSize(800, 300));
    EXPECT_EQ(texts(view), (QStringList{QStringLiteral("Model Provider"), QStringLiteral("AI Provider"),
                                        QStringLiteral("Uses Apple's on-device intelligence. Requires macOS 15.1+ and "
                                                       "a compatible Mac.")}));
    auto* picker = view.findChild<SegmentedPicker*>();
    EXPECT_EQ(picker->selection(), 0);
    QTest::mouseClick(named(view, "Ollama"), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(selectedModelProviderPreference().value(), ModelProviderType::ollama);
    EXPECT_EQ(texts(view),
              (QStringList{QStringLiteral("Model Provider"), QStringLiteral("AI Provider"),
                           QStringLiteral("Uses Ollama for local model inference. Requires Ollama to be installed and "
                                          "running."),
                           QStringLiteral("Ollama Configuration"), QStringLiteral("Server URL"),
                           QStringLiteral("Model Name"), QStringLiteral("Enter the Ollama server URL and model name."),
                           QStringLiteral("Common models: llama3.2, llama3.1, mistral, mixtral, codellama"),
                           QStringLiteral("Make sure Ollama is running and the model is downloaded.")}));
    selectedModelProviderPreference().set(ModelProviderType::apple);
    QCoreApplication::processEvents();
    EXPECT_EQ(picker->selection(), 0);
    EXPECT_EQ(texts(view).size(), 3);
}

TEST_F(AnalysisSettings, theFieldsStoreWhatIsTypedAsItStands) {
    selectedModelProviderPreference().set(ModelProviderType::ollama);
    ModelProviderSettingsView view;
    show(view, QSize(800, 300));
    auto* url = named<TextField>(view, "Server URL");
    auto* model = named<TextField>(view, "Model Name");
    ASSERT_TRUE(url && model);
    EXPECT_EQ(url->text(), QStringLiteral("http://localhost:11434"));
    EXPECT_EQ(url->placeholderText(), QStringLiteral("e.g., http://localhost:11434"));
    EXPECT_EQ(model->text(), QStringLiteral("llama3.2"));
    EXPECT_EQ(model->placeholderText(), QStringLiteral("e.g., llama3.2"));
    url->clear();
    EXPECT_EQ(ollamaBaseURLPreference().value(), QString());
    QTest::keyClicks(url, QStringLiteral(" no url "));
    EXPECT_EQ(ollamaBaseURLPreference().value(), QStringLiteral(" no url "));
    QTest::keyClicks(model, QStringLiteral("x"));
    EXPECT_TRUE(ollamaModelPreference().value().contains(QLatin1Char('x')));
    preferences->removePersistentDomain();
    EXPECT_EQ(url->text(), QStringLiteral("http://localhost:11434"));
    EXPECT_EQ(model->text(), QStringLiteral("llama3.2"));
}

} // namespace Quillstacks
