#include "TagSelector.h"

#include "interface/Accessible.h"
#include "interface/Chip.h"
#include "interface/ColorFromHex.h"
#include "interface/Theme.h"
#include "library/model/Tag.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int gap = 6;
/// An edge of 1 px stands outside the padding.
int chipHeight() {
    return ChipStyle::selector().height() + 2;
}

} // namespace

TagSelector::TagSelector(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("TagSelector"));
    setAccessibleName(QStringLiteral("Tags"));
    setAccessibleTraits(this, {QAccessible::Grouping, {}, {}, {}});
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        updateGeometry();
        layOut();
    });
}

QSize TagSelector::sizeHint() const {
    return {contentWidth, chipHeight()};
}

QSize TagSelector::minimumSizeHint() const {
    return {0, chipHeight()};
}

void TagSelector::setTags(const QList<Tag*>& tags) {
    const bool hadFocus = focusedChip();
    std::vector<Entry> next;
    for (Tag* tag : tags)
        next.push_back({tag, takeChip(tag)});
    std::swap(entries, next);
    for (const Entry& gone : next)
        delete gone.chip;
    // A chip made later stands where the row does among the stops of the Tab key. Only stops can be put in order.
    setFocusProxy(nullptr);
    setFocusPolicy(Qt::TabFocus);
    QWidget* before = this;
    for (const Entry& entry : entries) {
        entry.chip->setTag(entry.tag->name(), colorFromHex(entry.tag->colorHex()));
        entry.chip->show();
        entry.chip->setFocusPolicy(Qt::TabFocus);
        setTabOrder(before, entry.chip);
        before = entry.chip;
    }
    setFocusPolicy(Qt::NoFocus);
    layOut();
    const bool stopIsLeft = std::ranges::any_of(entries, [&](const Entry& entry) { return entry.chip == tabStop; });
    makeTabStop(stopIsLeft ? tabStop : entries.empty() ? nullptr : entries.front().chip);
    if (hadFocus && tabStop && !focusedChip())
        tabStop->setFocus(Qt::OtherFocusReason);
}

/// The chip that stands for the tag already, or a new one. It is taken out of the entries.
Chip* TagSelector::takeChip(Tag* tag) {
    const auto kept = std::ranges::find(entries, tag, &Entry::tag);
    if (kept != entries.end())
        return std::exchange(kept->chip, nullptr);
    auto* chip = new Chip(QString(), QColor(), this);
    chip->installEventFilter(this);
    setAccessibleTraits(chip,
                        {QAccessible::CheckBox, [chip] { chip->click(); }, [chip] { return chip->isChecked(); }, {}});
    connect(chip, &QAbstractButton::clicked, this, [this, tag] { Q_EMIT tagClicked(tag); });
    return chip;
}

void TagSelector::setSelection(const QSet<Tag*>& tags) {
    for (const Entry& entry : entries) {
        const bool isTicked = tags.contains(entry.tag);
        if (entry.chip->isChecked() == isTicked)
            continue;
        entry.chip->setChecked(isTicked);
        announceState(entry.chip);
    }
}

void TagSelector::layOut() {
    int x = 0;
    for (const Entry& entry : entries)
        x += entry.chip->sizeHint().width() + gap;
    contentWidth = std::max(0, x - gap);
    scrolled = std::clamp(scrolled, 0, std::max(0, contentWidth - width()));
    x = -scrolled;
    for (const Entry& entry : entries) {
        const QSize size = entry.chip->sizeHint();
        entry.chip->setGeometry(x, 0, size.width(), size.height());
        x += size.width() + gap;
    }
}

void TagSelector::scrollTo(int wanted) {
    const int before = scrolled;
    scrolled = wanted;
    layOut();
    // The ring of the chip that has the keyboard lies above its surroundings, and must not leave the row.
    if (Chip* chip = focusedChip(); chip && scrolled != before && !rect().contains(chip->geometry())) {
        chip->clearFocus();
        chip->setFocus(Qt::OtherFocusReason);
    }
}

void TagSelector::reveal(const Chip& chip) {
    const int left = chip.x() + scrolled;
    const int right = left + chip.width();
    if (left < scrolled || chip.width() > width())
        scrollTo(left);
    else if (right > scrolled + width())
        scrollTo(right - width());
}

void TagSelector::makeTabStop(Chip* chip) {
    tabStop = chip;
    setFocusProxy(chip);
    for (const Entry& entry : entries)
        entry.chip->setFocusPolicy(entry.chip == chip ? Qt::TabFocus : Qt::NoFocus);
}

Chip* TagSelector::focusedChip() const {
    const auto found = std::ranges::find_if(entries, [](const Entry& entry) { return entry.chip->hasFocus(); });
    return found == entries.end() ? nullptr : found->chip;
}

bool TagSelector::moveByKey(const Chip* from, int key) {
    const auto last = static_cast<qsizetype>(entries.size()) - 1;
    const qsizetype at = std::ranges::find(entries, from, &Entry::chip) - entries.begin();
    qsizetype to = at;
    switch (key) {
    case Qt::Key_Left:
        to = at - 1;
        break;
    case Qt::Key_Right:
        to = at + 1;
        break;
    case Qt::Key_Home:
        to = 0;
        break;
    case Qt::Key_End:
        to = last;
        break;
    default:
        return false;
    }
    entries[static_cast<std::size_t>(std::clamp<qsizetype>(to, 0, last))].chip->setFocus(Qt::TabFocusReason);
    return true;
}

bool TagSelector::eventFilter(QObject* watched, QEvent* event) {
    auto* chip = qobject_cast<Chip*>(watched);
    if (chip && event->type() == QEvent::KeyPress)
        return moveByKey(chip, static_cast<QKeyEvent*>(event)->key());
    if (chip && event->type() == QEvent::FocusIn &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::OtherFocusReason) {
        makeTabStop(chip);
        reveal(*chip);
    }
    return QWidget::eventFilter(watched, event);
}

void TagSelector::resizeEvent(QResizeEvent*) {
    layOut();
    if (const Chip* chip = focusedChip())
        reveal(*chip);
}

void TagSelector::wheelEvent(QWheelEvent* event) {
    if (contentWidth <= width()) {
        event->ignore();
        return;
    }
    // A plain wheel turns up and down only.
    const auto along = [](const QPoint& delta) { return delta.x() != 0 ? delta.x() : delta.y(); };
    const int pixels = event->pixelDelta().isNull() ? along(event->angleDelta()) / 2 : along(event->pixelDelta());
    scrollTo(scrolled - pixels);
    event->accept();
}

} // namespace Quillstacks
