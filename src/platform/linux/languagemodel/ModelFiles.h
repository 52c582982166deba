#pragma once

#include "platform/LanguageModelError.h"

#include <QDateTime>
#include <QString>

namespace Quillstacks {

/// What a run of the model is made of. Equal while none of it was replaced on disk.
struct ModelFiles {
    QString runtime; ///< path of llama-server
    QString model;   ///< path of the model file
    QDateTime modelChanged;

    friend bool operator==(const ModelFiles&, const ModelFiles&) = default;

    /// Where model files belong: the program's data folder.
    [[nodiscard]] static QString folder();
    /// The runtime on the search path, and the first model file by name. Throws LanguageModelError.
    [[nodiscard]] static ModelFiles find();
    /// A failure of a run of these.
    [[nodiscard]] LanguageModelError error(LanguageModelError::Case what, const QString& detail = {}) const;
};

} // namespace Quillstacks
