#include "mainwindow/SidebarView.h"

#include "interface/Label.h"
#include "interface/ScrollArea.h"
#include "interface/Symbol.h"
#include "interface/TextField.h"
#include "interface/Theme.h"
#include "library/PromptSearch.h"
#include "library/tags/SidebarTagsSection.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int columnWidth = 320;
constexpr int sidePadding = 12;
constexpr int fadeHeight = 36;
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

} // namespace

SidebarView::SidebarView(ModelContext& modelContext, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("SidebarView"));
    setFixedWidth(columnWidth);
    build(modelContext);
    connectParts();
}

void SidebarView::build(ModelContext& modelContext) {
    searchField = new TextField(QStringLiteral("Search"), TextField::Variant::framed, this);
    searchField->setSymbol(QStringLiteral("magnifyingglass"));
    rows = new ScrollArea(this);
    section = new SidebarTagsSection(modelContext, allPromptsId);
    rows->setContent(section);
    rows->setBottomFade(ColorRole::sidebar, fadeHeight);
    auto* top = new QVBoxLayout;
    top->setContentsMargins(sidePadding, 0, sidePadding, 0);
    top->setSpacing(0);
    top->addWidget(buildTitle());
    top->addWidget(searchField);
    auto* layout = new QVBoxLayout(this);
    // Room for the line beside the list.
    layout->setContentsMargins(0, 0, 1, 0);
    layout->setSpacing(0);
    layout->addLayout(top);
    layout->addWidget(rows, 1);
}

void SidebarView::connectParts() {
    connect(searchField, &QLineEdit::textChanged, this, &SidebarView::searchTextChanged);
    connect(section, &SidebarTagsSection::selectedTagIdChanged, this, &SidebarView::selectedTagIdChanged);
    connect(section, &SidebarTagsSection::revealed, this,
            [this](QWidget* row) { rows->ensureWidgetVisible(row, 0, 8); });
    section->onCreate = [this] {
        if (onCreateTag)
            onCreateTag();
    };
    section->onEdit = [this](Tag* tag) {
        if (onEditTag)
            onEditTag(tag);
    };
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

const std::optional<Uuid>& SidebarView::selectedTagId() const {
    return section->selectedTagId();
}

void SidebarView::setSelectedTagId(const std::optional<Uuid>& id) {
    section->setSelectedTagId(id);
}

void SidebarView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Theme::shared().color(ColorRole::sidebar));
    painter.fillRect(QRect(width() - 1, 0, 1, height()), Theme::shared().color(ColorRole::separator));
}

} // namespace Quillstacks
