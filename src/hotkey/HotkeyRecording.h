#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace Quillstacks {

/// Whether a shortcut is being recorded, and what was. Shared by a recorder, its owner, and the key monitors of its
/// recordings: a recorder that disappears in the middle goes on recording, as only its button or a shortcut ends that.
class HotkeyRecording final : public QObject, public std::enable_shared_from_this<HotkeyRecording> {
    Q_OBJECT
public:
    /// Told of a captured shortcut: ModifierFlags and a virtual key code. May be called after its owner's end.
    using OnRecord = std::function<void(quint64 modifiers, quint16 keyCode)>;
    /// What follows a capture 0.1 s later: the stored shortcut is registered once more, or nothing.
    enum class AfterCapture { restores, nothing };
    [[nodiscard]] static std::shared_ptr<HotkeyRecording> make(OnRecord onRecord,
                                                               AfterCapture after = AfterCapture::restores);

    /// What the button does: starts a recording, or ends it without a capture.
    void toggle();

    [[nodiscard]] bool isRecording() const { return recording; }
    /// The last capture; empty at first and from the start of a recording on.
    std::optional<quint64> recordedModifiers;
    std::optional<quint16> recordedKeyCode;

Q_SIGNALS:
    void changed();

private:
    HotkeyRecording(OnRecord callback, AfterCapture after) : onRecord(std::move(callback)), afterCapture(after) {}
    void start();
    [[nodiscard]] bool handle(quint64 modifiers, std::optional<quint16> keyCode);

    OnRecord onRecord;
    const AfterCapture afterCapture;
    bool recording = false;
};

} // namespace Quillstacks
