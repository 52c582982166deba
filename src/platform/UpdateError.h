#pragma once

#include "foundation/LocalizedError.h"

#include <QString>

namespace Quillstacks {

/// Why there is no update to be had: the updater does not start, a check fails, or a download is thrown away.
class UpdateError final : public LocalizedError {
public:
    enum class Case {
        noOrigin,         ///< the build names no place that updates come from
        noKey,            ///< nor what they are signed with
        packaged,         ///< somebody else keeps the installation up to date; `detail` says who
        notSecure,        ///< an address that is not HTTPS
        notReached,       ///< no connection, or one that ended too early; `detail` is what the network said
        insecureRedirect, ///< the server leads away from HTTPS, or in circles
        badStatus,        ///< the server says no; `detail` is the status
        timedOut,
        tooLarge,
        unreadableFeed, ///< `detail` says what is wrong with it
        wrongLength,    ///< the file is not as long as announced
        wrongSignature, ///< the file is not what was signed
        notWritten,     ///< `detail` is a sentence of the file system's
    };

    explicit UpdateError(Case what, QString detail = {});

    [[nodiscard]] Case which() const { return kind; }
    [[nodiscard]] QString errorDescription() const override;
    [[nodiscard]] QString debugDescription() const override;

private:
    Case kind;
    QString detail;
};

} // namespace Quillstacks
