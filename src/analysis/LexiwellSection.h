#pragma once

#include <QWidget>

class QVBoxLayout;

namespace Quillstacks {

/// A box of the panel: a symbol and a heading, and what is added under them.
class LexiwellSection final : public QWidget {
    Q_OBJECT
public:
    LexiwellSection(const QString& symbol, const QString& title, QWidget* parent = nullptr);

    /// Takes ownership.
    void add(QWidget* widget);
    /// Between the parts, in points; 8 unless said otherwise.
    void setSpacing(int spacing);

private:
    QVBoxLayout* parts = nullptr;
};

} // namespace Quillstacks
