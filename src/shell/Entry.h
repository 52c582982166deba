#pragma once

class QApplication;

namespace Quillstacks {

/// Names the process for the desktop. Before the QApplication is made.
void setUpProcess();
/// Runs the program until it is told to end; returns its exit status. At once when another process has it already.
[[nodiscard]] int runProgram(QApplication& application);

} // namespace Quillstacks
