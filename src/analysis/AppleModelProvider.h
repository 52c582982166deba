#pragma once

#include "analysis/ModelProvider.h"

namespace Quillstacks {

/// Asks the model that this computer runs itself. Each call is a session of its own, with nothing asked of the model
/// but the answer; failures pass unchanged.
class AppleModelProvider final : public ModelProvider {
public:
    [[nodiscard]] QCoro::Task<QString> generate(QString prompt, QString systemPrompt) override;
};

} // namespace Quillstacks
