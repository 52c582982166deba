#pragma once

#include "analysis/answer/PromptAnalysis.h"

#include <QWidget>

class QVBoxLayout;

namespace Quillstacks {

class LexiwellSection;

/// What a model said of a prompt: score, summary, strengths and recommendations. A server may send any number of them
/// and texts of any length, so rows are made as they are scrolled to, and each text shows its beginning.
class LexiwellResult final : public QWidget {
    Q_OBJECT
public:
    static constexpr int rowsAtOnce = 100;
    static constexpr int longestText = 20000; ///< in UTF-16 units; what is longer ends in an ellipsis

    explicit LexiwellResult(PromptAnalysis analysis, QWidget* parent = nullptr);

    /// Makes the next rows; at most so many, and no more of long ones than can be laid out at once.
    void showMore();

private:
    void addStrength(const PromptAnalysis::Strength& strength);
    void addRecommendation(const PromptAnalysis::Recommendation& recommendation);
    [[nodiscard]] LexiwellSection* addSection(const char* symbol, const char* title, int spacing);

    const PromptAnalysis analysis;
    qsizetype shownStrengths = 0;
    qsizetype shownRecommendations = 0;
    QVBoxLayout* column = nullptr;
    LexiwellSection* strengths = nullptr; ///< made with its first row
    LexiwellSection* recommendations = nullptr;
};

} // namespace Quillstacks
