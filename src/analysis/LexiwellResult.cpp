#include "LexiwellResult.h"

#include "interface/Label.h"
#include "LexiwellRows.h"
#include "LexiwellSection.h"
#include "PromptQualityScore.h"

#include <QVBoxLayout>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int padding = 12;
constexpr int sectionGap = 8;
constexpr int strengthGap = 8;
constexpr int recommendationGap = 10;
constexpr qsizetype charactersAtOnce = 50000;

QString shortened(const QString& text) {
    return text.size() <= LexiwellResult::longestText ? text : text.first(LexiwellResult::longestText) + QChar(u'…');
}

qsizetype shownSize(const QString& text) {
    return std::min<qsizetype>(text.size(), LexiwellResult::longestText);
}

} // namespace

LexiwellResult::LexiwellResult(PromptAnalysis result, QWidget* parent) : QWidget(parent), analysis(std::move(result)) {
    setObjectName(QStringLiteral("LexiwellResult"));
    column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(sectionGap);
    column->addWidget(new PromptQualityScore(analysis.rating, analysis.maxRating));
    auto* text = new Label(shortened(analysis.summary), TextStyle::subheadline, ColorRole::text2);
    text->setMaximumLines(0);
    addSection("brain", "LLM Interpretation", sectionGap)->add(text);
    showMore();
    column->addStretch();
}

LexiwellSection* LexiwellResult::addSection(const char* symbol, const char* title, int spacing) {
    auto* section = new LexiwellSection(QLatin1String(symbol), QLatin1String(title));
    section->setSpacing(spacing);
    // Ahead of the stretch at the end, once there is one.
    const int count = column->count();
    const bool hasEnd = count > 0 && column->itemAt(count - 1)->spacerItem();
    column->insertWidget(hasEnd ? count - 1 : count, section);
    return section;
}

void LexiwellResult::showMore() {
    qsizetype characters = 0;
    for (int rows = 0; rows < rowsAtOnce && characters < charactersAtOnce; ++rows) {
        if (shownStrengths < analysis.strengths.size()) {
            const PromptAnalysis::Strength& next = analysis.strengths.at(shownStrengths++);
            addStrength(next);
            characters += shownSize(next.name) + shownSize(next.description);
        } else if (shownRecommendations < analysis.recommendations.size()) {
            const PromptAnalysis::Recommendation& next = analysis.recommendations.at(shownRecommendations++);
            addRecommendation(next);
            characters += shownSize(next.name) + shownSize(next.description);
        } else {
            return;
        }
    }
}

void LexiwellResult::addStrength(const PromptAnalysis::Strength& strength) {
    if (!strengths)
        strengths = addSection("checkmark.seal.fill", "Strengths", strengthGap);
    strengths->add(new StrengthRow(shortened(strength.name), shortened(strength.description)));
}

void LexiwellResult::addRecommendation(const PromptAnalysis::Recommendation& recommendation) {
    if (!recommendations)
        recommendations = addSection("lightbulb.fill", "Recommendations", recommendationGap);
    recommendations->add(new RecommendationRow(shortened(recommendation.name), shortened(recommendation.description),
                                               recommendation.priority));
}

} // namespace Quillstacks
