#pragma once

#include <QString>

#include <functional>
#include <optional>

class QWidget;

/// The desktop's own dialogs for choosing files.
namespace Quillstacks::FileDialogs {

/// A kind of file that a dialog offers.
struct FileType {
    QString name;   ///< "JSON"
    QString suffix; ///< "json"; a name without it gets it
};

/// What the user answered: a path, a failure that a person can read, or, where both are empty, nothing.
struct Answer {
    std::optional<QString> path;
    std::optional<QString> failure;
};
using Done = std::function<void(const Answer&)>;

/// Asks over the window of `over` where to save; the dialog asks before it lets an existing file be replaced. Returns
/// at once. `done` is called once, never when `over` is destroyed first.
void saveFile(QWidget* over, const FileType& type, const QString& offeredName, Done done);
/// Asks for one file that exists, in the same manner.
void openFile(QWidget* over, const FileType& type, Done done);

} // namespace Quillstacks::FileDialogs
