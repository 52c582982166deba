#include "foundation/Preferences.h"

#include "hotkey/HotkeyPreferences.h"
#include "interface/AppearanceMode.h"
#include "library/versions/VersionPreferences.h"
#include "support/TestPreferences.h"
#include "upkeep/DataMigrationManager.h"
#include "upkeep/PreferencesMigrationManager.h"
#include "variables/VariablePreferences.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

TEST(PreferencesDomain, withoutItEachPreferenceHasItsDefaultAndNoValueIsRemembered) {
    TestPreferences preferences;
    const QStringList markers = {DataMigrationManager::shared().migrationCompletedKey,
                                 PreferencesMigrationManager::shared().migrationCompletedKey};
    globalHotkeyKeyCodePreference().set(40);
    globalHotkeyModifiersPreference().set(0x1E0000);
    appearanceModePreference().set(AppearanceMode::light);
    versionHistoryLimitPreference().set(7);
    enableVariableSubstitutionPreference().set(false);
    rememberValue(QStringLiteral("city"), QStringLiteral("Bern"));
    for (const QString& marker : markers)
        preferences->set(marker, true);
    ASSERT_EQ(versionHistoryLimitPreference().value(), 7);
    ASSERT_EQ(rememberedValue(QStringLiteral("city")), QStringLiteral("Bern"));

    preferences->removePersistentDomain();

    EXPECT_EQ(globalHotkeyKeyCodePreference().value(), 49);
    EXPECT_EQ(globalHotkeyModifiersPreference().value(), 1179648);
    EXPECT_EQ(appearanceModePreference().value(), AppearanceMode::dark);
    EXPECT_EQ(versionHistoryLimitPreference().value(), 50);
    EXPECT_TRUE(enableVariableSubstitutionPreference().value());
    EXPECT_EQ(rememberedValue(QStringLiteral("city")), QString());
    for (const QString& marker : markers)
        EXPECT_FALSE(preferences->contains(marker)) << qPrintable(marker);
    EXPECT_EQ(preferences.fileContents().simplified().replace(' ', ""), "{}") << "on disk too";
}

} // namespace
} // namespace Quillstacks
