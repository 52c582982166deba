#pragma once

#include <QStringList>
#include <QWidget>

namespace Quillstacks {

/// The names of variables, one to a row. Paints itself: a body can hold a thousand, and changes with every key.
class VariablesList final : public QWidget {
    Q_OBJECT
public:
    explicit VariablesList(QWidget* parent = nullptr);

    void setVariables(const QStringList& variables);
    [[nodiscard]] const QStringList& variables() const { return names; }
    /// What it shows, line by line.
    [[nodiscard]] QStringList lines() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void announce();

    QStringList names;
};

} // namespace Quillstacks
