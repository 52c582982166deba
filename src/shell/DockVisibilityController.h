#pragma once

#include "platform/Application.h"

namespace Quillstacks {

/// Decides whether the program shows among the desktop's running programs: it does while a main or welcome window is
/// open. Main thread only.
class DockVisibilityController final {
public:
    static DockVisibilityController& shared();
    DockVisibilityController() = default;
    Q_DISABLE_COPY_MOVE(DockVisibilityController)

    void setPolicy(ActivationPolicy policy);
    [[nodiscard]] ActivationPolicy currentPolicy() const { return policyInForce; }

private:
    ActivationPolicy policyInForce = ActivationPolicy::regular;
};

} // namespace Quillstacks
