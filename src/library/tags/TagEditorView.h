#pragma once

#include "interface/Sheet.h"
#include "library/model/ModelContext.h"

#include <QWidget>

#include <functional>

namespace Quillstacks {

class Button;
class ColorDot;
class Composition;
class FlexibleColorGrid;
class TextField;

/// The sheet in which a tag is made, or its name and colour are edited. Nothing reaches the store before saveTag().
class TagEditorView final : public QWidget {
    Q_OBJECT
public:
    /// Without an initial tag it makes a new one, and hands it to `onSave` before the store is saved.
    explicit TagEditorView(ModelContext& modelContext, Tag* initialTag = nullptr, std::function<void(Tag*)> onSave = {},
                           QWidget* parent = nullptr);

    /// Shows one on a sheet over the window of `host`; the sheet ends with it.
    static Sheet* present(QWidget* host, ModelContext& modelContext, Tag* initialTag,
                          std::function<void(Tag*)> onSave = {});

    // State
    /// As typed; only what is saved is trimmed.
    [[nodiscard]] const QString& name() const { return nameText; }
    /// Six hexadecimal digits, or whatever an existing tag has.
    [[nodiscard]] const QString& colorHex() const { return colorText; }
    /// None while a new tag is made.
    [[nodiscard]] Tag* editingTag() const { return tag; }
    void setName(const QString& name);
    void setColorHex(const QString& colorHex);

    // Derived
    [[nodiscard]] bool canSave() const;
    /// Whether a name was typed, or is still being composed, that is not the tag's; it would be lost if the editor went
    /// now.
    [[nodiscard]] bool holdsUnsavedTyping() const;

    // Actions
    void saveTag();
    void cancel();

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The sheet is to close.
    void closed();

private:
    void build();
    [[nodiscard]] QLayout* buildNameRow();
    [[nodiscard]] QLayout* buildColors();
    [[nodiscard]] QLayout* buildFooter();
    void connectParts();
    void refreshControls();
    void updateExisting(const QString& trimmedName);
    void createNew(const QString& trimmedName);
    void saveContext();

    ModelContext& modelContext;
    std::function<void(Tag*)> onSave;
    QString nameText;
    QString colorText;
    Tag* tag = nullptr;

    ColorDot* dot = nullptr;
    TextField* nameField = nullptr;
    Composition* nameComposition = nullptr;
    FlexibleColorGrid* grid = nullptr;
    Button* cancelButton = nullptr;
    Button* saveButton = nullptr;
};

} // namespace Quillstacks
