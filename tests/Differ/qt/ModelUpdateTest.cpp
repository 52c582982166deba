#include "Differ/qt/ModelUpdate.h"
#include "Differ/Support.h"

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QSignalSpy>
#include <QStringListModel>

namespace {

using namespace DifferTest;
using Sections = std::vector<std::string>;

QStringList lettersOf(const std::string& word) {
    QStringList letters;
    for (const char letter : word) {
        letters.append(QString(QLatin1Char(letter)));
    }
    return letters;
}

/// A list that shows the source and is changed to the target.
struct ListCase {
    ListCase(const std::string& source, const std::string& target)
        : before(lettersOf(source)), after(lettersOf(target)), model(before) {}

    bool run() {
        return animateRowChanges(model, before, after,
                                 [&](int row) { model.setData(model.index(row), after.at(row)); });
    }

    QStringList before;
    QStringList after;
    QStringListModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST(AnimateRowChanges, announcesRemovalsInsertionsAndMovesAsSuch) {
    ListCase list("abcde", "ebxd");
    QSignalSpy removed(&list.model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(&list.model, &QAbstractItemModel::rowsInserted);
    QSignalSpy moved(&list.model, &QAbstractItemModel::rowsMoved);
    QSignalSpy reset(&list.model, &QAbstractItemModel::modelReset);
    ASSERT_TRUE(list.run());
    EXPECT_EQ(list.model.stringList(), list.after);
    EXPECT_EQ(removed.count(), 2);
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(moved.count(), 1);
    EXPECT_EQ(reset.count(), 0);
}

TEST(AnimateRowChanges, aSelectedRowIsFollowedToItsNewPlace) {
    ListCase list("abcde", "exabcd");
    const QPersistentModelIndex selected = list.model.index(4);
    const QPersistentModelIndex staying = list.model.index(1);
    ASSERT_TRUE(list.run());
    EXPECT_EQ(selected.row(), 0);
    EXPECT_EQ(staying.row(), 3);
    EXPECT_EQ(staying.data().toString(), QStringLiteral("b"));
}

TEST(AnimateRowChanges, equalListsAnnounceNothing) {
    ListCase list("abc", "abc");
    QSignalSpy changed(&list.model, &QAbstractItemModel::dataChanged);
    QSignalSpy moved(&list.model, &QAbstractItemModel::rowsMoved);
    ASSERT_TRUE(list.run());
    EXPECT_EQ(changed.count() + moved.count(), 0);
}

TEST(AnimateRowChanges, anyListBecomesAnyOther) {
    Random random(16);
    for (int round = 0; round < 300; ++round) {
        const int letters = 1 + upTo(random, 12);
        const std::string source = randomWord(random, 20, letters);
        ListCase list(source, edited(random, source, upTo(random, 15), letters));
        ASSERT_TRUE(list.run());
        ASSERT_EQ(list.model.stringList(), list.after);
    }
}

TEST(AnimateRowChanges, everyRowThatStaysOrMovesIsFollowed) {
    Random random(41);
    for (int round = 0; round < 200; ++round) {
        // Each letter once, so that a row is known by its text.
        std::string source = "abcdefghijkl";
        std::shuffle(source.begin(), source.end(), random);
        std::string target = source.substr(0, static_cast<std::size_t>(upTo(random, 12)));
        target += "xyz";
        std::shuffle(target.begin(), target.end(), random);
        ListCase list(source, target);
        std::vector<QPersistentModelIndex> rows;
        for (int row = 0; row < list.model.rowCount(); ++row) {
            rows.emplace_back(list.model.index(row));
        }
        ASSERT_TRUE(list.run());
        for (int row = 0; row < list.before.size(); ++row) {
            const auto after = static_cast<int>(list.after.indexOf(list.before.at(row)));
            ASSERT_EQ(rows.at(static_cast<std::size_t>(row)).row(), after) << source << ' ' << target;
        }
    }
}

TEST(AnimateRowChanges, onlyNewRowsAreFilledAndEachOnce) {
    ListCase list("abcde", "xeabyz");
    QList<int> filled;
    ASSERT_TRUE(animateRowChanges(list.model, list.before, list.after, [&](int row) {
        filled.append(row);
        list.model.setData(list.model.index(row), list.after.at(row));
    }));
    EXPECT_EQ(filled, (QList<int>{0, 4, 5}));
    EXPECT_EQ(list.model.stringList(), list.after);
}

TEST(AnimateRowChanges, tenThousandRowsNarrowedToHalfAndBack) {
    QStringList all;
    QStringList half;
    for (int row = 0; row < 10'000; ++row) {
        all.append(QString::number(row));
        if (row % 2 == 1) {
            half.append(all.last());
        }
    }
    QStringListModel model(all);
    const auto fillFrom = [&](const QStringList& list) {
        return [&](int row) { model.setData(model.index(row), list.at(row)); };
    };
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    ASSERT_TRUE(animateRowChanges(model, all, half, fillFrom(half)));
    EXPECT_EQ(model.stringList(), half);
    EXPECT_EQ(removed.count(), 5000);
    ASSERT_TRUE(animateRowChanges(model, half, all, fillFrom(all)));
    EXPECT_EQ(model.stringList(), all);
}

TEST(AnimateRowChanges, rowsBelowAHeadingByTheTransform) {
    QStringListModel model({QStringLiteral("heading"), QStringLiteral("a"), QStringLiteral("b")});
    const QStringList after = lettersOf("bca");
    ASSERT_TRUE(animateRowChanges(
        model, lettersOf("ab"), after, [&](int row) { model.setData(model.index(row), after.at(row - 1)); }, Equality{},
        [](Index row) { return row + 1; }));
    EXPECT_EQ(model.stringList(), QStringList{QStringLiteral("heading")} + after);
}

TEST(AnimateRowChanges, aPredicateDecidesWhatStays) {
    QStringListModel model(lettersOf("aB"));
    const auto sameLetter = [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; };
    ASSERT_TRUE(animateRowChanges(
        model, lettersOf("aB"), lettersOf("b"), [](int) {}, sameLetter));
    EXPECT_EQ(model.stringList(), lettersOf("B"));
}

TEST(AnimateRowChanges, aModelThatRefusesSaysSo) {
    class Fixed : public QAbstractListModel {
    public:
        int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 2; }
        QVariant data(const QModelIndex&, int) const override { return {}; }
    };
    Fixed model;
    EXPECT_FALSE(animateRowChanges(model, lettersOf("ab"), lettersOf("a"), [](int) {}));
    EXPECT_FALSE(animateRowChanges(model, lettersOf("ab"), lettersOf("ba"), [](int) {}));
    EXPECT_FALSE(animateRowChanges(model, lettersOf("ab"), lettersOf("abc"), [](int) { FAIL(); }));
}

/// Two levels: sections, which are texts, and their letters.
class SectionModel final : public QAbstractItemModel {
public:
    explicit SectionModel(const Sections& content) {
        for (const std::string& section : content) {
            sections.push_back(std::make_shared<std::string>(section));
        }
    }

