#include "foundation/Preferences.h"
#include "support/LogCapture.h"
#include "support/TestPreferences.h"

#include <gtest/gtest.h>

#include <limits>

namespace Quillstacks {
namespace {

const QString key = QStringLiteral("key");

/// Values as a file holds them.
class PreferencesOf final {
public:
    explicit PreferencesOf(const QByteArray& json) {
        QFile file(folder.filePath(QStringLiteral("p.json")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(json);
        file.close();
        preferences.emplace(file.fileName());
    }
    Preferences* operator->() { return &*preferences; }

private:
    QTemporaryDir folder;
    std::optional<Preferences> preferences;
};

TEST(Preferences, anEmptyDomainHasNoKeys) {
    TestPreferences preferences;
    EXPECT_FALSE(preferences->contains(key));
    EXPECT_EQ(preferences->boolean(key), std::nullopt);
    EXPECT_EQ(preferences->integer(key), std::nullopt);
    EXPECT_EQ(preferences->text(key), std::nullopt);
}

TEST(Preferences, aValueReadsOnlyAsItsOwnType) {
    TestPreferences preferences;
    preferences->set(key, true);
    EXPECT_EQ(preferences->boolean(key), true);
    EXPECT_EQ(preferences->integer(key), std::nullopt);
    EXPECT_EQ(preferences->text(key), std::nullopt);
    preferences->set(key, qint64(1));
    EXPECT_EQ(preferences->boolean(key), std::nullopt);
    EXPECT_EQ(preferences->integer(key), 1);
    EXPECT_EQ(preferences->text(key), std::nullopt);
    preferences->set(key, QStringLiteral("1"));
    EXPECT_EQ(preferences->boolean(key), std::nullopt);
    EXPECT_EQ(preferences->integer(key), std::nullopt);
    EXPECT_EQ(preferences->text(key), QStringLiteral("1"));
}

TEST(Preferences, integersAreExactTo64Bits) {
    for (const qint64 number : {std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max(),
                                (qint64(1) << 53) + 1, qint64(-1), qint64(0), qint64(1179648)}) {
        TestPreferences preferences;
        preferences->set(key, number);
        EXPECT_EQ(preferences->integer(key), number);
        EXPECT_EQ(Preferences(preferences->filePath()).integer(key), number);
    }
}

TEST(Preferences, aWholeJsonNumberReadsAsAnInteger) {
    PreferencesOf preferences(R"({"a": 7.0, "b": -3e2, "c": 0.0, "d": -0, "e": 9007199254740993})");
    EXPECT_EQ(preferences->integer(QStringLiteral("a")), 7);
    EXPECT_EQ(preferences->integer(QStringLiteral("b")), -300);
    EXPECT_EQ(preferences->integer(QStringLiteral("c")), 0);
    EXPECT_EQ(preferences->integer(QStringLiteral("d")), 0);
    EXPECT_EQ(preferences->integer(QStringLiteral("e")), 9007199254740993);
}

TEST(Preferences, aFractionOrMoreThan64BitsIsNoInteger) {
    PreferencesOf preferences(R"({"a": 7.5, "b": 9223372036854775808, "c": 1e300, "d": 1e-9, "e": -1e19})");
    for (const char* name : {"a", "b", "c", "d", "e"})
        EXPECT_EQ(preferences->integer(QLatin1String(name)), std::nullopt) << name;
}

TEST(Preferences, nullListsAndObjectsAreOfAnotherTypeButPresent) {
    PreferencesOf preferences(R"({"a": null, "b": [1], "c": {"d": true}})");
    for (const char* name : {"a", "b", "c"}) {
        const QString present = QLatin1String(name);
        EXPECT_TRUE(preferences->contains(present));
        EXPECT_EQ(preferences->boolean(present), std::nullopt);
        EXPECT_EQ(preferences->integer(present), std::nullopt);
        EXPECT_EQ(preferences->text(present), std::nullopt);
    }
}

TEST(Preferences, observersAreToldAtOnceAndSeeTheNewValue) {
    TestPreferences preferences;
    QStringList heard;
    QObject::connect(&*preferences, &Preferences::changed, [&](const QString& changed) {
        heard += changed + QLatin1Char('=') + preferences->text(changed).value_or(QStringLiteral("-"));
    });
    preferences->set(key, QStringLiteral("a"));
    preferences->set(key, QStringLiteral("b"));
    preferences->remove(key);
    EXPECT_EQ(heard, QStringList({QStringLiteral("key=a"), QStringLiteral("key=b"), QStringLiteral("key=-")}));
}

TEST(Preferences, settingTheSameValueTellsNobody) {
    TestPreferences preferences;
    preferences->set(key, qint64(1));
    int calls = 0;
    QObject::connect(&*preferences, &Preferences::changed, [&] { ++calls; });
    preferences->set(key, qint64(1));
    preferences->remove(QStringLiteral("absent"));
    EXPECT_EQ(calls, 0);
    preferences->set(key, true);
    EXPECT_EQ(calls, 1) << "another type is another value";
}

TEST(Preferences, anObserverMayChangeAnotherKey) {
    TestPreferences preferences;
    QObject::connect(&*preferences, &Preferences::changed, [&](const QString& changed) {
        if (changed == key)
            preferences->set(QStringLiteral("other"), true);
    });
    preferences->set(key, true);
    EXPECT_EQ(Preferences(preferences->filePath()).boolean(QStringLiteral("other")), true);
}

TEST(Preferences, removingTheDomainForgetsEveryKeyAlsoUnknownOnes) {
    PreferencesOf preferences(R"({"var_a": "Ada", "foreign": [1, 2], "DataStoreMigrationCompleted_v3": true})");
    QStringList heard;
    QObject::connect(&*preferences.operator->(), &Preferences::changed,
                     [&](const QString& changed) { heard += changed; });
    preferences->removePersistentDomain();
    heard.sort();
    EXPECT_EQ(heard, QStringList({QStringLiteral("DataStoreMigrationCompleted_v3"), QStringLiteral("foreign"),
                                  QStringLiteral("var_a")}));
    const Preferences reopened(preferences->filePath());
    EXPECT_FALSE(reopened.contains(QStringLiteral("var_a")));
    EXPECT_FALSE(reopened.contains(QStringLiteral("foreign")));
}

TEST(Preferences, variablesOfTwoNamesHaveTheirOwnValues) {
    TestPreferences preferences;
    preferences->set(QStringLiteral("var_a"), QStringLiteral("1"));
    preferences->set(QStringLiteral("var_b"), QStringLiteral("2"));
    EXPECT_EQ(preferences->text(QStringLiteral("var_a")), QStringLiteral("1"));
    EXPECT_EQ(preferences->text(QStringLiteral("var_b")), QStringLiteral("2"));
}

TEST(Preferences, theStandardDomainCanBeReplaced) {
    Preferences* const before = &Preferences::standard();
    EXPECT_TRUE(before->filePath().endsWith(QStringLiteral("/app.Quillstacks/preferences.json")));
    {
        TestPreferences preferences;
        EXPECT_EQ(&Preferences::standard(), &*preferences);
    }
    EXPECT_EQ(&Preferences::standard(), before);
}

} // namespace
} // namespace Quillstacks
