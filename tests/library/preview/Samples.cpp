#include "Samples.h"

#include "foundation/Clock.h"
#include "library/model/ModelContext.h"

#include <QMap>

namespace Quillstacks {
namespace {

struct Sample {
    const char* title;
    const char* body;
    const char* tags;
};

// The first three are pinned, in this order.
constexpr Sample samples[] = {
    {"Code review, line by line",
     "Review the following {{language}} change as a careful senior engineer. List defects first, by severity, each "
     "with its line and the smallest fix. Quote the line before you judge it. Do not comment on formatting. Then name "
     "one thing that is done well.",
     "Code Review"},
    {"Explain a hard idea simply",
     "You are a patient teacher who has explained {topic} many times.\n\nExplain {topic} to {audience} in at most "
     "{length} words. Follow this order:\n\n1. One sentence that says what it is for.\n2. An everyday comparison that "
     "carries most of the idea.\n3. Where that comparison breaks down, and what really happens.\n4. One question that "
     "shows whether the reader has understood.\n\nWrite in a {tone} tone. Avoid jargon; where a term can't be avoided, "
     "define it in the same sentence.\n\nIf {topic} is disputed, say so in one line and name the two main positions.",
     "Learning Writing"},
    {"Meeting notes to decisions",
     "Turn these raw notes from {{meeting}} into three lists: decisions, owners with dates, open questions. Leave out "
     "anything that was merely discussed.",
     "Meetings Writing"},
    {"Release notes from commits",
     "Group the commits below into Added, Changed and Fixed. Write one plain sentence per entry for people who use the "
     "program, not for those who build it. Skip refactorings.",
     "Code Product Writing"},
    {"Summarise a paper",
     "Summarise the attached paper for a reader who works in {{field}}: the question, the method in two sentences, the "
     "main result with its numbers, and the weakest point of the argument.",
     "Learning Research"},
    {"Polite but firm reply",
     "Answer the message below. Decline {{request}}, give one honest reason, offer {{alternative}}. Warm tone, no "
     "apology longer than four words.",
     "Email Writing"},
    {"SQL from a plain question",
     "Given this schema, write one {{dialect}} query that answers the question. Prefer joins to sub-queries, name "
     "every column, and explain the query in two lines beneath it.",
     "Code Research"},
    {"Interview question set",
     "Write ten questions for an interview with {{persona}} about {{subject}}. Open questions only; order them from "
     "habits to opinions.",
     "Product Research"},
    {"Bug report triage",
     "Sort these bug reports by cause. For each group name the likely component, one report that reproduces it best, "
     "and what is still missing.",
     "Code Product Review"},
    {"Weekly status in five lines",
     "From my notes of the week write five lines: done, learned, stuck, next, and one line of thanks.",
     "Email Meetings"},
    {"Naming workshop",
     "Suggest twelve names for {{thing}}. Short, easy to spell, none of them a pun. Say in three words what each one "
     "evokes.",
     "Product Writing"},
    {"Test cases from a story",
     "Derive test cases from the user story below as a table: given, when, then. Mark the edge cases.", "Code Review"},
    {"A title that goes on and on, well beyond what a row has room for, so that it has to end in an ellipsis somewhere "
     "near the place where the two buttons stand, and not under them",
     "One line.", ""},
    {"", "A prompt without a title.\nIts second line.\nIts third line.",
     "Code Email Learning Meetings Product Writing"},
    {"Without a body", "", ""},
};

constexpr std::pair<const char*, const char*> colors[] = {
    {"Code", "4D96FF"},    {"Email", "F6C549"},    {"Learning", "2BB673"}, {"Meetings", "FF8E3C"},
    {"Product", "F15BB5"}, {"Research", "2EC4B6"}, {"Review", "FF6B6B"},   {"Writing", "7C5CFC"}};

} // namespace

void addSamples(ModelContext& context) {
    QMap<QString, Tag*> tags;
    for (const auto& [name, color] : colors)
        tags[QLatin1String(name)] = context.insert(std::make_unique<Tag>(QLatin1String(name), QLatin1String(color)));
    const Date now = Clock::now();
    int index = 0;
    for (const Sample& sample : samples) {
        QList<Tag*> own;
        for (const QString& name : QString::fromUtf8(sample.tags).split(QLatin1Char(' '), Qt::SkipEmptyParts))
            own += tags.value(name);
        auto prompt = std::make_unique<Prompt>(QString::fromUtf8(sample.title), QString::fromUtf8(sample.body), own);
        const Date date = now - std::chrono::hours(index);
        const bool pinned = index < 3;
        prompt->restoreIdentity(prompt->id(), date, date, pinned, pinned ? std::optional(date) : std::nullopt);
        context.insert(std::move(prompt));
        ++index;
    }
    context.save();
}

} // namespace Quillstacks