    Sections content() const {
        Sections result;
        for (const auto& section : sections) {
            result.push_back(*section);
        }
        return result;
    }
    std::string& section(int row) { return *sections[static_cast<std::size_t>(row)]; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override {
        if (!hasIndex(row, column, parent)) {
            return {};
        }
        return createIndex(row, column,
                           parent.isValid() ? sections[static_cast<std::size_t>(parent.row())].get() : nullptr);
    }
    QModelIndex parent(const QModelIndex& child) const override {
        for (std::size_t row = 0; child.internalPointer() != nullptr && row < sections.size(); ++row) {
            if (sections[row].get() == child.internalPointer()) {
                return createIndex(static_cast<int>(row), 0, nullptr);
            }
        }
        return {};
    }
    int rowCount(const QModelIndex& parent = {}) const override {
        if (!parent.isValid()) {
            return static_cast<int>(sections.size());
        }
        return parent.internalPointer() != nullptr || parent.column() > 0
                   ? 0
                   : static_cast<int>(sections[static_cast<std::size_t>(parent.row())]->size());
    }
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || index.internalPointer() == nullptr) {
            return {};
        }
        return QChar(QLatin1Char(
            static_cast<const std::string*>(index.internalPointer())->at(static_cast<std::size_t>(index.row()))));
    }

