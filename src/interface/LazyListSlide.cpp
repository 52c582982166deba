// How the rows of a list follow a change of what it shows.
#include "interface/LazyList.h"

#include "Differ/ExtendedDiff.h"
#include "interface/Theme.h"

#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace Quillstacks {
namespace {

using Keys = std::vector<const void*>;

constexpr std::ptrdiff_t mostChanges = 8; ///< with more it is another list, not the same after a change
constexpr int isNew = -1;

/// Of each row its index before, or isNew; nothing where too much has changed, or nothing has.
std::optional<std::vector<int>> rowsBefore(const Keys& before, const Keys& now) {
    if (std::abs(std::ssize(before) - std::ssize(now)) > mostChanges)
        return {};
    const Differ::ExtendedDiff changes = Differ::extendedDiff(before, now);
    if (changes.empty() || std::ssize(changes) > mostChanges)
        return {};
    constexpr int stays = -2;
    std::vector<int> rows(now.size(), stays);
    Differ::IndexSet leaving;
    for (const auto change : changes) {
        using Kind = Differ::ExtendedDiff::Element::Kind;
        if (change.kind() != Kind::insertion)
            leaving.insert(change.from());
        if (change.kind() != Kind::deletion)
            rows[static_cast<std::size_t>(change.to())] =
                change.kind() == Kind::insertion ? isNew : static_cast<int>(change.from());
    }
    int next = 0;
    for (int& row : rows) {
        if (row != stays)
            continue;
        while (leaving.contains(next))
            ++next;
        row = next++;
    }
    return rows;
}

} // namespace

void LazyList::followChanges() {
    const Keys keysBefore = keys;
    std::vector<int> seenAt; // on the viewport, as one change may follow while rows still slide after another
    for (int index = 0; index < count(); ++index)
        seenAt.push_back(placeOf(index).top());
    reload();
    if (!isVisible() || Theme::shared().reducedMotion())
        return;
    const auto before = rowsBefore(keysBefore, keys);
    if (!before)
        return;
    // A row that comes from far away sets out just out of sight.
    const int farthest = viewport()->height();
    std::vector<int> ways;
    for (int index = 0; index < count(); ++index) {
        const int row = (*before)[static_cast<std::size_t>(index)];
        const int way = row == isNew ? 0 : seenAt[static_cast<std::size_t>(row)] - placeOf(index).top();
        ways.push_back(std::clamp(way, -farthest, farthest));
    }
    travels = std::move(ways);
    slide.start();
    layOut();
}

/// Ends a slide; what is shown has to be laid out after it.
void LazyList::settle() {
    slide.stop();
    travels.clear();
}

/// How far from its place a row is seen.
int LazyList::travelOf(int index) const {
    if (travels.empty())
        return 0;
    const double left = 1 - slide.currentValue().toDouble();
    return static_cast<int>(std::lround(travels[static_cast<std::size_t>(index)] * left));
}

/// Where a row is seen on the viewport.
QRect LazyList::placeOf(int index) const {
    return rowGeometry(index).translated(0, travelOf(index) - verticalScrollBar()->value());
}

/// The indices of the rows that are to exist, in rising order.
std::vector<int> LazyList::rowsInSight() const {
    auto [first, last] = visibleRange();
    const bool isSliding = !travels.empty() && first <= last;
    if (isSliding) {
        const int page = viewport()->height();
        first = firstAt(verticalScrollBar()->value() - page);
        last = firstAt(verticalScrollBar()->value() + 2 * page);
    }
    std::vector<int> rows;
    for (int index = first; index <= last; ++index)
        if (!isSliding || placeOf(index).intersects(viewport()->rect()))
            rows.push_back(index);
    return rows;
}

} // namespace Quillstacks
