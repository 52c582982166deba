#include "library/restore/FactoryRestore.h"

#include "foundation/LocalizedError.h"
#include "foundation/MainQueue.h"
#include "foundation/Preferences.h"
#include "hotkey/HotkeyManager.h"
#include "library/model/ModelContext.h"

#include <iterator>

namespace Quillstacks::FactoryRestore {
namespace {

void removePrompts(ModelContext& context) {
    for (Prompt* prompt : context.prompts())
        context.remove(prompt);
}

void removeTags(ModelContext& context) {
    for (Tag* tag : context.tags())
        context.remove(tag);
}

void removePreferences(ModelContext&) {
    Preferences::standard().removePersistentDomain();
    Preferences::standard().synchronize();
}

void renewHotkey(ModelContext&) {
    HotkeyManager::shared().unregister();
    HotkeyManager::shared().registerIfPermitted();
}

using Step = void (*)(ModelContext&);
constexpr Step steps[] = {
    // First, as the prompts would take along only those that stand in their lists.
    [](ModelContext& context) { context.removeAllVersions(); },
    &removePrompts,
    &removeTags,
    [](ModelContext& context) { context.save(); },
    &removePreferences,
    &renewHotkey,
};

void runFrom(std::size_t number, ModelContext& context, const Done& done) {
    if (number == std::size(steps)) {
        done({QStringLiteral("Quillstacks has been restored to factory defaults."), false});
        return;
    }
    MainQueue::async(&context, [number, &context, done] {
        try {
            steps[number](context);
        } catch (const std::exception& error) {
            done({QStringLiteral("Could not complete restore: ") + localizedDescription(error), true});
            return;
        }
        runFrom(number + 1, context, done);
    });
}

} // namespace

void run(ModelContext& context, Done done) {
    runFrom(0, context, done);
}

} // namespace Quillstacks::FactoryRestore
