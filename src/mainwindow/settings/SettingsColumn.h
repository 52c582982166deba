#pragma once

#include <QWidget>

#include <initializer_list>

class QVBoxLayout;

namespace Quillstacks {

/// What a tab of the settings scrolls: groups of settings in cards, one below the other. It takes ownership of the
/// groups.
class SettingsColumn : public QWidget {
    Q_OBJECT
public:
    explicit SettingsColumn(QWidget* parent = nullptr);

protected:
    /// One card across the width. More than one group in it are divided by lines.
    void addCard(std::initializer_list<QWidget*> groups);
    /// A card for each group, side by side and equally high.
    void addRow(std::initializer_list<QWidget*> groups);

private:
    QVBoxLayout* items;
};

} // namespace Quillstacks
