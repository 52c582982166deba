#include "library/PromptSearch.h"

#include "foundation/LowercaseSearch.h"
#include "foundation/Text.h"
#include "library/model/Prompt.h"
#include "library/model/Tag.h"

#include <algorithm>

namespace Quillstacks {
namespace {

/// A library lies scattered in memory, and most of a search is the wait for it. So what comes a little later is asked
/// for ahead: the record first, and once that is there its texts.
class Ahead final {
public:
    explicit Ahead(const QList<Prompt*>& prompts) : all(prompts) {}

    void from(qsizetype index) const {
        if (index + 2 * distance < all.size())
            touch(all[index + 2 * distance]);
        if (index + distance < all.size()) {
            const Prompt* prompt = all[index + distance];
            touch(prompt->title().constData());
            touch(prompt->body().constData());
        }
    }

private:
    static constexpr qsizetype distance = 8;
    static void touch(const void* place) { __builtin_prefetch(place); }

    const QList<Prompt*>& all;
};

bool matches(const LowercaseSearch& search, const Prompt& prompt) {
    return search.isIn(prompt.title()) || search.isIn(prompt.body()) ||
           std::any_of(prompt.tags().begin(), prompt.tags().end(),
                       [&](const Tag* tag) { return search.isIn(tag->name()); });
}

template <typename Predicate>
QList<Prompt*> kept(const QList<Prompt*>& prompts, Predicate isKept) {
    QList<Prompt*> result;
    std::copy_if(prompts.begin(), prompts.end(), std::back_inserter(result), isKept);
    return result;
}

template <typename Iterator, typename Before>
void sortUnlessSorted(Iterator begin, Iterator end, Before before) {
    if (!std::is_sorted(begin, end, before))
        std::stable_sort(begin, end, before);
}

} // namespace

QList<Prompt*> promptsWithTag(const QList<Prompt*>& prompts, const std::optional<Uuid>& tagId) {
    if (tagId.value_or(allPromptsId) == allPromptsId)
        return prompts;
    return kept(prompts, [&](const Prompt* prompt) {
        return std::any_of(prompt->tags().begin(), prompt->tags().end(),
                           [&](const Tag* tag) { return tag->id() == *tagId; });
    });
}

QList<Prompt*> promptsMatching(const QList<Prompt*>& prompts, const QString& searchText) {
    const QStringView term = Text::trimmed(searchText);
    if (term.isEmpty())
        return prompts;
    const LowercaseSearch search(term);
    const Ahead ahead(prompts);
    QList<Prompt*> found;
    for (qsizetype index = 0; index < prompts.size(); ++index) {
        ahead.from(index);
        if (matches(search, *prompts[index]))
            found.append(prompts[index]);
    }
    return found;
}

void sortPinnedFirst(QList<Prompt*>& prompts) {
    const auto begin = prompts.begin();
    const auto end = prompts.end();
    const auto unpinned = std::stable_partition(begin, end, [](const Prompt* prompt) { return prompt->isPinned(); });
    sortUnlessSorted(begin, unpinned, [](const Prompt* a, const Prompt* b) {
        return a->pinnedAt().value_or(distantPast) > b->pinnedAt().value_or(distantPast);
    });
    sortUnlessSorted(unpinned, end, [](const Prompt* a, const Prompt* b) { return a->updatedAt() > b->updatedAt(); });
}

} // namespace Quillstacks
