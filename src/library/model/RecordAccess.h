#pragma once

#include "library/model/Prompt.h"
#include "library/model/PromptVersion.h"
#include "library/model/Tag.h"

namespace Quillstacks {

/// The one door through which the store and the live queries reach what records keep to themselves.
class RecordAccess final {
public:
    using Kind = Record::Kind;

    static std::unique_ptr<Prompt> blankPrompt() { return std::unique_ptr<Prompt>(new Prompt); }
    static std::unique_ptr<Tag> blankTag() { return std::unique_ptr<Tag>(new Tag); }
    static std::unique_ptr<PromptVersion> blankVersion() { return std::unique_ptr<PromptVersion>(new PromptVersion); }

    static Kind kind(const Record& record) { return record.kind; }
    static qint64 row(const Record& record) { return record.rowId; }
    static void setRow(Record& record, qint64 row) { record.rowId = row; }
    static bool fieldsDirty(const Record& record) { return record.fieldsDirty; }
    static bool isStored(const Record& record) { return record.stored; }
    static void setStored(Record& record) { record.stored = true; }
    static void setIdentity(Record& record, const Uuid& id, Date created) {
        record.identifier = id;
        record.created = created;
    }

    static void fill(Prompt& prompt, QString title, QString body, Date updated, std::optional<Date> pinnedAt,
                     bool isPinned) {
        prompt.titleText = std::move(title);
        prompt.bodyText = std::move(body);
        prompt.updated = updated;
        prompt.pinned = isPinned;
        prompt.pinDate = pinnedAt;
        prompt.versionsLoaded = false;
    }
    static void fill(Tag& tag, QString name, QString color, Date updated) {
        tag.nameText = std::move(name);
        tag.colorText = std::move(color);
        tag.updated = updated;
    }
    static void fill(PromptVersion& version, const Uuid& promptId, QString title, QString body, QStringList names,
                     QStringList colors, qint64 position) {
        version.prompt = promptId;
        version.titleText = std::move(title);
        version.bodyText = std::move(body);
        version.names = std::move(names);
        version.colors = std::move(colors);
        version.position = position;
    }

    static QList<Tag*>& tags(Prompt& prompt) { return prompt.tagList; }
    static QList<Prompt*>& prompts(Tag& tag) { return tag.promptList; }
    static bool linksDirty(const Prompt& prompt) { return prompt.linksDirty; }
    static const Prompt* owner(const PromptVersion& version) { return version.owner; }
    static qint64 position(const PromptVersion& version) { return version.position; }
};

} // namespace Quillstacks
