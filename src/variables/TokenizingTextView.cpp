#include "variables/TokenizingTextView.h"

#include "variables/Coordinator.h"
#include "variables/TokenTextView.h"

#include <QVBoxLayout>

namespace Quillstacks {

TokenizingTextView::TokenizingTextView(QWidget* parent)
    : QWidget(parent), view(new TokenTextView(this)), delegate(std::make_unique<Coordinator>(this, view)) {
    setObjectName(QStringLiteral("TokenizingTextView"));
    setFocusProxy(view);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
}

TokenizingTextView::~TokenizingTextView() = default;

void TokenizingTextView::setText(const QString& text) {
    plain = text;
    delegate->updateTextView();
}

void TokenizingTextView::takeText(const QString& text) {
    if (plain == text)
        return;
    plain = text;
    Q_EMIT textChanged();
}

} // namespace Quillstacks
