#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QSize>

class QVariantAnimation;

namespace Quillstacks {

class ModelContainer;
class QuickAccessPanel;
class QuickAccessView;

/// Owns the floating panel of quick access: creates it once, puts it in the middle of the screen under the mouse, and
/// takes it away again.
class QuickAccessWindowManager final : public QObject {
    Q_OBJECT
public:
    static QuickAccessWindowManager& shared();
    explicit QuickAccessWindowManager(QObject* parent = nullptr);
    ~QuickAccessWindowManager() override;

    static constexpr QSize contentSize{712, 552};

    /// The application's store; while there is none (nullptr), nothing is ever shown. It must outlive its stay here.
    void setModelContainer(ModelContainer* container);
    [[nodiscard]] ModelContainer* modelContainer() const { return container; }

    /// What a press of the hot key ends in: closes the panel when it is visible, and shows it otherwise.
    void toggle();
    /// Takes the panel away at once, without a fade.
    void close();
    [[nodiscard]] bool isVisible() const;

    /// Builds ahead, while nobody waits, what the next show needs. Optional.
    void prepare();

    /// The panel; nullptr until it was first needed, and kept from then on, also while it is closed.
    [[nodiscard]] QuickAccessPanel* windowController() const;
    /// The view in the panel; nullptr before there is one.
    [[nodiscard]] QuickAccessView* rootView() const;

private:
    void show();
    void createPanel();
    void drawAhead();
    void dropPicture();
    void renewRootView();
    void blurBehind();
    void followCard();
    void fadeIn();
    void applicationStateChanged(Qt::ApplicationState state);
    void tearDown();
    [[nodiscard]] QRect panelFrame() const;
    [[nodiscard]] QSize sizeInPixels() const;

    ModelContainer* container = nullptr;
    // The application deletes what windows are left when it ends, and may do so before the manager goes.
    QPointer<QuickAccessPanel> panel;
    QPointer<QVariantAnimation> fade;
    bool isRootFresh = false;
    QSize pictureSize; ///< of the panel as it was drawn ahead, in pixels
    quint64 changesWhileHidden = 0;
    bool isApplicationActive = true;
};

} // namespace Quillstacks
