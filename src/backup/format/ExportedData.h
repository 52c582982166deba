#pragma once

#include "foundation/Date.h"
#include "foundation/Uuid.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace Quillstacks {

class Prompt;
class PromptVersion;
class Tag;

// What a backup file holds, as plain values without any tie to the store. A pin is not among it. Each field has the
// name of its key in the file, and the fields stand in the order in which they are written.

struct ExportedTag {
    Uuid id; ///< in the library that was exported; what tagIds refer to
    QString name;
    QString colorHex;
    Date createdAt{};
    Date updatedAt{};

    ExportedTag() = default;
    explicit ExportedTag(const Tag& tag);
    bool operator==(const ExportedTag&) const = default;
};

struct ExportedPromptVersion {
    Uuid id;
    Uuid promptId;
    QString title;
    QString body;
    QStringList tagNames;
    QStringList tagColors; ///< parallel to tagNames in what this program writes
    Date createdAt{};

    ExportedPromptVersion() = default;
    explicit ExportedPromptVersion(const PromptVersion& version);
    bool operator==(const ExportedPromptVersion&) const = default;
};

struct ExportedPrompt {
    Uuid id;
    QString title;
    QString body;
    Date createdAt{};
    Date updatedAt{};
    QList<Uuid> tagIds; ///< may name what stands nowhere in the tags
    QList<ExportedPromptVersion> versions;

    ExportedPrompt() = default;
    /// Throws StoreError when the versions can't be read.
    explicit ExportedPrompt(const Prompt& prompt);
    bool operator==(const ExportedPrompt&) const = default;
};

struct ExportedData {
    QString version; ///< of the format; "1.0" on writing, anything on reading
    Date exportedAt{};
    QList<ExportedTag> tags;
    QList<ExportedPrompt> prompts;

    ExportedData() = default;
    /// Of the format's present version, exported now, in the order of the two lists. Throws StoreError when versions
    /// can't be read.
    ExportedData(const QList<Tag*>& tags, const QList<Prompt*>& prompts);
    bool operator==(const ExportedData&) const = default;
};

} // namespace Quillstacks
