#include "platform/SingleInstance.h"

#include "platform/FakeDesktop.h"

namespace Quillstacks {

SingleInstance::SingleInstance(QObject* parent) : QObject(parent) {
    FakeDesktop::shared().instances.push_back(this);
}

SingleInstance::~SingleInstance() {
    std::erase(FakeDesktop::shared().instances, this);
}

SingleInstance::Outcome SingleInstance::start() {
    const FakeDesktop& desktop = FakeDesktop::shared();
    bus = desktop.hasSessionBus;
    return bus && desktop.isAlreadyRunning ? Outcome::handedOver : Outcome::first;
}

} // namespace Quillstacks
