#include "ProgressView.h"

#include "interface/Label.h"
#include "interface/ProgressBar.h"
#include "interface/Sheet.h"

#include <QVBoxLayout>

namespace Quillstacks {

namespace {

constexpr int sheetWidth = 320;
constexpr int padding = 24;
constexpr double appearsAfter = 0.5; ///< seconds

} // namespace

ProgressView::ProgressView(const QString& title, QWidget* parent) : QWidget(parent), bar(new ProgressBar(title, this)) {
    setObjectName(QStringLiteral("ProgressView"));
    setFixedWidth(sheetWidth);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(14);
    column->addWidget(new Label(title, TextStyle::headline, ColorRole::text, this));
    column->addWidget(bar);
}

void ProgressView::setFraction(double fraction) {
    bar->setFraction(fraction);
}

QPointer<ProgressView> ProgressView::present(QWidget* host, const QString& title) {
    auto view = std::make_unique<ProgressView>(title);
    QPointer<ProgressView> shown = view.get();
    Sheet::Options options;
    options.accessibleName = title;
    options.appearsAfter = appearsAfter;
    Sheet::present(host, std::move(view), std::move(options));
    return shown;
}

void ProgressView::dismiss() {
    if (Sheet* sheet = Sheet::of(this))
        sheet->dismiss();
}

} // namespace Quillstacks
