#pragma once

#include "foundation/LocalizedError.h"

namespace Quillstacks {

/// JSON that can't be read, or lacks what was asked of it.
class JsonError final : public LocalizedError {
public:
    explicit JsonError(QString description) : text(std::move(description)) {}
    /// Names the key that is missing or of another type, where it is one.
    [[nodiscard]] QString errorDescription() const override { return text; }
    [[nodiscard]] QString debugDescription() const override { return QStringLiteral("JsonError: ") + text; }

private:
    QString text;
};

} // namespace Quillstacks
