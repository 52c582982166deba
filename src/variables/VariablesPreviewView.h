#pragma once

#include <QString>
#include <QWidget>

namespace Quillstacks {

class IconButton;
class VariablesList;

/// The panel beside the prompt editor that lists the variables of the body while it is typed. Its frame is the
/// editor's business.
class VariablesPreviewView final : public QWidget {
    Q_OBJECT
public:
    explicit VariablesPreviewView(QWidget* parent = nullptr);

    /// The body that is being edited.
    void setText(const QString& text);
    [[nodiscard]] const QString& text() const { return body; }
    void setCollapsed(bool collapsed);
    [[nodiscard]] bool isCollapsed() const { return collapsed; }

    /// While collapsed, the header's.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The button was pressed; whoever lays the panel out gives it its room within 200 ms.
    void collapsedChanged(bool collapsed);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void refresh();
    void showArea();

    QString body;
    bool collapsed = false;
    bool isListCurrent = false;
    IconButton* collapseButton = nullptr;
    QWidget* area = nullptr;
    VariablesList* list = nullptr;
};

} // namespace Quillstacks
