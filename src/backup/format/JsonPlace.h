#pragma once

#include <QString>

#include <string_view>

namespace Quillstacks {

/// Where in a document something stands. A chain on the stack, made into a text only when there is something to say.
struct JsonPlace {
    const JsonPlace* parent = nullptr; ///< nullptr: right in the document's object
    std::string_view key;              ///< empty for an element of a list
    qsizetype index = 0;               ///< of an element

    /// "prompts[3].versions[0].createdAt"
    [[nodiscard]] QString text() const {
        const QString before = parent ? parent->text() : QString();
        if (key.empty())
            return before + QStringLiteral("[%1]").arg(index);
        const QString name = QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
        return before.isEmpty() ? name : before + QLatin1Char('.') + name;
    }
};

} // namespace Quillstacks
