#pragma once

#include "platform/DesktopSettings.h"
#include "platform/FileDialogs.h"
#include "platform/HotKeys.h"
#include "platform/LanguageModel.h"
#include "platform/Updates.h"

#include <QIcon>
#include <QImage>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <map>
#include <optional>
#include <vector>

class QMenu;
class QScreen;

namespace Quillstacks {

class SingleInstance;
class StatusItem;

/// The desktop that tests link in place of the real one: it answers as it is told and keeps what was asked of it.
/// There is one; fresh() puts everything back, and belongs at the start of each test (or fixture).
struct FakeDesktop final {
    static FakeDesktop& shared();
    static FakeDesktop& fresh();

    /// Every call in order, in a line each: "registerEventHotKey 49 0x300", "clipboard clear", "showAndActivate main".
    QStringList calls;
    /// The calls that begin with this.
    [[nodiscard]] QStringList callsOf(const QString& beginning) const;

    // Clipboard
    QString clipboardText;

    // Accessibility
    bool trusted = true;
    int trustPrompts = 0; ///< how often the user was asked

    // HotKeys
    struct HotKey {
        quint32 keyCode = 0;
        quint32 modifiers = 0;
        HotKeys::EventHotKeyID id;
    };
    HotKeys::Status registerStatus = HotKeys::noErr;
    std::map<HotKeys::HotKeyRef, HotKey> hotKeys; ///< those that are registered now, or pending
    bool hotKeysAnswerLater = false;              ///< registrations are pending until answerHotKeys()
    std::map<HotKeys::HotKeyRef, HotKeys::Answer> hotKeyAnswers;
    /// Tells those that registered with hotKeysAnswerLater what came of it.
    void answerHotKeys(HotKeys::Status status);
    bool hotKeysSupported = true;
    std::map<HotKeys::HandlerRef, HotKeys::Handler> handlers;
    quint32 eventTime = 0; ///< what takeEventTime() gives next
    /// A press of the registered hot key (of any: the handlers alone decide), as the window system delivers it.
    /// Returns what the handler gave, or eventNotHandledErr when none is installed.
    HotKeys::Status press(HotKeys::Status parameterStatus = HotKeys::noErr, quint32 time = 1000);
    /// The same with an identifier of one's own.
    HotKeys::Status press(const HotKeys::Event& event);

    // Windows
    QPointer<QWidget> lastActivated;
    std::vector<QPointer<QWidget>> panels;            ///< prepared ones
    std::map<const QWidget*, bool> skipsTaskbar;      ///< what was last said of each window
    std::map<const QWidget*, QImage> firstPictures;   ///< what hidden panels will show first
    std::map<const QWidget*, QRect> blurred;          ///< the area behind each window
    QPoint mouse;                                     ///< in global coordinates
    std::function<QScreen*(const QPoint&)> screenFor; ///< empty: the toolkit's own screens are searched
    void setComposited(bool composited);              ///< tells those who observe it

    // DesktopSettings; each tells of the change
    void setColorScheme(ColorScheme scheme);
    void setAccentColor(std::optional<QColor> color);
    void setReducedMotion(bool reduced);

    // Files
    /// What applicationSupportDirectories() gives; unset: the private data folder of the test program.
    std::optional<QStringList> applicationSupportDirectories;
    QStringList openedFolders;

    // FileDialogs
    struct FileDialog {
        QPointer<QWidget> over;
        FileDialogs::Done done;
    };
    std::optional<FileDialog> fileDialog; ///< the one that is open
    /// Closes it with an answer; false when none is open, or what it was asked for is gone.
    bool answerFileDialog(const FileDialogs::Answer& answer);

    // StatusItem: whether a tray host is there. Items look for it on the next turn of the main loop, and follow.
    void setTrayAvailable(bool available);
    std::vector<StatusItem*> statusItems; ///< alive
    /// What a status item was made with.
    struct StatusItemContents {
        QString title;
        QIcon icon;
        QMenu* menu = nullptr;
        bool isShown = false;
    };
    [[nodiscard]] StatusItemContents contentsOf(const StatusItem* item) const;

    // Application
    bool takesActivationPolicy = true;    ///< what setActivationPolicy() answers
    std::function<void()> askToTerminate; ///< what a signal from outside does

    // SingleInstance
    bool hasSessionBus = true;
    bool isAlreadyRunning = false;          ///< start() then hands over
    std::vector<SingleInstance*> instances; ///< alive; emit their signals to play a second start

    // AppService
    bool loginItem = false;      ///< whether the program starts after login
    bool loginItemFails = false; ///< changes of it then throw a FileError

    // Updates
    QString updateKeeper; ///< who else keeps the installation up to date
    /// What the server answers to a request for its address, or throws; empty: no answer in this test's time.
    std::function<QByteArray(const QUrl&)> fetchAnswer;
    /// The path that a download ends at, or throws; empty: it doesn't end.
    std::function<QString(const Updates::SignedFile&)> downloadAnswer;
    /// Ends what has no answer, with an empty one, on the next turns of the loop.
    static void endSilence();

    // LanguageModel
    /// One call of respond().
    struct ModelTurn {
        QString instructions;
        QString prompt;
        GenerationOptions options;
    };
    std::vector<ModelTurn> modelTurns;
    /// What the model says to a turn, or throws; empty: it says nothing, successfully.
    std::function<QString(const ModelTurn&)> modelAnswer;
    /// Keeps turns from being answered until it is over.
    void holdModel();
    /// Answers those that wait, on the next turn of the event loop, and lets the later ones through.
    void releaseModel();

    // For the fakes themselves
    bool composited = true;
    bool trayAvailable = true;
    bool modelIsHeld = false;
    std::map<const StatusItem*, StatusItemContents> statusContents;
    struct CompositedObserver {
        QPointer<QObject> context;
        std::function<void()> changed;
    };
    std::vector<CompositedObserver> compositedObservers;
    quint64 lastRef = 0;
    void note(const QString& call) { calls << call; }
};

} // namespace Quillstacks
