#pragma once

#include <QString>
#include <QWidget>

class QBoxLayout;

namespace Quillstacks {

class DiffRow;
class Label;
class ReadOnlyText;
class TextDiffView;

/// What has changed from an old state of a prompt to a new one: the title as a whole, the body line by line.
class DiffContent final : public QWidget {
    Q_OBJECT
public:
    struct Texts {
        QString oldTitle;
        QString newTitle;
        QString oldBody;
        QString newBody;
    };
    explicit DiffContent(QWidget* parent = nullptr);

    void setTexts(const Texts& texts);
    [[nodiscard]] const Texts& texts() const { return shown; }

private:
    [[nodiscard]] QBoxLayout* heading(const QString& text, Label*& noChanges);
    [[nodiscard]] QWidget* buildTitle();
    [[nodiscard]] QWidget* buildLegend();

    Texts shown;
    Label* noTitleChanges = nullptr;
    Label* noBodyChanges = nullptr;
    DiffRow* oldTitle = nullptr;
    DiffRow* newTitle = nullptr;
    ReadOnlyText* sameTitle = nullptr;
    TextDiffView* bodyDiff = nullptr;
    ReadOnlyText* sameBody = nullptr;
};

} // namespace Quillstacks
