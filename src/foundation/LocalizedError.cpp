#include "foundation/LocalizedError.h"

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <typeinfo>

namespace Quillstacks {
namespace {

QString typeName(const std::exception& error) {
    const char* mangled = typeid(error).name();
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> readable(abi::__cxa_demangle(mangled, nullptr, nullptr, &status),
                                                               std::free);
    return QString::fromUtf8(status == 0 ? readable.get() : mangled);
}

} // namespace

const char* LocalizedError::what() const noexcept {
    try {
        if (utf8.empty())
            utf8 = errorDescription().toStdString();
        return utf8.c_str();
    } catch (...) { // out of memory while telling of a failure
        return "";
    }
}

QString localizedDescription(const std::exception& error) {
    if (const auto* localized = dynamic_cast<const LocalizedError*>(&error))
        return localized->errorDescription();
    return QString::fromUtf8(error.what());
}

QString fullDescription(const std::exception& error) {
    if (const auto* localized = dynamic_cast<const LocalizedError*>(&error))
        return localized->debugDescription();
    return typeName(error) + QStringLiteral(": ") + QString::fromUtf8(error.what());
}

} // namespace Quillstacks
