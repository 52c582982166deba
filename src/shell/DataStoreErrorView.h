#pragma once

#include <QWidget>

#include <exception>

class QBoxLayout;

namespace Quillstacks {

class Button;

/// What the main window shows when the store could not be opened.
class DataStoreErrorView final : public QWidget {
    Q_OBJECT
public:
    /// The error must not be empty.
    explicit DataStoreErrorView(std::exception_ptr error, QWidget* parent = nullptr);

    const std::exception_ptr error;
    /// Shows the technical details, despite its name.
    [[nodiscard]] bool showingFileLocation() const { return isShowingFileLocation; }

    void toggleFileLocation();
    void quit();
    /// Does nothing where there is no application support directory.
    void openApplicationSupportFolder();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    [[nodiscard]] QWidget* makeSolutions();
    [[nodiscard]] QWidget* makeDetails();
    [[nodiscard]] QBoxLayout* makeButtons();

    bool isShowingFileLocation = false;
    QWidget* details = nullptr;
};

} // namespace Quillstacks
