#pragma once

namespace Quillstacks {

/// Ends the process through the event loop, with 0. Nothing is saved on the way: every change was saved when it was
/// made.
void terminate();
/// The user's own "Quit". While an editor holds typing that is saved nowhere, its window comes forward instead: what
/// was written is to be kept or dropped there first.
void quit();

} // namespace Quillstacks
