#include "analysis/ModelProviderType.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using Raw = RawValue<ModelProviderType>;

TEST(ModelProviderType, rawValuesAreWhatIsStoredAndRead) {
    EXPECT_EQ(Raw::rawValue(ModelProviderType::apple), QStringLiteral("Apple Intelligence"));
    EXPECT_EQ(Raw::rawValue(ModelProviderType::ollama), QStringLiteral("Ollama"));
    for (const ModelProviderType type : allModelProviderTypes)
        EXPECT_EQ(Raw::fromRawValue(Raw::rawValue(type)), type);
}

TEST(ModelProviderType, anUnknownTextIsNoType) {
    for (const char* text : {"", "apple", "ollama", "OLLAMA", "Ollama ", "Apple intelligence"})
        EXPECT_EQ(Raw::fromRawValue(QLatin1String(text)), std::nullopt) << text;
}

} // namespace
} // namespace Quillstacks
