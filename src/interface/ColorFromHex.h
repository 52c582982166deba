#pragma once

#include <QColor>
#include <QString>

namespace Quillstacks {

/// The opaque colour that a text of hexadecimal digits names.
///
/// | text                    | colour                              |
/// |-------------------------|-------------------------------------|
/// | "#4D96FF", "4d96ff"     | that red, green and blue, of 255    |
/// | "#FA0", "fa0"           | each digit of 15                    |
/// | any other length        | black                               |
/// | not a hexadecimal number| black                               |
///
/// What is no letter or digit (of any script) is trimmed from both ends first.
[[nodiscard]] QColor colorFromHex(const QString& text);

} // namespace Quillstacks
