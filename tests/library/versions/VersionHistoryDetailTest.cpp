// The detail at the right: header, picker, preview, differences.
#include "DiffContent.h"
#include "DiffRow.h"
#include "interface/ScrollArea.h"
#include "PreviewContent.h"
#include "ReadOnlyText.h"
#include "support/ShownSymbol.h"
#include "TextDiffView.h"
#include "VersionHistoryFixture.h"
#include "VersionTagChips.h"

#include <QClipboard>
#include <QScrollBar>

using namespace Quillstacks;
using namespace std::chrono_literals;

namespace {

QStringList namesOfChips(const VersionTagChips& chips) {
    QStringList names;
    for (const VersionTagChips::Tag& tag : chips.tags())
        names += tag.name;
    return names;
}

QImage picture(QWidget& widget) {
    std::ignore = widget.grab(); // lays it out
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

} // namespace

TEST_F(VersionHistory, withTheCurrentStateSelectedThereIsNoPickerNoRestoreAndNoNotice) {
    Tag* tag = addTag(QStringLiteral("Code"));
    prompt->setTags({tag});
    addVersion("first");
    prompt->setUpdatedAt(Clock::now());
    clock.advance(2h);
    present();

    EXPECT_TRUE(shows("Current Version"));
    EXPECT_TRUE(shows("2 hours ago"));
    EXPECT_FALSE(part<SegmentedPicker>()->isVisible());
    EXPECT_FALSE(visibleButton(*view, QStringLiteral("Restore")));
    EXPECT_TRUE(visibleButton(*view, QStringLiteral("Close")));
    EXPECT_FALSE(shows("Different from current version"));
    const PreviewContent::Fields& fields = part<PreviewContent>()->fields();
    EXPECT_TRUE(fields.isCurrentVersion);
    EXPECT_FALSE(fields.hasChanges);
    EXPECT_EQ(fields.title, QStringLiteral("Now"));
    EXPECT_EQ(fields.bodyText, QStringLiteral("one\ntwo"));
    EXPECT_EQ(fields.currentTags, QList<Tag*>{tag});
    EXPECT_TRUE(fields.tagNames.isEmpty());
    EXPECT_EQ(namesOfChips(*part<VersionTagChips>()), QStringList{QStringLiteral("Code")});
}

TEST_F(VersionHistory, aSelectedVersionShowsItsOwnTextDateAndTags) {
    Tag* tag = addTag(QStringLiteral("Code"));
    PromptVersion* version = addVersion(QStringLiteral("Before"), QStringLiteral("body then"), {tag});
    clock.advance(3 * 24h);
    present();
    view->select(version);

    EXPECT_TRUE(shows("Version Preview"));
    EXPECT_TRUE(shows("3 days ago"));
    EXPECT_TRUE(part<SegmentedPicker>()->isVisible());
    EXPECT_EQ(part<SegmentedPicker>()->width(), 200);
    EXPECT_EQ(part<SegmentedPicker>()->accessibleName(), QStringLiteral("View"));
    EXPECT_TRUE(visibleButton(*view, QStringLiteral("Restore")));
    const PreviewContent::Fields& fields = part<PreviewContent>()->fields();
    EXPECT_FALSE(fields.isCurrentVersion);
    EXPECT_TRUE(fields.hasChanges);
    EXPECT_EQ(fields.title, QStringLiteral("Before"));
    EXPECT_EQ(fields.bodyText, QStringLiteral("body then"));
    EXPECT_EQ(fields.tagNames, QStringList{QStringLiteral("Code")});
    EXPECT_EQ(part<VersionTagChips>()->tags().first().color, QColor(QStringLiteral("#7C5CFC")));
    EXPECT_TRUE(shows("Different from current version"));
    EXPECT_TRUE(showsSymbol(*part<PreviewContent>(), QStringLiteral("arrow.triangle.2.circlepath"), 16,
                            Theme::shared().color(ColorRole::blue)));
}

TEST_F(VersionHistory, aVersionWithOtherTagsButTheSameTextShowsItsTagsAndNoNotice) {
    Tag* old = addTag(QStringLiteral("Old"));
    prompt->setTags({addTag(QStringLiteral("Present"))});
    PromptVersion* version = addVersion(prompt->title(), prompt->body(), {old});
    present();
    view->select(version);

    EXPECT_EQ(namesOfChips(*part<VersionTagChips>()), QStringList{QStringLiteral("Old")});
    EXPECT_FALSE(view->hasChanges());
    EXPECT_FALSE(shows("Different from current version"));
}

TEST_F(VersionHistory, aTitleAloneOrABodyAloneThatDiffersIsNoticed) {
    PromptVersion* otherTitle = addVersion(QStringLiteral("Before"), prompt->body());
    PromptVersion* otherBody = addVersion(prompt->title(), QStringLiteral("other"));
    present();
    for (PromptVersion* version : {otherTitle, otherBody}) {
        view->select(version);
        EXPECT_TRUE(view->hasChanges());
        EXPECT_TRUE(shows("Different from current version"));
    }
}

TEST_F(VersionHistory, aVersionStillShowsATagThatWasDeleted) {
    Tag* tag = addTag(QStringLiteral("Gone"));
    PromptVersion* version = addVersion(QStringLiteral("Before"), QStringLiteral("body"), {tag});
    library.context().remove(tag);
    present();
    view->select(version);

    EXPECT_EQ(namesOfChips(*part<VersionTagChips>()), QStringList{QStringLiteral("Gone")});
}

TEST_F(VersionHistory, tagNamesWithoutAColorAreNotPaired) {
    auto loose = std::make_unique<PromptVersion>(prompt->id(), QStringLiteral("x"), QString(), QList<Tag*>());
    loose->restoreIdentity(randomUuid(), {QStringLiteral("a"), QStringLiteral("b")}, {QStringLiteral("FF0000")},
                           Clock::now());
    PromptVersion* version = prompt->appendVersion(std::move(loose));
    present();
    view->select(version);

    EXPECT_EQ(namesOfChips(*part<VersionTagChips>()), QStringList{QStringLiteral("a")});
}

TEST_F(VersionHistory, withoutTagsItSaysSo) {
    present();
    EXPECT_EQ(part<VersionTagChips>()->accessibleName(), QStringLiteral("No tags"));
}

TEST_F(VersionHistory, theModeIsKeptWhileTheSelectionChanges) {
    PromptVersion* first = addVersion("first");
    PromptVersion* second = addVersion("second");
    present();
    EXPECT_EQ(view->viewMode(), ViewMode::preview);
    view->select(first);
    view->setViewMode(ViewMode::diff);

    view->select(nullptr);
    EXPECT_TRUE(part<PreviewContent>()->isVisible()) << "nothing to compare with itself";
    EXPECT_FALSE(part<DiffContent>()->isVisible());
    view->select(second);

    EXPECT_EQ(view->viewMode(), ViewMode::diff);
    EXPECT_TRUE(part<DiffContent>()->isVisible());
    EXPECT_FALSE(part<PreviewContent>()->isVisible());
    EXPECT_EQ(part<SegmentedPicker>()->selection(), 1);
}

TEST_F(VersionHistory, thePickerChoosesTheMode) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);
    auto* picker = part<SegmentedPicker>();
    QStringList titles;
    for (QAbstractButton* segment : picker->findChildren<QAbstractButton*>())
        titles += segment->text();
    EXPECT_EQ(titles, (QStringList{QStringLiteral("Preview"), QStringLiteral("Diff")}));

    picker->findChildren<QAbstractButton*>().last()->click();
    EXPECT_EQ(view->viewMode(), ViewMode::diff);
    picker->findChildren<QAbstractButton*>().first()->click();
    EXPECT_EQ(view->viewMode(), ViewMode::preview);
}

