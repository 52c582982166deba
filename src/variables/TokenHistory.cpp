#include "variables/TokenHistory.h"

#include <algorithm>

namespace Quillstacks {
namespace {

bool isOneCharacter(const QString& text) {
    return text.size() == 1 || (text.size() == 2 && text[0].isHighSurrogate());
}

/// A word begins, or a line ends, where `next` follows `last`.
bool beginsStep(QChar last, QChar next) {
    return next == u'\n' || last == u'\n' || (last.isSpace() && !next.isSpace());
}

} // namespace

void TokenHistory::record(const QString& before, const QString& after, int caretBefore, int caretAfter,
                          bool tokensChanged) {
    const auto [changeBefore, changeAfter] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const qsizetype location = changeBefore - before.begin();
    const qsizetype shorter = std::min(before.size(), after.size()) - location;
    qsizetype same = 0;
    while (same < shorter && before[before.size() - 1 - same] == after[after.size() - 1 - same])
        ++same;
    const Step step{location, before.mid(location, before.size() - same - location),
                    after.mid(location, after.size() - same - location), caretBefore, caretAfter};
    if (step.removed.isEmpty() && step.inserted.isEmpty())
        return;
    steps.resize(done);
    if (!tokensChanged && joins(step))
        join(step);
    else
        steps.push_back(step);
    done = steps.size();
    isOpen = !tokensChanged;
}

bool TokenHistory::joins(const Step& next) const {
    if (!isOpen || steps.empty() || next.caretBefore != steps.back().caretAfter)
        return false;
    const Step& last = steps.back();
    if (next.removed.isEmpty() && last.removed.isEmpty())
        return isOneCharacter(next.inserted) && next.location == last.location + last.inserted.size() &&
               !beginsStep(last.inserted.back(), next.inserted.front());
    if (next.inserted.isEmpty() && last.inserted.isEmpty())
        return isOneCharacter(next.removed) &&
               (next.location == last.location || next.location + next.removed.size() == last.location);
    return false;
}

void TokenHistory::join(const Step& next) {
    Step& last = steps.back();
    last.caretAfter = next.caretAfter;
    last.inserted += next.inserted;
    if (next.location < last.location)
        last.removed.prepend(next.removed);
    else
        last.removed += next.removed;
    last.location = std::min(last.location, next.location);
}

std::optional<TokenHistory::Change> TokenHistory::undo() {
    if (!canUndo())
        return {};
    isOpen = false;
    const Step& step = steps[--done];
    return Change{step.location, step.inserted.size(), step.removed, step.caretBefore};
}

std::optional<TokenHistory::Change> TokenHistory::redo() {
    if (!canRedo())
        return {};
    isOpen = false;
    const Step& step = steps[done++];
    return Change{step.location, step.removed.size(), step.inserted, step.caretAfter};
}

void TokenHistory::clear() {
    steps.clear();
    done = 0;
    isOpen = false;
}

} // namespace Quillstacks
