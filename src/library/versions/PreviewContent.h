#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace Quillstacks {

class ReadOnlyText;
class Tag;
class VersionTagChips;

/// One state of a prompt as it was or is: title, body and tags.
class PreviewContent final : public QWidget {
    Q_OBJECT
public:
    struct Fields {
        QString title;
        QString bodyText;
        QStringList tagNames; ///< of a version
        QStringList tagColors;
        QList<Tag*> currentTags; ///< of the prompt
        bool isCurrentVersion = true;
        bool hasChanges = false;
    };
    explicit PreviewContent(QWidget* parent = nullptr);

    void setFields(const Fields& fields);
    [[nodiscard]] const Fields& fields() const { return shown; }

private:
    [[nodiscard]] QWidget* buildNotice();
    void showTags();

    Fields shown;
    ReadOnlyText* title = nullptr;
    ReadOnlyText* body = nullptr;
    VersionTagChips* chips = nullptr;
    QWidget* notice = nullptr;
};

} // namespace Quillstacks