TEST_F(VersionHistory, thePickersSegmentsHaveTheirSymbols) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);
    auto* picker = part<SegmentedPicker>();
    const auto like = [&](const char* first, const char* second) {
        SegmentedPicker other(QStringLiteral("View"), {{QStringLiteral("Preview"), QLatin1String(first)},
                                                       {QStringLiteral("Diff"), QLatin1String(second)}});
        other.resize(picker->size());
        return picture(other);
    };
    EXPECT_EQ(picture(*picker), like("doc.text", "arrow.left.arrow.right"));
    EXPECT_NE(picture(*picker), like("plus", "arrow.left.arrow.right"));
    EXPECT_NE(picture(*picker), like("doc.text", "plus"));
}

TEST_F(VersionHistory, restoreHasItsSymbolAndCloseHasNone) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);
    for (const auto& [title, symbol] : {std::pair("Restore", "arrow.counterclockwise"), std::pair("Close", "")}) {
        Button* button = visibleButton(*view, QLatin1String(title));
        ASSERT_TRUE(button);
        Button like(button->text(), button->kind(), &host);
        like.resize(button->size());
        like.setSymbol(QLatin1String(symbol));
        EXPECT_EQ(picture(*button), picture(like)) << title;
        like.setSymbol(QStringLiteral("plus"));
        EXPECT_NE(picture(*button), picture(like)) << title;
    }
}

