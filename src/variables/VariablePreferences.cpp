#include "VariablePreferences.h"

namespace Quillstacks {

namespace {

QString keyOfVariable(const QString& name) {
    return QStringLiteral("var_") + name;
}

} // namespace

const StoredPreference<bool>& enableVariableSubstitutionPreference() {
    static const StoredPreference<bool> preference(QStringLiteral("enableVariableSubstitution"), true);
    return preference;
}

QString rememberedValue(const QString& name) {
    return Preferences::standard().text(keyOfVariable(name)).value_or(QString());
}

QHash<QString, QString> rememberedValues(const QStringList& names) {
    QHash<QString, QString> values;
    for (const QString& name : names)
        values.insert(name, rememberedValue(name));
    return values;
}

void rememberValue(const QString& name, const QString& value) {
    Preferences::standard().set(keyOfVariable(name), value);
}

} // namespace Quillstacks
