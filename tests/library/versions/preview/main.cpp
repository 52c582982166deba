#include "foundation/Clock.h"
#include "interface/Card.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"
#include "library/versions/VersionHistorySettingsView.h"
#include "library/versions/VersionHistoryView.h"
#include "support/Preview.h"

#include <QTest>
#include <QVBoxLayout>

#include <array>
#include <chrono>

using namespace Quillstacks;
using namespace std::chrono_literals;

namespace {

constexpr int settleTime = 700; ///< milliseconds, longer than any animation
constexpr std::array<std::chrono::hours, 5> ages{32 * 24h, 15 * 24h, 3 * 24h + 2h, 3 * 24h, 2h};

QString body(int version) {
    const QString start = QStringLiteral("Review the following {{language}} change as a careful senior engineer.\n\n");
    const QString end = QStringLiteral("Do not comment on formatting.\nThen name one thing that is done well.");
    if (version < 0)
        return start +
               QStringLiteral("List defects first, by severity, each with its line and the smallest fix.\nQuote the "
                              "line before you judge it.\n") +
               end;
    return start + QStringLiteral("List defects, each with its line and a fix.\n") + end;
}

QString longText(int seed) {
    QString text;
    for (int line = 0; line < 5000; ++line)
        text += QStringLiteral("Line %1 of a prompt that is far too long for anybody to read %2\n")
                    .arg(line)
                    .arg(line % 7 == seed ? seed : 0);
    return text;
}

Prompt* addPrompt(ModelContext& context) {
    const auto tag = [&context](const char* name, const char* color) {
        return context.insert(std::make_unique<Tag>(QLatin1String(name), QLatin1String(color)));
    };
    const QList<Tag*> tags{tag("Code", "4D96FF"), tag("Review", "FF6B6B")};
    auto prompt = std::make_unique<Prompt>(QStringLiteral("Code review, line by line"), body(-1), tags);
    const Date now = Clock::now();
    prompt->restoreIdentity(prompt->id(), now - 2h, now - 2h, false, {});
    Prompt* inserted = context.insert(std::move(prompt));
    for (const auto& age : ages) {
        auto version = std::make_unique<PromptVersion>(inserted->id(), QStringLiteral("Code review"), body(0), tags);
        version->restoreIdentity(version->id(), version->tagNames(), version->tagColors(), now - age - 5min);
        inserted->appendVersion(std::move(version));
    }
    return inserted;
}

/// Shows the history of one prompt after another, and takes its picture.
class Camera final {
public:
    Camera(ModelContext& modelContext, QString outputFolder) : context(modelContext), folder(std::move(outputFolder)) {
        window.resize(1280, 720);
        window.show();
    }
    VersionHistoryView* present(Prompt& prompt) {
        if (sheet)
            sheet->dismiss();
        auto view = std::make_unique<VersionHistoryView>(context, prompt);
        VersionHistoryView* shown = view.get();
        sheet = Sheet::present(&window, std::move(view), VersionHistoryView::sheetOptions());
        return shown;
    }
    void take(const char* name) {
        QTest::qWait(settleTime);
        window.grab().save(folder + QLatin1Char('/') + QLatin1String(name) + QStringLiteral(".png"));
    }
    void takeSettings() {
        Card card;
        auto* layout = new QVBoxLayout(&card);
        layout->setContentsMargins(20, 20, 20, 20);
        layout->addWidget(new VersionHistorySettingsView);
        card.resize(836, card.sizeHint().height());
        card.grab().save(folder + QStringLiteral("/settings.png"));
    }

private:
    ModelContext& context;
    QString folder;
    QWidget window;
    QPointer<Sheet> sheet;
};

void takeAll(ModelContext& context, Camera& camera) {
    Prompt* prompt = addPrompt(context);
    VersionHistoryView* view = camera.present(*prompt);
    camera.take("current");
    view->select(view->sortedVersions().at(1));
    camera.take("preview");
    view->setViewMode(ViewMode::diff);
    camera.take("diff");
    view->askToRestore();
    camera.take("alert");
    view->cancelRestore();
    prompt->setTitle(QStringLiteral("Code review"));
    prompt->setBody(body(0));
    camera.take("no-changes");
    prompt->setTitle(QStringLiteral("A very long title, ").repeated(40));
    prompt->setBody(longText(1));
    prompt->appendVersion(std::make_unique<PromptVersion>(prompt->id(), prompt->title(), longText(2), QList<Tag*>()));
    context.processPendingChanges();
    view->select(view->sortedVersions().first());
    camera.take("long-diff");
    view->setViewMode(ViewMode::preview);
    camera.take("long-preview");
    camera.present(*context.insert(std::make_unique<Prompt>(QStringLiteral("New"), QStringLiteral("Text"))));
    camera.take("empty");
}

} // namespace

int main(int argc, char** argv) {
    const Preview preview(argc, argv);
    const QString folder = Preview::folder();
    ModelContainer container(Schema::current(), {preview.storeFile()});
    Camera camera(container.mainContext(), folder);
    takeAll(container.mainContext(), camera);
    camera.takeSettings();
    return 0;
}
