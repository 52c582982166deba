#include "DiffContent.h"

#include "DiffRow.h"
#include "interface/Drawing.h"
#include "interface/Label.h"
#include "interface/Theme.h"
#include "ReadOnlyText.h"
#include "TextDiffView.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

constexpr int swatchSide = 12;
constexpr qreal swatchOpacity = 0.3;
constexpr qreal swatchRadius = 3;

/// A square of the colour that the legend explains.
class Swatch final : public QWidget {
public:
    explicit Swatch(ColorRole color) : role(color) { setFixedSize(swatchSide, swatchSide); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        fillRounded(painter, rect(), swatchRadius, Theme::shared().tint(role, swatchOpacity));
    }

private:
    ColorRole role;
};

} // namespace

DiffContent::DiffContent(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("DiffContent"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(0);
    column->addLayout(heading(QStringLiteral("Title Changes"), noTitleChanges));
    column->addSpacing(6);
    column->addWidget(buildTitle());
    column->addSpacing(22);
    column->addLayout(heading(QStringLiteral("Body Changes"), noBodyChanges));
    column->addSpacing(8);
    bodyDiff = new TextDiffView;
    column->addWidget(bodyDiff);
    sameBody = new ReadOnlyText(QStringLiteral("Body"), {.leading = 2, .minimumLines = 5, .padding = {}});
    column->addWidget(sameBody);
    column->addSpacing(14);
    column->addWidget(buildLegend());
    column->addStretch(1);
}

QBoxLayout* DiffContent::heading(const QString& text, Label*& noChanges) {
    noChanges = new Label(QStringLiteral("No changes"), TextStyle::caption, ColorRole::text2);
    auto* row = new QHBoxLayout;
    row->addWidget(new Label(text, TextStyle::headline), 1);
    row->addWidget(noChanges);
    return row;
}

QWidget* DiffContent::buildTitle() {
    auto* title = new QWidget;
    title->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    oldTitle = new DiffRow(QStringLiteral("Old"), ColorRole::red);
    newTitle = new DiffRow(QStringLiteral("New"), ColorRole::green);
    sameTitle = new ReadOnlyText(QStringLiteral("Title"), {.minimumLines = 3, .maximumLines = 3, .padding = {}});
    auto* column = new QVBoxLayout(title);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(oldTitle);
    column->addWidget(newTitle);
    column->addWidget(sameTitle);
    return title;
}

QWidget* DiffContent::buildLegend() {
    auto* legend = new QWidget;
    auto* row = new QHBoxLayout(legend);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(7);
    row->addWidget(new Swatch(ColorRole::red));
    row->addWidget(new Label(QStringLiteral("Removed"), TextStyle::caption, ColorRole::text2));
    row->addSpacing(11);
    row->addWidget(new Swatch(ColorRole::green));
    row->addWidget(new Label(QStringLiteral("Added"), TextStyle::caption, ColorRole::text2));
    row->addStretch(1);
    return legend;
}

void DiffContent::setTexts(const Texts& texts) {
    shown = texts;
    const bool titleIsSame = shown.oldTitle == shown.newTitle;
    oldTitle->setText(shown.oldTitle);
    newTitle->setText(shown.newTitle);
    sameTitle->setContent(shown.newTitle);
    noTitleChanges->setVisible(titleIsSame);
    oldTitle->setVisible(!titleIsSame);
    newTitle->setVisible(!titleIsSame);
    sameTitle->setVisible(titleIsSame);
    const bool bodyIsSame = shown.oldBody == shown.newBody;
    // Only what is shown is filled: either may be long.
    if (bodyIsSame)
        sameBody->setContent(shown.newBody);
    else
        bodyDiff->setTexts(shown.oldBody, shown.newBody);
    noBodyChanges->setVisible(bodyIsSame);
    bodyDiff->setVisible(!bodyIsSame);
    sameBody->setVisible(bodyIsSame);
}

} // namespace Quillstacks
