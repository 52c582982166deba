#pragma once

#include "foundation/Date.h"

#include <QString>
#include <QWidget>

namespace Quillstacks {

/// One entry of the version list. The list uses it again for other versions while it scrolls.
class VersionRow final : public QWidget {
    Q_OBJECT
public:
    struct Fields {
        QString title;
        Date date{};
        bool isCurrent = false;
        bool isSelected = false;
    };
    explicit VersionRow(QWidget* parent = nullptr);

    /// The date is told as of now.
    void setFields(const Fields& fields);
    [[nodiscard]] const Fields& fields() const { return shown; }
    [[nodiscard]] const QString& dateText() const { return dateLine; }

    /// What every row takes.
    [[nodiscard]] static int rowHeight();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Fields shown;
    QString dateLine;
};

} // namespace Quillstacks
