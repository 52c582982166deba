#include "mainwindow/SidebarView.h"

#include "interface/Label.h"
#include "interface/Symbol.h"
#include "interface/TextField.h"
#include "interface/Theme.h"
#include "library/PromptSearch.h"
#include "SidebarRow.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int columnWidth = 320;
constexpr int sidePadding = 12;
constexpr int titleHeight = 56;
constexpr int smallestTitlePadding = 20; ///< above and below together

/// The mark of the program.
class Mark final : public QWidget {
public:
    explicit Mark(QWidget* parent) : QWidget(parent) { setFixedSize(20, 20); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Symbol::paint(painter, rect(), QStringLiteral("circle.dotted.circle.fill"),
                      Theme::shared().color(ColorRole::accent));
    }
};

QLayout* sectionHeading(const QString& title, QWidget* parent) {
    auto* label = new Label(title, TextStyle::caption, ColorRole::text3, parent);
    label->setTextStyle(TextStyle::caption, QFont::DemiBold);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(8, 20, 8, 6);
    row->addWidget(label);
    return row;
}

} // namespace

SidebarView::SidebarView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("SidebarView"));
    setFixedWidth(columnWidth);
    build();
    connect(searchField, &QLineEdit::textChanged, this, &SidebarView::searchTextChanged);
    connect(allPrompts, &QAbstractButton::clicked, this, [this] {
        setSelectedTagId(allPromptsId);
        Q_EMIT selectedTagIdChanged(tagId);
    });
}

void SidebarView::build() {
    searchField = new TextField(QStringLiteral("Search"), TextField::Variant::framed, this);
    searchField->setSymbol(QStringLiteral("magnifyingglass"));
    allPrompts = new SidebarRow(QStringLiteral("tray.fill"), QStringLiteral("All Prompts"), this);
    auto* layout = new QVBoxLayout(this);
    // One more at the right, for the line beside the list.
    layout->setContentsMargins(sidePadding, 0, sidePadding + 1, sidePadding);
    layout->setSpacing(0);
    layout->addWidget(buildTitle());
    layout->addWidget(searchField);
    layout->addLayout(sectionHeading(QStringLiteral("Filters"), this));
    layout->addWidget(allPrompts);
    layout->addStretch();
}

QWidget* SidebarView::buildTitle() {
    auto* title = new QWidget(this);
    const auto fitFont = [title] {
        title->setFixedHeight(std::max(titleHeight, textLineHeight(TextStyle::title3) + smallestTitlePadding));
    };
    fitFont();
    connect(&Theme::shared(), &Theme::changed, title, fitFont);
    auto* name = new Label(QStringLiteral("Quillstacks"), TextStyle::title3, ColorRole::text, title);
    name->setTextStyle(TextStyle::title3, QFont::DemiBold);
    auto* row = new QHBoxLayout(title);
    row->setContentsMargins(8, 0, 8, 0);
    row->setSpacing(9);
    row->addWidget(new Mark(title));
    row->addWidget(name, 1);
    return title;
}

QString SidebarView::searchText() const {
    return searchField->text();
}

void SidebarView::setSearchText(const QString& text) {
    if (text != searchField->text())
        searchField->setText(text);
}

void SidebarView::setSelectedTagId(const std::optional<Uuid>& id) {
    tagId = id;
    allPrompts->setChecked(tagId == allPromptsId);
}

void SidebarView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (tagId)
        return;
    setSelectedTagId(allPromptsId);
    Q_EMIT selectedTagIdChanged(tagId);
}

void SidebarView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Theme::shared().color(ColorRole::sidebar));
    painter.fillRect(QRect(width() - 1, 0, 1, height()), Theme::shared().color(ColorRole::separator));
}

} // namespace Quillstacks
