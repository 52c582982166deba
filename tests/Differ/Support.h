#pragma once

#include "Differ/Differ.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace Differ {

/// What a failed comparison prints.
inline void PrintTo(const Point& point, std::ostream* out) {
    *out << '(' << point.x << ',' << point.y << ')';
}
inline void PrintTo(const Trace& trace, std::ostream* out) {
    PrintTo(trace.from, out);
    *out << "→";
    PrintTo(trace.to, out);
    *out << " D" << trace.D;
}

} // namespace Differ

namespace DifferTest {

using namespace Differ;
using namespace std::string_view_literals;

/// The debug texts of the elements of a diff or of a patch, with a blank between.
template <class Elements>
std::string text(const Elements& elements) {
    std::string result;
    for (const auto& element : elements) {
        if (!result.empty()) {
            result += ' ';
        }
        result += element.debugText();
    }
    return result;
}

/// All texts of up to `length` of the first `letters` letters, shortest first.
inline std::vector<std::string> allWords(std::size_t length, int letters) {
    std::vector<std::string> words{""};
    for (std::size_t place = 0; place < words.size() && words[place].size() < length; ++place) {
        for (int letter = 0; letter < letters; ++letter) {
            words.push_back(words[place] + static_cast<char>('a' + letter));
        }
    }
    return words;
}

using Sections = std::vector<std::string>;

/// The first letter is a section's name.
inline constexpr auto sameName = [](const std::string& a, const std::string& b) {
    return a.substr(0, 1) == b.substr(0, 1);
};
inline constexpr auto sameLetter = [](char a, char b) { return std::tolower(a) == std::tolower(b); };

using Random = std::mt19937;

inline int upTo(Random& random, int most) {
    return std::uniform_int_distribution<int>(0, most)(random);
}

inline std::string randomWord(Random& random, int mostLength, int letters) {
    std::string word(static_cast<std::size_t>(upTo(random, mostLength)), 'a');
    for (char& letter : word) {
        letter = static_cast<char>('a' + upTo(random, letters - 1));
    }
    return word;
}

/// The lines of a text that a person edited: some replaced, some gone, some new, some in another place.
inline std::string edited(Random& random, std::string word, int edits, int letters) {
    for (int edit = 0; edit < edits && !word.empty(); ++edit) {
        const auto place = static_cast<std::size_t>(upTo(random, static_cast<int>(word.size()) - 1));
        const char letter = static_cast<char>('a' + upTo(random, letters - 1));
        switch (upTo(random, 3)) {
        case 0:
            word[place] = letter;
            break;
        case 1:
            word.erase(place, 1);
            break;
        case 2:
            word.insert(place, 1, letter);
            break;
        default:
            std::rotate(word.begin(), word.begin() + static_cast<std::ptrdiff_t>(place), word.end());
        }
    }
    return word;
}

/// The result of a plain diff: what is deleted leaves the source, then what is inserted comes in from the target.
template <class T>
T applied(const Diff& diff, T source, const T& target) {
    for (auto element = diff.elements.rbegin(); element != diff.elements.rend(); ++element) {
        if (element->isDeletion()) {
            source.erase(source.begin() + element->at());
        }
    }
    for (const auto element : diff) {
        if (element.isInsertion()) {
            source.insert(source.begin() + element.at(), target[static_cast<std::size_t>(element.at())]);
        }
    }
    return source;
}

/// The fewest insertions and deletions from one to the other, by the table of all prefixes.
template <class T>
std::size_t distance(const T& source, const T& target) {
    std::vector<std::size_t> row(target.size() + 1);
    for (std::size_t y = 0; y < row.size(); ++y) {
        row[y] = y;
    }
    for (std::size_t x = 0; x < source.size(); ++x) {
        std::size_t diagonal = row[0];
        row[0] = x + 1;
        for (std::size_t y = 0; y < target.size(); ++y) {
            const std::size_t above = row[y + 1];
            row[y + 1] = source[x] == target[y] ? diagonal : std::min(above, row[y]) + 1;
            diagonal = above;
        }
    }
    return row.back();
}

/// The result of an extended diff: what stays keeps its order, and all else comes to the place that is told.
template <class T>
T applied(const ExtendedDiff& diff, const T& source, const T& target) {
    using Kind = ExtendedDiff::Element::Kind;
    std::map<Index, typename T::value_type> placed;
    T staying = source;
    std::vector<bool> leaves(source.size());
    for (const auto element : diff) {
        if (element.kind() == Kind::insertion) {
            placed.emplace(element.at(), target[static_cast<std::size_t>(element.at())]);
        } else {
            leaves[static_cast<std::size_t>(element.from())] = true;
        }
        if (element.kind() == Kind::move) {
            placed.emplace(element.to(), source[static_cast<std::size_t>(element.from())]);
        }
    }
    for (auto place = static_cast<Index>(source.size()) - 1; place >= 0; --place) {
        if (leaves[static_cast<std::size_t>(place)]) {
            staying.erase(staying.begin() + place);
        }
    }
    for (const auto& [place, value] : placed) {
        staying.insert(staying.begin() + place, value);
    }
    return staying;
}

/// The steps, one after the other, each of them checked to be possible.
template <class T, class Value>
T applied(const std::vector<Patch<Value>>& steps, T content) {
    for (const auto& step : steps) {
        if (step.isInsertion()) {
            EXPECT_TRUE(step.index() >= 0 && step.index() <= static_cast<Index>(content.size()));
            content.insert(content.begin() + step.index(), step.element());
        } else {
            EXPECT_TRUE(step.index() >= 0 && step.index() < static_cast<Index>(content.size()));
            content.erase(content.begin() + step.index());
        }
    }
    return content;
}

template <class T, class Value>
T applied(const std::vector<ExtendedPatch<Value>>& steps, T content) {
    for (const auto& step : steps) {
        if (step.kind() == ExtendedPatch<Value>::Kind::move) {
            const Value moved = content.at(static_cast<std::size_t>(step.from()));
            content.erase(content.begin() + step.from());
            EXPECT_TRUE(step.to() >= 0 && step.to() <= static_cast<Index>(content.size()));
            content.insert(content.begin() + step.to(), moved);
        } else if (step.kind() == ExtendedPatch<Value>::Kind::insertion) {
            content = applied(std::vector{Patch<Value>::insertion(step.index(), step.element())}, content);
        } else {
            content = applied(std::vector{Patch<Value>::deletion(step.index())}, content);
        }
    }
    return content;
}

/// diff() in its plain form: every trace is recorded, and the matches left out of the path.
template <class Source, class Target, class IsEqual = Equality>
Diff plainDiff(const Source& source, const Target& target, IsEqual isEqual = {}) {
    Diff result;
    for (const Trace& trace : diffTraces(source, target, isEqual)) {
        if (trace.isInsertion()) {
            result.elements.push_back(Diff::Element::insertAt(trace.from.y));
        } else if (trace.isDeletion()) {
            result.elements.push_back(Diff::Element::deleteAt(trace.from.x));
        }
    }
    return result;
}

/// A sequence on its way from a source to a target: all that was or will be in it, in path order. It tells where a
/// step acts at any moment by counting what is there before it.
class SequenceOnItsWay {
public:
    template <class Source, class Target>
    SequenceOnItsWay(const Source& source, const Target& target) {
        for (const Trace& trace : diffTraces(source, target)) {
            if (!trace.isMatch()) {
                differences.push_back(isThere.size());
            }
            isThere.push_back(!trace.isInsertion());
        }
    }

    /// Takes out or puts in the element that the diff's element `index` is about; gives its position.
    Index apply(Index index) {
        const std::size_t place = differences[static_cast<std::size_t>(index)];
        isThere[place] = !isThere[place];
        return std::count(isThere.begin(), isThere.begin() + static_cast<std::ptrdiff_t>(place), true);
    }

private:
    std::vector<bool> isThere;
    std::vector<std::size_t> differences; ///< of each element of the diff, its place
};

} // namespace DifferTest