    bool removeRows(int row, int count, const QModelIndex& parent) override {
        beginRemoveRows(parent, row, row + count - 1);
        if (parent.isValid()) {
            section(parent.row()).erase(static_cast<std::size_t>(row), static_cast<std::size_t>(count));
        } else {
            sections.erase(sections.begin() + row, sections.begin() + row + count);
        }
        endRemoveRows();
        return true;
    }
    bool insertRows(int row, int count, const QModelIndex& parent) override {
        beginInsertRows(parent, row, row + count - 1);
        if (parent.isValid()) {
            section(parent.row()).insert(static_cast<std::size_t>(row), static_cast<std::size_t>(count), '?');
        } else {
            for (int added = 0; added < count; ++added) {
                sections.insert(sections.begin() + row, std::make_shared<std::string>());
            }
        }
        endInsertRows();
        return true;
    }
    bool moveRows(const QModelIndex& parent, int row, int, const QModelIndex&, int before) override {
        if (!beginMoveRows(parent, row, row, parent, before)) {
            return false;
        }
        const int place = before > row ? before - 1 : before;
        const auto move = [&](auto& list) {
            auto moved = list[static_cast<std::size_t>(row)];
            list.erase(list.begin() + row);
            list.insert(list.begin() + place, moved);
        };
        if (parent.isValid()) {
            move(section(parent.row()));
        } else {
            move(sections);
        }
        endMoveRows();
        return true;
    }
    void fill(int row, const std::string& letters) {
        beginInsertRows(index(row, 0), 0, static_cast<int>(letters.size()) - 1);
        section(row) = letters;
        endInsertRows();
    }

private:
    std::vector<std::shared_ptr<std::string>> sections;
};

const auto sameName = [](const std::string& a, const std::string& b) { return a.substr(0, 1) == b.substr(0, 1); };

template <class IsEqualSection>
void check(const Sections& before, const Sections& after, IsEqualSection isEqualSection) {
    SectionModel model(before);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::vector<IndexPath> filled;
    ASSERT_TRUE(animateItemAndSectionChanges(
        model, before, after, [&](int row) { model.fill(row, after[static_cast<std::size_t>(row)]); },
        [&](IndexPath path) { filled.push_back(path); }, isEqualSection));
    Sections result = model.content();
    for (const IndexPath& path : filled) {
        const auto section = static_cast<std::size_t>(path.section);
        const auto item = static_cast<std::size_t>(path.item);
        ASSERT_EQ(result.at(section).at(item), '?');
        result[section][item] = after[section][item];
    }
    ASSERT_EQ(result, after);
}

TEST(AnimateItemAndSectionChanges, itemsAndSectionsComeGoAndMove) {
    check({"Aabc", "Bxy", "Cp"}, {"D12", "Acab", "Cpq"}, sameName);
    check({"Aabc", "B"}, {"B", "Aabc"}, Equality{});
    check({}, {"Aab"}, sameName);
    check({"Aab"}, {}, sameName);
}

TEST(AnimateItemAndSectionChanges, belowAHeadingByTheTransforms) {
    // The model has a section of its own at the top, and in each other section an item of its own.
    SectionModel model({"!", "-ab", "-c"});
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const Sections before{"ab", "c"};
    const Sections after{"bxa", "c", "d"};
    const auto sameSection = [](const std::string& a, const std::string& b) {
        return a.find_first_of(b) != std::string::npos;
    };
    std::vector<IndexPath> items;
    ASSERT_TRUE(animateItemAndSectionChanges(
        model, before, after, [&](int row) { model.fill(row, "-" + after.at(static_cast<std::size_t>(row) - 1)); },
        [&](IndexPath path) { items.push_back(path); }, sameSection, Equality{},
        [](IndexPath path) {
            return IndexPath{path.item + 1, path.section + 1};
        },
        [](Index section) { return section + 1; }));
    EXPECT_EQ(model.content(), (Sections{"!", "-b?a", "-c", "-d"}));
    EXPECT_EQ(items, (std::vector<IndexPath>{{2, 1}}));
}

TEST(AnimateItemAndSectionChanges, anySectionsBecomeAnyOthers) {
    Random random(17);
    const auto sections = [&](bool isSorted) {
        Sections result;
        for (char name = 'A'; name < 'F'; ++name) {
            if (upTo(random, 2) > 0) {
                result.push_back(name + randomWord(random, 6, 4) + '.');
            }
        }
        if (!isSorted) {
            std::shuffle(result.begin(), result.end(), random);
        }
        return result;
    };
    for (int round = 0; round < 200; ++round) {
        ASSERT_NO_FATAL_FAILURE(check(sections(true), sections(true), sameName)); // no section moves
        ASSERT_NO_FATAL_FAILURE(check(sections(false), sections(false), Equality{}));
    }
}

} // namespace
