#include "analysis/LexiwellPanel.h"
#include "GreySymbol.h"
#include "interface/BusyIndicator.h"
#include "interface/ScrollArea.h"
#include "LexiwellHelpPopover.h"
#include "LexiwellRows.h"
#include "PanelFixture.h"
#include "PriorityBadge.h"

#include <QScrollBar>

namespace Quillstacks {

class LexiwellPanelTest : public PanelFixture {
protected:
    LexiwellPanelTest() {
        panel.setPromptEmpty(false);
        show(window, QSize(900, 800));
        panel.setGeometry(450, 100, 420, 600);
        panel.show();
        QCoreApplication::processEvents();
    }
    QAbstractButton& analyze() { return *named(panel, "Analyze"); }
    QStringList shownTexts() const { return texts(panel); }
    static PromptAnalysis sample() {
        return {8,
                10,
                QStringLiteral("Short."),
                {{QStringLiteral("Order"), QStringLiteral("Steps are numbered.")},
                 {QStringLiteral("Bounds"), QStringLiteral("A limit.")}},
                {{QStringLiteral("Zeta"), QStringLiteral("First."), QStringLiteral("HIGH")},
                 {QStringLiteral("Alpha"), QStringLiteral("Second."), QStringLiteral("very urgent")}}};
    }

