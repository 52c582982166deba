#pragma once

#include <QString>

namespace Quillstacks {

/// A text with signs beyond ASCII, as it stands in a test's source.
inline QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

} // namespace Quillstacks
