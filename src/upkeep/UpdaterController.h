#pragma once

#include "upkeep/Updater.h"
#include "upkeep/UpdateUserDriver.h"

namespace Quillstacks {

/// An updater with the usual way to talk to the user. Making it does not start the updater.
class UpdaterController final {
public:
    UpdaterController(Updater::Delegate delegate, QByteArray publicKey)
        : theUpdater(std::move(delegate), theUserDriver, std::move(publicKey)) {}
    Q_DISABLE_COPY_MOVE(UpdaterController)

    [[nodiscard]] Updater& updater() { return theUpdater; }
    [[nodiscard]] UpdateUserDriver& userDriver() { return theUserDriver; }

private:
    UpdateUserDriver theUserDriver;
    Updater theUpdater;
};

} // namespace Quillstacks
