#pragma once

#include <QString>

namespace Quillstacks {

/// Where the library lies. Paths are absolute.
namespace StoreLocation {

/// The program's folder below the first application support directory; empty when there is no such directory.
[[nodiscard]] QString folder();
/// The store's file in that folder; empty when there is none.
[[nodiscard]] QString store();

} // namespace StoreLocation
} // namespace Quillstacks
