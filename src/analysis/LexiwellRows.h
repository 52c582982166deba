#pragma once

#include <QWidget>

namespace Quillstacks {

/// One of the tips below a failure: a symbol and a text.
class TroubleshootingItem final : public QWidget {
    Q_OBJECT
public:
    TroubleshootingItem(const QString& icon, const QString& text, QWidget* parent = nullptr);
};

/// One strength of a prompt.
class StrengthRow final : public QWidget {
    Q_OBJECT
public:
    StrengthRow(const QString& name, const QString& description, QWidget* parent = nullptr);
};

/// One recommendation, with its priority.
class RecommendationRow final : public QWidget {
    Q_OBJECT
public:
    RecommendationRow(const QString& name, const QString& description, const QString& priority,
                      QWidget* parent = nullptr);
};

} // namespace Quillstacks
