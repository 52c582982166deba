#include "foundation/Uuid.h"

#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

TEST(Uuid, textIsUpperCaseWithoutBraces) {
    const Uuid uuid(QStringLiteral("{0a1b2c3d-4e5f-6789-abcd-ef0123456789}"));
    EXPECT_EQ(uuidText(uuid), QStringLiteral("0A1B2C3D-4E5F-6789-ABCD-EF0123456789"));
    EXPECT_EQ(uuidText(Uuid()), QStringLiteral("00000000-0000-0000-0000-000000000000"));
}

TEST(Uuid, randomOnesAreOfVersion4AndDiffer) {
    static const QRegularExpression version4(
        QStringLiteral("^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"));
    QSet<QString> seen;
    for (int i = 0; i < 1000; ++i) {
        const QString text = uuidText(randomUuid());
        ASSERT_TRUE(version4.match(text).hasMatch()) << qPrintable(text);
        seen.insert(text);
    }
    EXPECT_EQ(seen.size(), 1000);
}

} // namespace
} // namespace Quillstacks
