// The worked example of the library's README, as it stands there.

#include "Differ/Differ.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(Readme, theWorkedExample) {
    const std::vector<std::string> before{"milk", "bread", "tea", "salt"};
    const std::vector<std::string> after{"tea", "milk", "jam", "salt"};

    // What came and what went, positions absolute.
    std::string shown;
    for (const auto element : Differ::diff(before, after)) {
        const auto at = static_cast<std::size_t>(element.at());
        shown += element.isDeletion() ? "- " + before[at] + "\n" : "+ " + after[at] + "\n";
    }
    EXPECT_EQ(shown, "- milk\n- bread\n+ milk\n+ jam\n");

    // The milk only moved.
    std::string moves;
    for (const auto element : Differ::extendedDiff(before, after)) {
        moves += element.debugText() + " ";
    }
    EXPECT_EQ(moves, "M(0,1) D(1) I(2) ");

    // Steps to apply one after the other, insertions first.
    auto list = before;
    const auto insertionsFirst = [](auto a, auto b) { return a.isInsertion() && b.isDeletion(); };
    for (const auto& step : Differ::patch(before, after, insertionsFirst)) {
        if (step.isInsertion()) {
            list.insert(list.begin() + step.index(), step.element());
        } else {
            list.erase(list.begin() + step.index());
        }
    }
    EXPECT_EQ(list, after);
}

} // namespace
