#pragma once

#include <QString>

#include <exception>
#include <string>

namespace Quillstacks {

/// A failure that a person can read. Each subsystem has one enumeration of failures that derives from it.
class LocalizedError : public std::exception {
public:
    /// One sentence for the user: what failed and, where there is one, the path it failed on.
    [[nodiscard]] virtual QString errorDescription() const = 0;
    /// The failure as a developer wants it: type, case and values ("DataStoreError.cannotAccessApplicationSupport").
    [[nodiscard]] virtual QString debugDescription() const = 0;
    /// errorDescription() as UTF-8; the pointer lives as long as the error.
    [[nodiscard]] const char* what() const noexcept override;

private:
    mutable std::string utf8;
};

/// The sentence for the user of any exception: errorDescription() where there is one, what() otherwise.
[[nodiscard]] QString localizedDescription(const std::exception& error);
/// The same for technical details: debugDescription() where there is one, type name and what() otherwise.
[[nodiscard]] QString fullDescription(const std::exception& error);

} // namespace Quillstacks