TEST_F(VersionHistory, theComparisonRunsFromTheVersionToTheCurrentState) {
    PromptVersion* version = addVersion(QStringLiteral("Before"), QStringLiteral("one\nzwei"));
    present();
    view->select(version);
    view->setViewMode(ViewMode::diff);

    const DiffContent::Texts& texts = part<DiffContent>()->texts();
    EXPECT_EQ(texts.oldTitle, QStringLiteral("Before"));
    EXPECT_EQ(texts.newTitle, QStringLiteral("Now"));
    EXPECT_EQ(texts.oldBody, QStringLiteral("one\nzwei"));
    EXPECT_EQ(texts.newBody, QStringLiteral("one\ntwo"));
    EXPECT_FALSE(shows("No changes"));
    for (const char* text : {"Title Changes", "Body Changes", "Removed", "Added"})
        EXPECT_TRUE(shows(text)) << text;
    const auto rowsOfTitle = view->findChildren<DiffRow*>();
    ASSERT_EQ(rowsOfTitle.size(), 2);
    EXPECT_EQ(rowsOfTitle.first()->label(), QStringLiteral("Old"));
    EXPECT_EQ(rowsOfTitle.first()->text(), QStringLiteral("Before"));
    EXPECT_EQ(rowsOfTitle.first()->color(), ColorRole::red);
    EXPECT_EQ(rowsOfTitle.last()->label(), QStringLiteral("New"));
    EXPECT_EQ(rowsOfTitle.last()->text(), QStringLiteral("Now"));
    EXPECT_EQ(rowsOfTitle.last()->color(), ColorRole::green);
    EXPECT_TRUE(part<TextDiffView>()->isVisible());
    EXPECT_EQ(part<TextDiffView>()->oldText(), QStringLiteral("one\nzwei"));
}

TEST_F(VersionHistory, aVersionEqualInTextShowsNoChangesTwiceAndNoNotice) {
    PromptVersion* version = addVersion(prompt->title(), prompt->body());
    present();
    view->select(version);
    EXPECT_FALSE(shows("Different from current version"));
    view->setViewMode(ViewMode::diff);

    EXPECT_EQ(texts().count(QStringLiteral("No changes")), 2);
    EXPECT_FALSE(part<TextDiffView>()->isVisible());
    for (const DiffRow* diffRow : view->findChildren<DiffRow*>())
        EXPECT_FALSE(diffRow->isVisible());
    EXPECT_TRUE(visibleButton(*view, QStringLiteral("Restore"))) << "still offered";
    EXPECT_TRUE(shows("Removed")) << "the legend is always there";
}

TEST_F(VersionHistory, onlyABodyThatDiffersIsCompared) {
    PromptVersion* version = addVersion(prompt->title(), QStringLiteral("other"));
    present();
    view->select(version);
    view->setViewMode(ViewMode::diff);

    EXPECT_EQ(texts().count(QStringLiteral("No changes")), 1);
    EXPECT_TRUE(part<TextDiffView>()->isVisible());
    EXPECT_FALSE(view->findChildren<DiffRow*>().first()->isVisible());
}

TEST_F(VersionHistory, theDetailFollowsThePrompt) {
    present();
    prompt->setTitle(QStringLiteral("Later"));
    library.context().processPendingChanges();
    EXPECT_EQ(part<PreviewContent>()->fields().title, QStringLiteral("Later"));

    Tag* tag = addTag(QStringLiteral("Before"));
    prompt->setTags({tag});
    library.context().processPendingChanges();
    tag->setName(QStringLiteral("After"));
    library.context().processPendingChanges();
    EXPECT_EQ(namesOfChips(*part<VersionTagChips>()), QStringList{QStringLiteral("After")});
}

