#pragma once

namespace Quillstacks {

/// Ends the process through the event loop, with 0. Nothing is saved on the way: every change was saved when it was
/// made.
void terminate();

} // namespace Quillstacks
