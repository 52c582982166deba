#pragma once

#include <QtGlobal>

#include <functional>

class QObject;

namespace Quillstacks {

/// Whether the program shows among the running ones (taskbar, pager) with its windows, or lives in the status area
/// only.
enum class ActivationPolicy { regular, accessory };

/// The process as the desktop sees it.
namespace Application {

/// Gives the program's open windows their entries in taskbar and pager, or takes them. Panels never have any. False
/// when the desktop could not be told; nothing changed then.
[[nodiscard]] bool setActivationPolicy(ActivationPolicy policy);
/// Calls back on the main loop when the process is asked to end from outside (SIGTERM, SIGINT, SIGHUP), until
/// `context` is destroyed. One observer at a time.
void observeTermination(QObject* context, std::function<void()> asked);

} // namespace Application
} // namespace Quillstacks
