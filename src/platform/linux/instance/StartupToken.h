#pragma once

#include <QString>

/// The tokens by which the desktop recognises what this process was started for.
namespace Quillstacks::StartupToken {

/// As they were when the process began: the toolkit takes them out of the environment.
[[nodiscard]] QString startupId();
[[nodiscard]] QString activationToken();

/// Gives a token that came with a wish of the user to the next window that asks for the focus.
void useForNextActivation(const QString& token);

} // namespace Quillstacks::StartupToken
