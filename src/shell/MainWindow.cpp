#include "shell/MainWindow.h"

#include "hotkey/PermissionBannerModifier.h"
#include "hotkey/PermissionManager.h"
#include "interface/Accessible.h"
#include "interface/BusyIndicator.h"
#include "interface/Label.h"
#include "interface/OverlayScrollBar.h"
#include "interface/Sheet.h"
#include "interface/Theme.h"
#include "library/model/ModelContainer.h"
#include "library/PromptEditorView.h"
#include "library/PromptListView.h"
#include "library/tags/TagEditorView.h"
#include "mainwindow/ContentView.h"
#include "platform/Windows.h"
#include "shell/DataStoreErrorView.h"
#include "shell/DockVisibilityController.h"
#include "shell/MainWindowFocusManager.h"
#include "shell/ScreenFit.h"
#include "shell/WindowAccessor.h"

#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <QShowEvent>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

namespace Quillstacks {

namespace {

constexpr QSize firstSize{1280, 800};

template <typename Editor>
bool anyHoldsUnsavedTyping(const QWidget& window) {
    return std::ranges::any_of(window.findChildren<Editor*>(), [](const Editor* editor) {
        // What a sheet holds that is leaving already was saved, or given up.
        const Sheet* sheet = Sheet::of(editor);
        return editor->holdsUnsavedTyping() && !(sheet && sheet->isDismissed());
    });
}

} // namespace

MainWindow::MainWindow(Store opened)
    : store(std::move(opened)), area(new QScrollArea(this)), screenFit(new ScreenFit(this, smallestSize)) {
    setObjectName(QStringLiteral("main"));
    setWindowTitle(QStringLiteral("Quillstacks"));
    setAccessibleTraits(this, {QAccessible::Window, {}, {}, {}});
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(area);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    OverlayScrollBar::install(area, true);
    new PermissionBannerModifier(this, PermissionManager::shared());
    resize(firstSize);
}

MainWindow::~MainWindow() = default;

QWidget* MainWindow::find() {
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(
        windows, [](const QWidget* window) { return window->objectName() == QStringLiteral("main"); });
    return found == windows.end() ? nullptr : *found;
}

void MainWindow::open() {
    if (isVisible()) {
        setWindowState(windowState() & ~Qt::WindowMinimized);
        Windows::showAndActivate(this, 0);
    } else {
        show();
    }
}

void MainWindow::openNewPrompt() {
    open();
    // Under a sheet everything is inert, this included; what is being written there comes first.
    if (contentView() && !Sheet::top(this))
        contentView()->promptList().newPrompt();
}

void MainWindow::setVisible(bool visible) {
    // Here rather than in open(): whoever shows the window gets it with its content.
    if (visible && !isVisible()) {
        screenFit->fit();
        if (!content)
            buildContent();
    }
    QWidget::setVisible(visible);
}

void MainWindow::buildContent() {
    // Born in its place: a later change of parent would lose the focus that the content gives itself.
    auto* frame = new QWidget(area->viewport());
    auto* layers = new QVBoxLayout(frame);
    layers->setContentsMargins(0, 0, 0, 0);
    layers->addWidget(makeContent(frame));
    if (store.container)
        new WindowAccessor([](QWidget* window) { MainWindowFocusManager::shared().registerWindow(window); }, frame);
    content = frame;
    area->setWidget(frame);
}

QWidget* MainWindow::makeContent(QWidget* parent) const {
    if (store.container)
        return new ContentView(store.container->mainContext(), parent);
    if (store.error)
        return new DataStoreErrorView(store.error, parent);
    const QString initializing = QStringLiteral("Initializing...");
    auto* progress = new QWidget(parent);
    auto* column = new QVBoxLayout(progress);
    column->setSpacing(8);
    column->addStretch();
    column->addWidget(new BusyIndicator(initializing, progress), 0, Qt::AlignHCenter);
    column->addWidget(new Label(initializing, TextStyle::body, ColorRole::text2, progress), 0, Qt::AlignHCenter);
    column->addStretch();
    return progress;
}

ContentView* MainWindow::contentView() const {
    return content ? content->findChild<ContentView*>() : nullptr;
}

bool MainWindow::holdsUnsavedTyping() const {
    return anyHoldsUnsavedTyping<PromptEditorView>(*this) || anyHoldsUnsavedTyping<TagEditorView>(*this);
}

void MainWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        appear();
}

void MainWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        disappear();
}

void MainWindow::appear() {
    DockVisibilityController::shared().setPolicy(ActivationPolicy::regular);
    // Twice on purpose: before and after the look at the permission.
    MainWindowFocusManager::shared().requestFocus();
    PermissionManager::shared().checkOnLaunch();
    MainWindowFocusManager::shared().requestFocus();
}

void MainWindow::disappear() {
    DockVisibilityController::shared().setPolicy(ActivationPolicy::accessory);
    MainWindowFocusManager::shared().reset();
    // A sheet may hold what somebody is writing; it waits, with what lies beneath it, for the window to open again.
    if (!content || Sheet::top(this))
        return;
    // Not at once: the close may come from within the content.
    area->takeWidget();
    content->hide();
    content->deleteLater();
    content = nullptr;
}

} // namespace Quillstacks
