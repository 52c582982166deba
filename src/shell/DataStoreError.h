#pragma once

#include "foundation/LocalizedError.h"

namespace Quillstacks {

/// What can stop the store before its file is even looked for.
class DataStoreError final : public LocalizedError {
public:
    enum class Case { cannotAccessApplicationSupport };
    explicit DataStoreError(Case which) : error(which) {}

    [[nodiscard]] Case errorCase() const { return error; }
    [[nodiscard]] QString errorDescription() const override;
    [[nodiscard]] QString debugDescription() const override;

private:
    Case error;
};

} // namespace Quillstacks
