#pragma once

#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"

#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace Quillstacks {

/// A store in a folder of its own that can be closed and opened again.
class TestLibrary {
public:
    TestLibrary() { open(); }

    void open() { container.emplace(Schema::current(), ModelConfiguration{path()}); }
    void close() { container.reset(); }
    void reopen() {
        close();
        open();
    }
    void saveAndReopen() {
        context().save();
        reopen();
    }

    [[nodiscard]] ModelContext& context() { return container->mainContext(); }
    [[nodiscard]] QString path() const { return folder.filePath(QStringLiteral("Quillstacks.store")); }
    [[nodiscard]] QString folderPath() const { return folder.path(); }

    Prompt* addPrompt(const QString& title, const QString& body = {}, const QList<Tag*>& tags = {}) {
        return context().insert(std::make_unique<Prompt>(title, body, tags));
    }
    Tag* addTag(const QString& name, const QString& color = QStringLiteral("7C5CFC")) {
        return context().insert(std::make_unique<Tag>(name, color));
    }
    PromptVersion* addVersion(Prompt* prompt, const QString& title, const QList<Tag*>& tags = {}) {
        return prompt->appendVersion(std::make_unique<PromptVersion>(prompt->id(), title, QString(), tags));
    }
    [[nodiscard]] Prompt* prompt(const QString& title) { return context().promptsWithTitle(title).value(0); }
    [[nodiscard]] Tag* tag(const QString& name) { return context().tagsWithName(name).value(0); }

private:
    QTemporaryDir folder;
    std::optional<ModelContainer> container;
};

template <typename Records>
[[nodiscard]] QStringList titlesOf(const Records& records) {
    QStringList titles;
    for (const auto* record : records)
        titles.append(record->title());
    return titles;
}

template <typename Records>
[[nodiscard]] QStringList namesOf(const Records& records) {
    QStringList names;
    for (const auto* record : records)
        names.append(record->name());
    return names;
}

/// The letters of a text as a list, to compare with the two above.
[[nodiscard]] inline QStringList letters(const char* text) {
    QStringList result;
    for (const char* letter = text; *letter; ++letter)
        result.append(QString(QLatin1Char(*letter)));
    return result;
}

} // namespace Quillstacks
