#pragma once

namespace Quillstacks {

/// Tells the log and the application object which version this is. The one place that the version is compiled into.
void announceVersion();

} // namespace Quillstacks