    int analyses = 0;
    QWidget window;
    LexiwellPanel panel{[this] { ++analyses; }, &window};
};

TEST_F(LexiwellPanelTest, withoutAResultItInvitesToAnalyze) {
    EXPECT_EQ(shownTexts(), QStringList{QStringLiteral("Click Analyze to evaluate your prompt")});
    const auto* symbol = panel.findChild<GreySymbol*>(QStringLiteral("stethoscope"));
    ASSERT_TRUE(symbol);
    EXPECT_EQ(symbol->size(), QSize(48, 48));
    EXPECT_EQ(symbol->color(), QColor::fromRgbF(0.6F, 0.6F, 0.6F));
}

TEST_F(LexiwellPanelTest, theAnalyzeButtonStartsAnAnalysisByMouseAndKey) {
    QTest::mouseClick(&analyze(), Qt::LeftButton);
    EXPECT_EQ(analyses, 1);
    analyze().setFocus();
    QTest::keyClick(&analyze(), Qt::Key_Space);
    EXPECT_EQ(analyses, 2);
    EXPECT_EQ(analyze().toolTip(), QStringLiteral("Analyze prompt quality"));
}

TEST_F(LexiwellPanelTest, anEmptyPromptCannotBeAnalyzed) {
    panel.setPromptEmpty(true);
    EXPECT_FALSE(analyze().isEnabled());
    EXPECT_EQ(analyze().toolTip(), QStringLiteral("Write a prompt to analyze"));
    QTest::mouseClick(&analyze(), Qt::LeftButton);
    EXPECT_EQ(analyses, 0);
}

TEST_F(LexiwellPanelTest, whileAnAnalysisRunsTheButtonTurnsAndTakesNoPress) {
    panel.setLoading(true);
    EXPECT_FALSE(analyze().isEnabled());
    EXPECT_EQ(analyze().text(), QString());
    ASSERT_TRUE(analyze().findChild<BusyIndicator*>());
    EXPECT_EQ(analyze().findChild<BusyIndicator*>()->size(), QSize(16, 16));
    EXPECT_FALSE(analyze().findChild<BusyIndicator*>()->isEnabled()) << "it is dimmed with its button";
    for (const BusyIndicator* indicator : panel.findChildren<BusyIndicator*>())
        EXPECT_FALSE(indicator->accessibleName().isEmpty());
    EXPECT_EQ(shownTexts(), QStringList{QStringLiteral("Analyzing prompt...")});
    panel.setPromptEmpty(true);
    panel.setLoading(false);
    EXPECT_FALSE(analyze().isEnabled());
    panel.setPromptEmpty(false);
    EXPECT_TRUE(analyze().isEnabled());
    EXPECT_EQ(analyze().text(), QStringLiteral("Analyze"));
}

TEST_F(LexiwellPanelTest, whileItLoadsAnOldErrorDoesNotShow) {
    panel.setErrorMessage(QStringLiteral("old"));
    panel.setLoading(true);
    EXPECT_FALSE(shownTexts().contains(QStringLiteral("old")));
    panel.setLoading(false);
    EXPECT_TRUE(shownTexts().contains(QStringLiteral("old")));
}

TEST_F(LexiwellPanelTest, anErrorHidesAnOlderResult) {
    panel.setAnalysis(sample());
    panel.setErrorMessage(QStringLiteral("No <b>answer</b>."));
    EXPECT_EQ(shownTexts(),
              (QStringList{QStringLiteral("Analysis Failed"), QStringLiteral("Unable to analyze your prompt"),
                           QStringLiteral("Error Details"), QStringLiteral("No <b>answer</b>."),
                           QStringLiteral("Troubleshooting Tips"),
                           QStringLiteral("Check your network connection and model availability"),
                           QStringLiteral("If using Ollama, ensure it's running at the configured URL"),
                           QStringLiteral("Try switching to Apple Intelligence in Settings"),
                           QStringLiteral("Click Analyze to try again")}));
    QStringList icons;
    for (const TroubleshootingItem* item : panel.findChildren<TroubleshootingItem*>())
        icons += item->findChild<GreySymbol*>()->objectName();
    EXPECT_EQ(icons, (QStringList{QStringLiteral("network"), QStringLiteral("server.rack"),
                                  QStringLiteral("apple.logo"), QStringLiteral("arrow.clockwise")}));
    panel.setErrorMessage({});
    EXPECT_TRUE(shownTexts().contains(QStringLiteral("LLM Interpretation")));
}

TEST_F(LexiwellPanelTest, aResultShowsAllItsPartsInTheirOrder) {
    panel.setAnalysis(sample());
    QCoreApplication::processEvents();
    EXPECT_EQ(shownTexts().mid(4),
              (QStringList{QStringLiteral("LLM Interpretation"), QStringLiteral("Short."), QStringLiteral("Strengths"),
                           QStringLiteral("Order"), QStringLiteral("Steps are numbered."), QStringLiteral("Bounds"),
                           QStringLiteral("A limit."), QStringLiteral("Recommendations"), QStringLiteral("Zeta"),
                           QStringLiteral("First."), QStringLiteral("Alpha"), QStringLiteral("Second.")}));
    for (const char* text : {"8", "/ 10", "Good", "Quality Score"})
        EXPECT_TRUE(shownTexts().mid(0, 4).contains(QLatin1String(text))) << text;
    const auto badges = panel.findChildren<PriorityBadge*>();
    ASSERT_EQ(badges.size(), 2);
    EXPECT_EQ(badges.at(0)->text(), QStringLiteral("HIGH"));
    EXPECT_EQ(badges.at(1)->text(), QStringLiteral("Very Urgent"));
}

TEST_F(LexiwellPanelTest, anAnalysisWithoutStrengthsShowsNoSuchSection) {
    PromptAnalysis analysis = sample();
    analysis.strengths.clear();
    panel.setAnalysis(analysis);
    EXPECT_FALSE(shownTexts().contains(QStringLiteral("Strengths")));
    EXPECT_TRUE(shownTexts().contains(QStringLiteral("Recommendations")));
    analysis.recommendations.clear();
    panel.setAnalysis(analysis);
    EXPECT_FALSE(shownTexts().contains(QStringLiteral("Recommendations")));
    EXPECT_TRUE(shownTexts().contains(QStringLiteral("LLM Interpretation")));
}

TEST_F(LexiwellPanelTest, longTextsStayWithinThePanelAndScroll) {
    PromptAnalysis analysis = sample();
    analysis.summary = QStringLiteral("word ").repeated(2000);
    analysis.strengths[0].name = QString(3000, QLatin1Char('x'));
    analysis.recommendations[0].priority = QString(3000, QLatin1Char('y'));
    analysis.recommendations[0].name = QStringLiteral("name ").repeated(100);
    panel.setAnalysis(analysis);
    QCoreApplication::processEvents();
    for (const QLabel* label : panel.findChildren<QLabel*>())
        EXPECT_LE(label->mapTo(&panel, label->rect().topRight()).x(), panel.width())
            << label->text().left(40).toStdString();
    for (const PriorityBadge* badge : panel.findChildren<PriorityBadge*>())
        EXPECT_LE(badge->mapTo(&panel, badge->rect().topRight()).x(), panel.width());
}

TEST_F(LexiwellPanelTest, aLongResultIsScrolledByKeysFromTheHeader) {
    PromptAnalysis analysis = sample();
    analysis.summary = QStringLiteral("word ").repeated(2000);
    panel.setAnalysis(analysis);
    QCoreApplication::processEvents();
    const QScrollBar* bar = panel.findChild<ScrollArea*>()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    window.activateWindow();
    for (const char* name : {"Lexiwell", "Analyze", "Collapse Lexiwell"}) {
        auto* button = named(panel, name);
        button->setFocus();
        QTest::keyClick(button, Qt::Key_PageDown);
        EXPECT_EQ(bar->value(), std::min(bar->pageStep(), bar->maximum())) << name;
        QTest::keyClick(button, Qt::Key_End);
        EXPECT_EQ(bar->value(), bar->maximum()) << name;
        QTest::keyClick(button, Qt::Key_Home);
        EXPECT_EQ(bar->value(), 0) << name;
    }
}

TEST_F(LexiwellPanelTest, theRowsOfAListWithoutEndAreMadeAsTheyAreScrolledTo) {
    PromptAnalysis analysis = sample();
    analysis.strengths = QList<PromptAnalysis::Strength>(150, {QStringLiteral("strong"), QStringLiteral("why")});
    analysis.recommendations = QList<PromptAnalysis::Recommendation>(
        300000, {QStringLiteral("better"), QStringLiteral("how"), QStringLiteral("low")});
    panel.setAnalysis(analysis);
    QCoreApplication::processEvents();
    EXPECT_EQ(panel.findChildren<StrengthRow*>().size(), 100);
    EXPECT_FALSE(shownTexts().contains(QStringLiteral("Recommendations"))) << "it comes after all strengths";
    QScrollBar* bar = panel.findChild<ScrollArea*>()->verticalScrollBar();
    for (int times = 1; times <= 3; ++times) {
        const int before = bar->maximum();
        bar->setValue(before);
        ASSERT_TRUE(QTest::qWaitFor([&] { return bar->maximum() > before; })) << "there is more below";
    }
    EXPECT_EQ(panel.findChildren<StrengthRow*>().size(), 150);
    EXPECT_EQ(panel.findChildren<RecommendationRow*>().size(), 250);
    EXPECT_TRUE(shownTexts().contains(QStringLiteral("Recommendations")));
}

TEST_F(LexiwellPanelTest, aTextOfMegabytesShowsItsBeginning) {
    PromptAnalysis analysis = sample();
    const QString endless = QStringLiteral("word ").repeated(1000000);
    analysis.summary = endless;
    analysis.strengths[0] = {endless, endless};
    analysis.recommendations[0] = {endless, endless, endless};
    panel.setAnalysis(analysis);
    QCoreApplication::processEvents();
    int shortened = 0;
    for (const QLabel* label : panel.findChildren<QLabel*>()) {
        ASSERT_LE(label->text().size(), 20001);
        shortened += label->text() == endless.first(20000) + QChar(u'…') ? 1 : 0;
    }
    EXPECT_GE(shortened, 3);
    for (const PriorityBadge* badge : panel.findChildren<PriorityBadge*>())
        EXPECT_LE(badge->text().size(), 200);
    // What comes after long rows is reached all the same.
    QScrollBar* bar = panel.findChild<ScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum());
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownTexts().contains(QStringLiteral("Alpha")); }));
}

