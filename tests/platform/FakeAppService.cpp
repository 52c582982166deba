#include "platform/AppService.h"
#include "platform/FakeDesktop.h"
#include "platform/FileError.h"

#include <cerrno>

namespace Quillstacks {

namespace {

void change(const QString& call, bool isOn) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(call);
    if (desktop.loginItemFails)
        throw FileError(QStringLiteral("/autostart"), EACCES, QStringLiteral("write the file"));
    desktop.loginItem = isOn;
}

} // namespace

AppService::Status AppService::status() const {
    return FakeDesktop::shared().loginItem ? Status::enabled : Status::notRegistered;
}

void AppService::registerItem() const {
    change(QStringLiteral("loginItem register"), true);
}

void AppService::unregister() const {
    change(QStringLiteral("loginItem unregister"), false);
}

} // namespace Quillstacks
