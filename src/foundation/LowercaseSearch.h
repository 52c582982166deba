#pragma once

#include <QString>
#include <QStringView>

namespace Quillstacks {

/// Answers whether the lower-cased term stands in the lower-cased text, unit by unit, exactly as
/// `Text::lowercased(text).contains(Text::lowercased(term))` would, but without making the lower-cased text.
class LowercaseSearch final {
public:
    /// Takes the term as typed and lower-cases it once.
    explicit LowercaseSearch(QStringView term);

    /// An empty term stands in every text.
    [[nodiscard]] bool isIn(QStringView text) const;

private:
    QString term;
    bool ascii = false;
};

} // namespace Quillstacks
