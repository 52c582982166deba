#pragma once

#include <QWidget>

namespace Quillstacks {

/// The rating in large digits, its scale, and what both mean in a word.
class PromptQualityScore final : public QWidget {
    Q_OBJECT
public:
    PromptQualityScore(qint64 rating, qint64 maxRating, QWidget* parent = nullptr);
};

} // namespace Quillstacks
