#pragma once

#include "library/model/LiveQuery.h"

#include <QSet>
#include <QWidget>

namespace Quillstacks {

class Button;
class Sheet;
class TagSelector;

/// The tags of a prompt being edited: all tags in a row to be ticked, or, while there is none, a way to make one.
class TagSelectorView final : public QWidget {
    Q_OBJECT
public:
    /// Offers the tags of `allTags`, in its order; it must outlive the view.
    TagSelectorView(ModelContext& modelContext, TagQuery& allTags, QWidget* parent = nullptr);

    // State
    [[nodiscard]] const QSet<Tag*>& selection() const { return ticked; }
    void setSelection(const QSet<Tag*>& tags);
    [[nodiscard]] bool isPresentingTagEditor() const { return presentingTagEditor; }
    /// What the sheet edits; none, as a tag is only ever made here.
    [[nodiscard]] Tag* editingTag() const { return editedTag; }

    // Actions
    void toggle(Tag* tag);
    /// Opens the sheet for a new tag, which comes back ticked.
    void createTag();

Q_SIGNALS:
    /// By the user: a tick, or a new tag; not told by setSelection().
    void selectionChanged(const QSet<Quillstacks::Tag*>& selection);

private:
    void build();
    void refresh();

    ModelContext& modelContext;
    TagQuery& allTags;
    QSet<Tag*> ticked;
    bool presentingTagEditor = false;
    Tag* editedTag = nullptr;

    Button* createButton = nullptr;
    TagSelector* selector = nullptr;
};

} // namespace Quillstacks
