#include "library/versions/VersionHistorySettingsView.h"
#include "interface/Label.h"
#include "interface/Stepper.h"
#include "library/versions/VersionPreferences.h"
#include "LibraryFixture.h"

using namespace Quillstacks;

namespace {

class VersionHistorySettings : public LibraryFixture {
protected:
    [[nodiscard]] QStringList texts() const {
        QStringList result;
        for (const QLabel* label : view.findChildren<QLabel*>())
            result += label->text();
        return result;
    }
    [[nodiscard]] Stepper& stepper() const { return *view.findChild<Stepper*>(); }
    void press(Qt::Key key) { QTest::keyClick(&stepper(), key); }
    static qint64 limit() { return versionHistoryLimitPreference().value(); }

    VersionHistorySettingsView view;
};

} // namespace

TEST_F(VersionHistorySettings, showsItsHeadingItsLineAndTheLimit) {
    EXPECT_EQ(texts(), (QStringList{QStringLiteral("Version History"),
                                    QStringLiteral("Maximum number of versions to keep per prompt."),
                                    QStringLiteral("Keep last 50 versions")}));
    EXPECT_EQ(stepper().accessibleName(), QStringLiteral("Keep last 50 versions"));
    EXPECT_EQ(stepper().value(), 50);
}

TEST_F(VersionHistorySettings, itsElementsStandTwelveApart) {
    view.resize(400, view.sizeHint().height());
    view.show();
    const auto labels = view.findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 3);
    EXPECT_EQ(labels[1]->geometry().top() - labels[0]->geometry().bottom() - 1, 12);
    const int row = std::min(labels[2]->geometry().top(), stepper().geometry().top());
    EXPECT_EQ(row - labels[1]->geometry().bottom() - 1, 12);
}

TEST_F(VersionHistorySettings, movesInStepsOfTenAndIsWrittenAtOnce) {
    press(Qt::Key_Up);
    EXPECT_EQ(limit(), 60);
    EXPECT_EQ(texts().last(), QStringLiteral("Keep last 60 versions"));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(limit(), 40);
    EXPECT_EQ(stepper().accessibleName(), QStringLiteral("Keep last 40 versions"));
}

TEST_F(VersionHistorySettings, runsFromTenToTwoHundredInclusive) {
    for (int i = 0; i < 30; ++i)
        press(Qt::Key_Up);
    EXPECT_EQ(limit(), 200);
    for (int i = 0; i < 30; ++i)
        press(Qt::Key_Down);
    EXPECT_EQ(limit(), 10);
}

TEST_F(VersionHistorySettings, followsThePreference) {
    versionHistoryLimitPreference().set(120);
    EXPECT_EQ(texts().last(), QStringLiteral("Keep last 120 versions"));
    EXPECT_EQ(stepper().value(), 120);
}

TEST_F(VersionHistorySettings, anAlteredPreferenceIsShownAsItStandsUntilTheNextStep) {
    versionHistoryLimitPreference().set(3);
    EXPECT_EQ(texts().last(), QStringLiteral("Keep last 3 versions"));
    EXPECT_EQ(limit(), 3) << "showing it changes nothing";
    press(Qt::Key_Up);
    EXPECT_EQ(limit(), 13);
}
