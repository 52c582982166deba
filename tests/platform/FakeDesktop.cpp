#include "platform/FakeDesktop.h"

namespace Quillstacks {

FakeDesktop& FakeDesktop::shared() {
    static FakeDesktop desktop;
    return desktop;
}

FakeDesktop& FakeDesktop::fresh() {
    FakeDesktop& desktop = shared();
    // What is alive stays known, and so do the numbers that were given out; all else starts anew.
    FakeDesktop next;
    next.statusItems = desktop.statusItems;
    next.statusContents = desktop.statusContents;
    next.instances = desktop.instances;
    next.compositedObservers = desktop.compositedObservers;
    next.lastRef = desktop.lastRef;
    desktop = next;
    desktop.setColorScheme(ColorScheme::light);
    desktop.setAccentColor(std::nullopt);
    desktop.setReducedMotion(false);
    return desktop;
}

QStringList FakeDesktop::callsOf(const QString& beginning) const {
    QStringList found;
    std::ranges::copy_if(calls, std::back_inserter(found),
                         [&](const QString& call) { return call.startsWith(beginning); });
    return found;
}

} // namespace Quillstacks
