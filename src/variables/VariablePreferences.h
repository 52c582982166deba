#pragma once

#include "foundation/StoredPreference.h"

#include <QHash>
#include <QStringList>

namespace Quillstacks {

/// "enableVariableSubstitution", true by default: variables are filled in before a prompt is copied.
[[nodiscard]] const StoredPreference<bool>& enableVariableSubstitutionPreference();

/// The value that was last entered for a variable, in any prompt; empty when there is none. The preference's key is
/// "var_" and the name as it stands, so `Name` and `name` are two.
[[nodiscard]] QString rememberedValue(const QString& name);
/// The same for each of these names.
[[nodiscard]] QHash<QString, QString> rememberedValues(const QStringList& names);
/// Keeps a value as it was typed, blanks included.
void rememberValue(const QString& name, const QString& value);

} // namespace Quillstacks
