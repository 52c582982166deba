#pragma once

#include <QPointer>
#include <QWidget>

#include <exception>

class QScrollArea;

namespace Quillstacks {

class ContentView;
class ModelContainer;
class ScreenFit;

/// The program's one main window. It stays for the life of the process; what it shows is made anew each time that it
/// opens, and given up when it closes.
class MainWindow final : public QWidget {
    Q_OBJECT
public:
    /// What the start made of the store. Both empty: the start is not through yet.
    struct Store {
        ModelContainer* container = nullptr; ///< must outlive the window
        std::exception_ptr error;
    };
    explicit MainWindow(Store store);
    ~MainWindow() override;

    /// The window with the identifier "main"; nullptr when there is none.
    [[nodiscard]] static QWidget* find();

    static constexpr QSize smallestSize{1280, 720};

    /// Puts the window on screen, or brings it to the front when it is there.
    void open();
    /// open(), and there an editor for a new prompt, unless a sheet has the window already.
    void openNewPrompt();

    void setVisible(bool visible) override;
    /// The library's view; nullptr while the window is closed and when there is no store.
    [[nodiscard]] ContentView* contentView() const;
    /// Whether an editor here, also of the closed window, holds what was typed and is saved nowhere.
    [[nodiscard]] bool holdsUnsavedTyping() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void buildContent();
    [[nodiscard]] QWidget* makeContent(QWidget* parent) const;
    void appear();
    void disappear();

    Store store;
    QScrollArea* area = nullptr;
    ScreenFit* screenFit = nullptr;
    QPointer<QWidget> content;
};

} // namespace Quillstacks
