#include "PromptQualityScore.h"

#include "Greys.h"
#include "interface/Card.h"
#include "interface/Divider.h"
#include "interface/Drawing.h"
#include "interface/Label.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int padding = 16;
constexpr int spacing = 12;
constexpr qreal radius = 10;
constexpr int dividerHeight = 50;
constexpr qreal ratingSize = 32;
constexpr qreal ratingLine = 38;
constexpr int baselineGap = 7; ///< from the foot of the large digits' line to that of the small ones'

QLayout* makeNumbers(qint64 rating, qint64 maxRating, const QColor& color) {
    auto* large = new Label(QString::number(rating));
    large->setAbsoluteFont(ratingSize, QFont::Bold, ratingLine);
    large->setColor(color);
    auto* scale = new Label(QStringLiteral("/ ") + QString::number(maxRating), TextStyle::caption, ColorRole::text2);
    auto* foot = new QVBoxLayout;
    foot->setContentsMargins(0, 0, 0, baselineGap);
    foot->addStretch();
    foot->addWidget(scale);
    auto* numbers = new QHBoxLayout;
    numbers->setSpacing(5);
    numbers->addWidget(large, 0, Qt::AlignVCenter);
    numbers->addLayout(foot);
    return numbers;
}

QLayout* makeWords(const Quality& quality) {
    auto* word = new Label(quality.word, TextStyle::headline);
    word->setColor(quality.color);
    auto* words = new QVBoxLayout;
    words->setSpacing(0);
    words->addStretch();
    words->addWidget(word);
    words->addWidget(new Label(QStringLiteral("Quality Score"), TextStyle::caption, ColorRole::text2));
    words->addStretch();
    return words;
}

} // namespace

PromptQualityScore::PromptQualityScore(qint64 rating, qint64 maxRating, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("PromptQualityScore"));
    const Quality quality = Quality::of(rating, maxRating);
    auto* box = new Card({radius, [color = quality.color] { return withOpacity(color, 0.1); }, {}}, this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(padding, padding, padding, padding);
    row->setSpacing(spacing);
    row->addLayout(makeNumbers(rating, maxRating, quality.color));
    auto* divider = new Divider(Qt::Vertical, ColorRole::separatorStrong);
    divider->setFixedSize(1, dividerHeight);
    row->addWidget(divider);
    row->addLayout(makeWords(quality), 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(box);
}

} // namespace Quillstacks