TEST_F(VersionHistory, textsCanBeSelectedAndCopiedExactly) {
    const QString odd = QStringLiteral("a\r\nb\u2028c\u00A0d\uFDD0\n");
    PromptVersion* version = addVersion(QStringLiteral("T"), odd);
    present();
    view->select(version);
    auto* body = named<ReadOnlyText>(*view, QStringLiteral("Body"));
    ASSERT_TRUE(body);

    body->setFocus();
    QTest::keyClick(body, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(body, Qt::Key_C, Qt::ControlModifier);

    EXPECT_EQ(QApplication::clipboard()->text(), odd);
    EXPECT_EQ(body->content(), odd);
}

TEST_F(VersionHistory, nothingIsSelectedAndNothingScrolledInWhatIsShownNext) {
    prompt->setBody(QStringLiteral("line\n").repeated(500));
    PromptVersion* older = addVersion(QStringLiteral("a"), QStringLiteral("older\n").repeated(400));
    PromptVersion* newer = addVersion(QStringLiteral("b"), QStringLiteral("newer\n").repeated(400));
    present();
    for (const ViewMode mode : {ViewMode::preview, ViewMode::diff}) {
        view->setViewMode(mode);
        view->select(older);
        for (ReadOnlyText* text : view->findChildren<ReadOnlyText*>()) {
            EXPECT_FALSE(text->textCursor().hasSelection());
            text->selectAll();
            text->verticalScrollBar()->setValue(100);
        }
        view->select(newer);
        auto* body = named<ReadOnlyText>(*view, QLatin1String(mode == ViewMode::diff ? "Body Changes" : "Body"));
        EXPECT_FALSE(body->textCursor().hasSelection());
        EXPECT_EQ(body->verticalScrollBar()->value(), 0);
    }
}

TEST_F(VersionHistory, typingChangesNothing) {
    present();
    auto* body = named<ReadOnlyText>(*view, QStringLiteral("Body"));
    body->setFocus();
    QTest::keyClicks(body, QStringLiteral("xyz"));
    QTest::keyClick(body, Qt::Key_Delete);

    EXPECT_EQ(body->text(), QStringLiteral("one\ntwo"));
    EXPECT_EQ(prompt->body(), QStringLiteral("one\ntwo"));
}

TEST_F(VersionHistory, theKeyboardGoesToTheListWhenWhatHadItIsHidden) {
    PromptVersion* version = addVersion("first");
    present();
    view->select(version);
    named<ReadOnlyText>(*view, QStringLiteral("Body"))->setFocus();

    view->setViewMode(ViewMode::diff);

    EXPECT_EQ(QApplication::focusWidget(), &rows());
}

TEST_F(VersionHistory, everyControlIsReachedByTab) {
    addVersion("first");
    present();
    press(Qt::Key_Down);
    QStringList names;
    for (int i = 0; i < 7; ++i) {
        names += QApplication::focusWidget()->accessibleName();
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(names, (QStringList{QStringLiteral("Versions"), QStringLiteral("Preview"), QStringLiteral("Title"),
                                  QStringLiteral("Body"), QStringLiteral("Close"), QStringLiteral("Restore"),
                                  QStringLiteral("Versions")}));
}

TEST_F(VersionHistory, aBodyOfThousandsOfLinesScrollsWithinTheDetail) {
    QString older;
    QString newer;
    for (int i = 0; i < 5000; ++i) {
        older += QStringLiteral("line %1\n").arg(i);
        newer += QStringLiteral("line %1\n").arg(i % 5 == 0 ? -i : i);
    }
    prompt->setBody(newer);
    PromptVersion* version = addVersion(QStringLiteral("Before"), older);
    present();
    view->setViewMode(ViewMode::diff);
    view->select(version);
    const auto* diff = part<TextDiffView>();

    EXPECT_EQ(diff->lines().size(), 6000);
    EXPECT_LE(diff->height(), 600);
    EXPECT_GT(diff->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(part<ScrollArea>()->verticalScrollBar()->maximum(), 0) << "the legend stays in sight";
    EXPECT_LT(diff->findChildren<QWidget*>().size(), 12);
}
