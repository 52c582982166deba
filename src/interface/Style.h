#pragma once

class QApplication;

namespace Quillstacks {

/// Gives the application its look: tool tips, menus and the palette. Call once, before the first window.
void installStyle(QApplication& application);

} // namespace Quillstacks
