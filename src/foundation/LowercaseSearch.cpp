#include "foundation/LowercaseSearch.h"

#include "foundation/Text.h"

namespace Quillstacks {

LowercaseSearch::LowercaseSearch(QStringView typed) : term(Text::lowercased(typed)) {}

bool LowercaseSearch::isIn(QStringView text) const {
    return Text::lowercased(text).contains(term);
}

} // namespace Quillstacks
