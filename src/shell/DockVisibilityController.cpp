#include "shell/DockVisibilityController.h"

#include "foundation/Log.h"

namespace Quillstacks {

DockVisibilityController& DockVisibilityController::shared() {
    static DockVisibilityController controller;
    return controller;
}

void DockVisibilityController::setPolicy(ActivationPolicy policy) {
    if (policy == policyInForce)
        return;
    if (!Application::setActivationPolicy(policy)) {
        // The policy in force stays noted, so that the next request tries again.
        Log::ui.error(QStringLiteral("Failed to change dock icon visibility"));
        return;
    }
    policyInForce = policy;
    Log::ui.debug(QStringLiteral("Dock icon visibility changed: ") +
                  (policy == ActivationPolicy::regular ? QStringLiteral("visible") : QStringLiteral("hidden")));
}

} // namespace Quillstacks
