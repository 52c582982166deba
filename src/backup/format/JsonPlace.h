#pragma once

#include <QString>

#include <algorithm>
#include <string_view>

namespace Quillstacks {

/// Where in a document something stands. A chain on the stack, made into a text only when there is something to say.
struct JsonPlace {
    const JsonPlace* parent = nullptr; ///< nullptr: right in the document's object
    std::string_view key;              ///< of a field
    qsizetype index = -1;              ///< of an element of a list; none for a field

    /// "prompts[3].versions[0].createdAt"
    [[nodiscard]] QString text() const {
        const QString before = parent ? parent->text() : QString();
        if (index >= 0)
            return before + QStringLiteral("[%1]").arg(index);
        const QString name =
            isPlain() ? QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size())) : QStringLiteral("…");
        return before.isEmpty() ? name : before + QLatin1Char('.') + name;
    }

    /// A key of somebody else's may be as long as the file, and hold lines.
    [[nodiscard]] bool isPlain() const {
        constexpr std::size_t longest = 40;
        return !key.empty() && key.size() <= longest &&
               std::ranges::all_of(key, [](char character) { return character >= ' ' && character <= '~'; });
    }
};

} // namespace Quillstacks
