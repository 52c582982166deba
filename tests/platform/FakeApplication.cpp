#include "platform/Application.h"

#include "platform/FakeDesktop.h"

namespace Quillstacks {

bool Application::setActivationPolicy(ActivationPolicy policy) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(policy == ActivationPolicy::regular ? QStringLiteral("setActivationPolicy regular")
                                                     : QStringLiteral("setActivationPolicy accessory"));
    return desktop.takesActivationPolicy;
}

void Application::observeTermination(QObject* context, std::function<void()> asked) {
    FakeDesktop::shared().askToTerminate = [context = QPointer<QObject>(context), asked = std::move(asked)] {
        if (context)
            asked();
    };
}

} // namespace Quillstacks