TEST_F(LexiwellPanelTest, theSameResultAgainKeepsItsPlace) {
    PromptAnalysis analysis = sample();
    analysis.summary = QStringLiteral("word ").repeated(2000);
    panel.setAnalysis(analysis);
    QCoreApplication::processEvents();
    QScrollBar* bar = panel.findChild<ScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum());
    ASSERT_GT(bar->value(), 0);
    panel.setAnalysis(analysis);
    panel.setErrorMessage({});
    QCoreApplication::processEvents();
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(LexiwellPanelTest, collapsedItIsItsHeaderAndStillAnalyzes) {
    auto* button = named(panel, "Collapse Lexiwell");
    ASSERT_TRUE(button);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(panel.isCollapsed());
    EXPECT_EQ(panel.sizeHint().height(), 44);
    panel.resize(panel.width(), 44);
    EXPECT_EQ(shownTexts(), QStringList());
    QTest::mouseClick(&analyze(), Qt::LeftButton);
    EXPECT_EQ(analyses, 1);
    button = named(panel, "Expand Lexiwell");
    ASSERT_TRUE(button);
    EXPECT_EQ(button->toolTip(), QStringLiteral("Expand Lexiwell"));
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_FALSE(panel.isCollapsed());
}

TEST_F(LexiwellPanelTest, theTitleShowsAndHidesTheHelp) {
    auto* title = named(panel, "Lexiwell");
    ASSERT_TRUE(title);
    EXPECT_EQ(title->toolTip(), QStringLiteral("Click for more information about Lexiwell"));
    QTest::mouseClick(title, Qt::LeftButton);
    ASSERT_TRUE(panel.showingHelpPopover());
    const auto* popover = window.findChild<LexiwellHelpPopover*>();
    ASSERT_TRUE(popover);
    EXPECT_EQ(texts(*popover),
              (QStringList{QStringLiteral("About Lexiwell"), QStringLiteral("What it does"),
                           QStringLiteral("Lexiwell analyzes your prompt quality and provides suggestions to improve "
                                          "clarity, specificity, and effectiveness."),
                           QStringLiteral("Privacy & Technology"),
                           QStringLiteral("Analysis runs locally using Apple Intelligence (Apple's on-device LLM). "
                                          "Your prompts are processed entirely on your Mac and never sent to external "
                                          "servers."),
                           QStringLiteral("Settings"),
                           QStringLiteral("You can disable Lexiwell at any time in the app Settings.")}));
    EXPECT_TRUE(popover->parentWidget()->rect().contains(popover->geometry().center()));
    QTest::mouseClick(title, Qt::LeftButton);
    EXPECT_FALSE(panel.showingHelpPopover());
}

