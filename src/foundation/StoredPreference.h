#pragma once

#include "foundation/Preferences.h"

#include <concepts>
#include <type_traits>

namespace Quillstacks {

/// How an enumeration is stored: a text for each case. Specialise it beside the enumeration with
/// `static std::optional<E> fromRawValue(const QString&)` and `static QString rawValue(E)`.
template <typename E>
struct RawValue;

/// One setting: its key, its type and the default that it reads as when absent, of another type or unknown.
/// T is bool, qint64, QString, or an enumeration with a RawValue. Declare each once, in the room it belongs to.
template <typename T>
class StoredPreference final {
public:
    StoredPreference(QString name, T fallback) : key(std::move(name)), defaultValue(std::move(fallback)) {}

    [[nodiscard]] T value() const {
        if constexpr (std::is_enum_v<T>) {
            const auto raw = Preferences::standard().text(key);
            return raw ? RawValue<T>::fromRawValue(*raw).value_or(defaultValue) : defaultValue;
        } else if constexpr (std::same_as<T, bool>) {
            return Preferences::standard().boolean(key).value_or(defaultValue);
        } else if constexpr (std::same_as<T, qint64>) {
            return Preferences::standard().integer(key).value_or(defaultValue);
        } else {
            static_assert(std::same_as<T, QString>);
            return Preferences::standard().text(key).value_or(defaultValue);
        }
    }
    void set(const T& value) const {
        if constexpr (std::is_enum_v<T>)
            Preferences::standard().set(key, RawValue<T>::rawValue(value));
        else
            Preferences::standard().set(key, value);
    }
    /// Calls `block` after each change of this key, until `context` is destroyed.
    template <typename Block>
    void observe(QObject* context, Block block) const {
        QObject::connect(&Preferences::standard(), &Preferences::changed, context,
                         [observed = key, block](const QString& changedKey) {
                             if (changedKey == observed)
                                 block();
                         });
    }

    const QString key;
    const T defaultValue;
};

} // namespace Quillstacks
