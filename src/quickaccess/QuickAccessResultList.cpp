#include "QuickAccessResultList.h"

#include "QuickAccessMetrics.h"
#include "QuickAccessRow.h"
#include "QuickAccessSectionHeader.h"

#include "interface/Drawing.h"
#include "interface/LazyList.h"
#include "interface/Theme.h"
#include "library/model/Prompt.h"

#include <QCoreApplication>
#include <QResizeEvent>

#include <algorithm>
#include <utility>

namespace Quillstacks {

using Section = QuickAccessSectionHeader::Section;

QuickAccessResultList::QuickAccessResultList(QWidget* parent) : QWidget(parent) {
    using namespace QuickAccessMetrics;
    setObjectName(QStringLiteral("QuickAccessResultList"));
    rows = new LazyList(QStringLiteral("Prompts"), this);
    rows->setFocusPolicy(Qt::NoFocus); // typing always goes to the search field
    rows->setGap(rowGap);
    rows->setPadding(QMargins(listPadding, listPadding, listPadding, listPadding));
    installSource();
    connect(rows, &LazyList::clicked, this, [this](int at) {
        // Of a copy: what it does may fill the row anew, callback included.
        if (const auto* row = qobject_cast<QuickAccessRow*>(rows->row(at)))
            if (const auto copy = row->onCopy)
                copy();
    });
    connect(&Theme::shared(), &Theme::changed, this, &QuickAccessResultList::placeFade);
    placeFade();
}

void QuickAccessResultList::installSource() {
    LazyList::Source source;
    source.count = [this] { return static_cast<int>(results.size()) + headerCount(); };
    source.height = [this](int at, int width) { return heightOf(at, width); };
    source.kind = [this](int at) { return static_cast<int>(itemAt(at).kind); };
    source.make = [](int kind, QWidget* parent) -> QWidget* {
        if (kind == headerKind)
            return new QuickAccessSectionHeader(parent);
        return new QuickAccessRow(parent);
    };
    source.isSelected = [this](int at) {
        const Item item = itemAt(at);
        return item.kind == promptKind && item.index == selected;
    };
    source.role = [](int kind) { return kind == headerKind ? QAccessible::Heading : QAccessible::ListItem; };
    source.bind = [this](QWidget* row, int at) { bind(row, at); };
    rows->setSource(std::move(source));
}

void QuickAccessResultList::placeFade() {
    // The material as it looks over a desktop that is neither light nor dark.
    QColor ground = Theme::shared().material(Material::regular);
    const qreal through = 1 - ground.alphaF();
    ground.setAlpha(255);
    rows->setBottomFadeColor(mix(ground, QColor(128, 128, 128), through), QuickAccessMetrics::fadeHeight);
}

void QuickAccessResultList::setResults(const QList<Prompt*>& newResults, int selectedIndex) {
    results = newResults;
    pinnedCount =
        std::find_if_not(results.cbegin(), results.cend(), [](const Prompt* prompt) { return prompt->isPinned(); }) -
        results.cbegin();
    selected = selectedIndex;
    takeMetrics();
    settle();
    rows->reload();
}

// A widget that is hidden hears of its size only when it is shown; the rows would be measured once more then.
void QuickAccessResultList::settle() {
    if (rows->size() == size() && !rows->testAttribute(Qt::WA_PendingResizeEvent))
        return;
    rows->setGeometry(rect());
    QResizeEvent resized(rows->size(), rows->size());
    QCoreApplication::sendEvent(rows, &resized);
}

void QuickAccessResultList::takeMetrics() {
    rowMetrics = QuickAccessRow::Metrics::current();
    for (const Section section : {Section::pinned, Section::all})
        headerHeights[static_cast<int>(section)] = QuickAccessSectionHeader::heightFor(section);
}

void QuickAccessResultList::setSelectedIndex(int index) {
    const int before = std::exchange(selected, index);
    for (const int changed : {before, index})
        if (holds(changed))
            rows->rebind(rowOf(changed));
}

void QuickAccessResultList::follow(int index) {
    if (holds(index))
        rows->scrollToCenter(rowOf(index), true);
}

void QuickAccessResultList::scrollToTop() {
    rows->scrollToTop();
}

// With pinned results the rows are: heading, the pinned ones, and, where there are others, a heading and those.
QuickAccessResultList::Item QuickAccessResultList::itemAt(int at) const {
    const int pinned = static_cast<int>(pinnedCount);
    if (pinned == 0)
        return {promptKind, at};
    if (at == 0)
        return {headerKind, static_cast<int>(Section::pinned)};
    if (at == pinned + 1)
        return {headerKind, static_cast<int>(Section::all)};
    return {promptKind, at <= pinned ? at - 1 : at - 2};
}

int QuickAccessResultList::rowOf(int index) const {
    if (pinnedCount == 0)
        return index;
    return index < pinnedCount ? index + 1 : index + 2;
}

int QuickAccessResultList::heightOf(int at, int width) {
    const Item item = itemAt(at);
    if (item.kind == headerKind)
        return headerHeights[item.index];
    if (width != std::exchange(heightsWidth, width))
        heights.clear();
    const Prompt* prompt = results.at(item.index);
    const auto kept = heights.constFind(prompt);
    return kept != heights.constEnd() ? *kept
                                      : *heights.insert(prompt, QuickAccessRow::heightFor(*prompt, width, rowMetrics));
}

void QuickAccessResultList::forgetHeights() {
    heights.clear();
}

void QuickAccessResultList::bind(QWidget* widget, int at) {
    const Item item = itemAt(at);
    if (item.kind == headerKind) {
        static_cast<QuickAccessSectionHeader*>(widget)->setSection(static_cast<Section>(item.index));
        return;
    }
    auto* row = static_cast<QuickAccessRow*>(widget);
    row->onCopy = [this, index = item.index] { Q_EMIT clicked(index); };
    row->setPrompt(results.at(item.index), item.index == selected);
}

QStringList QuickAccessResultList::sectionTitles() const {
    QStringList titles;
    if (headerCount() > 0)
        titles << QuickAccessSectionHeader::title(Section::pinned);
    if (headerCount() > 1)
        titles << QuickAccessSectionHeader::title(Section::all);
    return titles;
}

QString QuickAccessResultList::titleAt(int index) const {
    return holds(index) ? QuickAccessRow::titleText(*results.at(index)) : QString();
}

QuickAccessRow* QuickAccessResultList::row(int index) const {
    return holds(index) ? qobject_cast<QuickAccessRow*>(rows->row(rowOf(index))) : nullptr;
}

void QuickAccessResultList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    rows->setGeometry(rect());
}

} // namespace Quillstacks