TEST_F(LexiwellPanelTest, theHelpGoesByEscapeAndByAPressElsewhere) {
    auto* title = named(panel, "Lexiwell");
    window.activateWindow();
    title->setFocus();
    QTest::keyClick(title, Qt::Key_Return);
    ASSERT_TRUE(panel.showingHelpPopover());
    QTest::keyClick(window.findChild<LexiwellHelpPopover*>(), Qt::Key_Escape);
    EXPECT_FALSE(panel.showingHelpPopover());
    EXPECT_TRUE(title->hasFocus());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    panel.toggleHelpPopover();
    QTest::mouseClick(window.findChild<LexiwellHelpPopover*>(), Qt::LeftButton, {}, QPoint(150, 150));
    EXPECT_TRUE(panel.showingHelpPopover());
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_FALSE(panel.showingHelpPopover());
}

TEST_F(LexiwellPanelTest, tabGivesTheKeyboardBackFromTheHelpToItsButton) {
    auto* title = named(panel, "Lexiwell");
    window.activateWindow();
    for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier}) {
        title->setFocus();
        panel.toggleHelpPopover();
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab, modifiers);
        EXPECT_FALSE(panel.showingHelpPopover());
        EXPECT_TRUE(title->hasFocus());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(LexiwellPanelTest, theHelpGoesWithItsPanel) {
    auto other = std::make_unique<LexiwellPanel>([] {}, &window);
    other->show();
    other->toggleHelpPopover();
    other.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window.findChild<LexiwellHelpPopover*>());
}

} // namespace Quillstacks
