#include "interface/Drawing.h"
#include "PromptEditorFixture.h"
#include "PromptTextEditor.h"

#include <QEnterEvent>

#include <tuple>

namespace Quillstacks {
namespace {

QImage picture(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

bool isNear(const QColor& a, const QColor& b) {
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) <= 4;
}

} // namespace

TEST_F(PromptEditor, theSheetIsAtLeast1100By720WhereTheWindowIsLargeEnoughAndFitsWhereItIsNot) {
    const auto card = [this](const QSize& size) {
        window.resize(size);
        QCoreApplication::processEvents();
        return Sheet::top(&window)->cardGeometry();
    };
    present();
    EXPECT_EQ(card(QSize(1440, 900)).size(), QSize(1160, 860));
    EXPECT_GE(card(QSize(1280, 720)).width(), 1100);
    EXPECT_EQ(card(QSize(1280, 720)).height(), 720);
    EXPECT_TRUE(QRect(0, 0, 900, 500).contains(card(QSize(900, 500))));
}

TEST_F(PromptEditor, inAWindowThatIsTooSmallTheSheetScrollsToWhatTheKeyboardReaches) {
    const PromptEditorView& view = present();
    window.resize(600, 400);
    QCoreApplication::processEvents();
    QWidget* cancel = visibleButton(view, QStringLiteral("Cancel"));
    const auto place = [&](const QWidget* part) { return QRect(part->mapTo(&window, QPoint()), part->size()); };
    EXPECT_FALSE(window.rect().contains(place(cancel)));
    titleField(view).setFocus();
    QTest::keyClick(&titleField(view), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(cancel->hasFocus());
    EXPECT_TRUE(window.rect().contains(place(cancel)));
    EXPECT_FALSE(window.rect().contains(place(&titleField(view))));
    QTest::keyClick(cancel, Qt::Key_Tab);
    EXPECT_TRUE(titleField(view).hasFocus());
    EXPECT_GE(place(&titleField(view)).left(), 0);
    EXPECT_GE(place(&titleField(view)).top(), 0);
}

TEST_F(PromptEditor, theTitleFieldIs40High) {
    const PromptEditorView& view = present();
    EXPECT_EQ(titleField(view).height(), 40);
    EXPECT_GE(view.findChild<PromptTextEditor*>()->height(), 360);
}

TEST_F(PromptEditor, thePlaceholderStandsInAnEmptyBodyOnly) {
    open();
    const auto isShown = [&] { return placeholder(*editor)->isVisibleTo(editor.get()); };
    EXPECT_TRUE(isShown());
    editor->setEditorBody(QStringLiteral("a"));
    EXPECT_FALSE(isShown());
    editor->setEditorBody(QString());
    EXPECT_TRUE(isShown());
    EXPECT_EQ(titleField(*editor).placeholderText(), QStringLiteral("Title"));
}

TEST_F(PromptEditor, thePlaceholderStands24FromTheLeftAnd20FromTheTop) {
    open();
    EXPECT_EQ(placeholder(*editor)->pos(), QPoint(24, 20));
}

TEST_F(PromptEditor, theBodysEdgeIsTwiceAsStrongWhileHovered) {
    open();
    std::ignore = editor->grab(); // lays it out
    auto* body = editor->findChild<PromptTextEditor*>();
    const Theme& theme = Theme::shared();
    const QColor ink = theme.color(ColorRole::text).lightness() > 127 ? QColor(Qt::white) : QColor(Qt::black);
    const auto edge = [body] { return picture(*body).pixelColor(body->width() / 2, 0); };
    EXPECT_FALSE(body->isHovered());
    EXPECT_TRUE(isNear(edge(), mix(theme.color(ColorRole::field), ink, 0.1)));
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QApplication::sendEvent(body, &enter);
    EXPECT_TRUE(body->isHovered());
    EXPECT_TRUE(isNear(edge(), mix(theme.color(ColorRole::field), ink, 0.2)));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(body, &leave);
    EXPECT_FALSE(body->isHovered());
}

TEST_F(PromptEditor, copyAndHistoryHaveTheirSymbols) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    library.addVersion(prompt, QStringLiteral("earlier"));
    const PromptEditorView& view = present(prompt);
    for (const auto& [title, symbol] :
         {std::pair("Copy", "doc.on.doc"), std::pair("History", "clock.arrow.circlepath")}) {
        Button* button = visibleButton(view, QLatin1String(title));
        ASSERT_TRUE(button) << title;
        Button like(button->text(), button->kind(), &window);
        like.setSize(Button::Size::field);
        like.resize(button->size());
        like.setSymbol(QLatin1String(symbol));
        EXPECT_EQ(picture(*button), picture(like)) << title;
        like.setSymbol(QStringLiteral("plus"));
        EXPECT_NE(picture(*button), picture(like)) << title;
    }
}

TEST_F(PromptEditor, thePlaceholderIsHiddenWhileATextIsComposed) {
    const PromptEditorView& view = present();
    EXPECT_TRUE(placeholder(view)->isVisible());
    compose(bodyField(view), QStringLiteral("n"));
    EXPECT_FALSE(placeholder(view)->isVisible());
    compose(bodyField(view), QString());
    EXPECT_TRUE(placeholder(view)->isVisible());
}

TEST_F(PromptEditor, theBodysLinesFollowTheDesktopsFont) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPixelSize(14);
    QApplication::setFont(font);
    open();
    EXPECT_EQ(bodyField(*editor).lineHeight(), 24);
    font.setPixelSize(28);
    QApplication::setFont(font);
    EXPECT_EQ(bodyField(*editor).lineHeight(), 48);
    EXPECT_EQ(placeholder(*editor)->height(), 48);
    EXPECT_GT(titleField(*editor).sizeHint().height(), 40);
    QApplication::setFont(before);
}

} // namespace Quillstacks
