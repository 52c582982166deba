#include "foundation/StoredPreference.h"
#include "support/TestPreferences.h"

#include <gtest/gtest.h>

namespace Quillstacks {

enum class Fruit { Apple, Pear };

template <>
struct RawValue<Fruit> {
    static std::optional<Fruit> fromRawValue(const QString& raw) {
        if (raw == QStringLiteral("apple"))
            return Fruit::Apple;
        return raw == QStringLiteral("pear") ? std::optional(Fruit::Pear) : std::nullopt;
    }
    static QString rawValue(Fruit fruit) {
        return fruit == Fruit::Apple ? QStringLiteral("apple") : QStringLiteral("pear");
    }
};

namespace {

const StoredPreference<bool> enabled(QStringLiteral("enabled"), true);
const StoredPreference<qint64> limit(QStringLiteral("limit"), 50);
const StoredPreference<QString> model(QStringLiteral("model"), QStringLiteral("llama"));
const StoredPreference<Fruit> fruit(QStringLiteral("fruit"), Fruit::Pear);

TEST(StoredPreference, anAbsentKeyReadsAsItsDefaultAndIsNotWritten) {
    TestPreferences preferences;
    EXPECT_TRUE(enabled.value());
    EXPECT_EQ(limit.value(), 50);
    EXPECT_EQ(model.value(), QStringLiteral("llama"));
    EXPECT_EQ(fruit.value(), Fruit::Pear);
    EXPECT_FALSE(preferences->contains(QStringLiteral("limit")));
    EXPECT_TRUE(preferences.fileContents().isEmpty());
}

TEST(StoredPreference, readsWhatWasSet) {
    TestPreferences preferences;
    enabled.set(false);
    limit.set(7);
    model.set(QStringLiteral("m"));
    fruit.set(Fruit::Apple);
    EXPECT_FALSE(enabled.value());
    EXPECT_EQ(limit.value(), 7);
    EXPECT_EQ(model.value(), QStringLiteral("m"));
    EXPECT_EQ(fruit.value(), Fruit::Apple);
    EXPECT_EQ(preferences->text(QStringLiteral("fruit")), QStringLiteral("apple"));
}

TEST(StoredPreference, aValueOfTheWrongTypeReadsAsTheDefault) {
    TestPreferences preferences;
    preferences->set(QStringLiteral("enabled"), QStringLiteral("false"));
    preferences->set(QStringLiteral("limit"), true);
    preferences->set(QStringLiteral("model"), qint64(3));
    preferences->set(QStringLiteral("fruit"), false);
    EXPECT_TRUE(enabled.value());
    EXPECT_EQ(limit.value(), 50);
    EXPECT_EQ(model.value(), QStringLiteral("llama"));
    EXPECT_EQ(fruit.value(), Fruit::Pear);
}

TEST(StoredPreference, anUnknownRawValueReadsAsTheDefault) {
    TestPreferences preferences;
    preferences->set(QStringLiteral("fruit"), QStringLiteral("Apple"));
    EXPECT_EQ(fruit.value(), Fruit::Pear);
}

TEST(StoredPreference, removingTheDomainReturnsTheDefaults) {
    TestPreferences preferences;
    limit.set(7);
    fruit.set(Fruit::Apple);
    preferences->removePersistentDomain();
    EXPECT_EQ(limit.value(), 50);
    EXPECT_EQ(fruit.value(), Fruit::Pear);
}

TEST(StoredPreference, observersHearOfTheirKeyOnlyAndAtOnce) {
    const TestPreferences preferences;
    QObject context;
    qint64 heard = 0;
    limit.observe(&context, [&] { heard = limit.value(); });
    enabled.set(false);
    EXPECT_EQ(heard, 0);
    limit.set(9);
    EXPECT_EQ(heard, 9);
}

TEST(StoredPreference, observingEndsWithTheContext) {
    const TestPreferences preferences;
    int calls = 0;
    {
        QObject context;
        limit.observe(&context, [&] { ++calls; });
        limit.set(1);
    }
    limit.set(2);
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace Quillstacks
