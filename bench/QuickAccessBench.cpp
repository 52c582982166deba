// Quick access with libraries of 1 KB prompts: the search alone, a fresh view up to its first picture, and one key in
// the search field up to the picture of its results.
#include "foundation/Preferences.h"
#include "interface/TextField.h"
#include "library/model/ModelContainer.h"
#include "library/model/ModelContext.h"
#include "quickaccess/QuickAccessPanel.h"
#include "quickaccess/QuickAccessRow.h"
#include "quickaccess/QuickAccessSearchRow.h"
#include "quickaccess/QuickAccessView.h"
#include "quickaccess/QuickAccessWindowManager.h"

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <random>

namespace Quillstacks {
namespace {

QString randomText(std::mt19937& random, qsizetype length) {
    static const QStringList words{QStringLiteral("review"), QStringLiteral("the"),      QStringLiteral("change"),
                                   QStringLiteral("List"),   QStringLiteral("defects"),  QStringLiteral("by"),
                                   QStringLiteral("{name}"), QStringLiteral("severity"), QStringLiteral("with"),
                                   QStringLiteral("line"),   QStringLiteral("naïve"),    QStringLiteral("fix")};
    QString text;
    while (text.size() < length)
        text += words.at(static_cast<int>(random() % static_cast<unsigned>(words.size()))) + QLatin1Char(' ');
    return text.left(length);
}

/// A store with `size` prompts; one in fifty is pinned.
class Library {
public:
    explicit Library(int size) {
        std::mt19937 random(7);
        ModelContext& context = container.mainContext();
        Tag* tag = context.insert(std::make_unique<Tag>(QStringLiteral("Code"), QStringLiteral("#4D96FF")));
        for (int i = 0; i < size; ++i) {
            Prompt* prompt = context.insert(std::make_unique<Prompt>(QStringLiteral("Prompt number %1").arg(i),
                                                                     randomText(random, 1024), QList<Tag*>{tag}));
            if (i % 50 == 0)
                prompt->togglePin();
        }
    }
    static ModelContext& ofSize(std::int64_t size) {
        auto& library = all()[size];
        if (!library)
            library = std::make_unique<Library>(static_cast<int>(size));
        return library->container.mainContext();
    }

    /// Kept from one measurement to the next, and let go before the application ends.
    static std::map<std::int64_t, std::unique_ptr<Library>>& all() {
        static std::map<std::int64_t, std::unique_ptr<Library>> libraries;
        return libraries;
    }

private:
    QTemporaryDir folder;
    ModelContainer container{Schema::current(), {folder.filePath(QStringLiteral("Quillstacks.store"))}};
};

void paint(QWidget& panel, QImage& image) {
    image.fill(Qt::transparent);
    panel.render(&image, {}, {}, QWidget::DrawChildren);
    benchmark::DoNotOptimize(image.constBits());
}

QImage pictureOf(const QWidget& panel) {
    return {panel.size(), QImage::Format_ARGB32_Premultiplied};
}

void results(benchmark::State& state) {
    QuickAccessView view(Library::ofSize(state.range(0)), [] {});
    view.setSearchText(QStringLiteral("zebra")); // found nowhere: every text is read to its end
    for (auto _ : state)
        benchmark::DoNotOptimize(view.results());
}
BENCHMARK(results)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);

void freshViewToPicture(benchmark::State& state) {
    ModelContext& context = Library::ofSize(state.range(0));
    QuickAccessPanel panel;
    panel.resize(QuickAccessWindowManager::contentSize);
    panel.show();
    QImage image = pictureOf(panel);
    for (auto _ : state) {
        auto* view = new QuickAccessView(context, [] {});
        panel.setRootView(view);
        view->appear();
        paint(panel, image);
    }
}
BENCHMARK(freshViewToPicture)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

void preparedViewToPicture(benchmark::State& state) {
    ModelContext& context = Library::ofSize(state.range(0));
    QuickAccessPanel panel;
    panel.resize(QuickAccessWindowManager::contentSize);
    panel.show();
    QImage image = pictureOf(panel);
    for (auto _ : state) {
        state.PauseTiming();
        auto* view = new QuickAccessView(context, [] {});
        panel.setRootView(view);
        state.ResumeTiming();
        view->appear();
        paint(panel, image);
    }
}
BENCHMARK(preparedViewToPicture)->Arg(10'000)->Unit(benchmark::kMicrosecond);

void searchKeyToPicture(benchmark::State& state) {
    QuickAccessPanel panel;
    panel.resize(QuickAccessWindowManager::contentSize);
    auto* view = new QuickAccessView(Library::ofSize(10'000), [] {});
    panel.setRootView(view);
    view->appear();
    panel.show();
    QImage image = pictureOf(panel);
    const QString text = state.range(0) == 0 ? QStringLiteral("e") : QStringLiteral("number 77");
    for (auto _ : state) {
        view->searchRow()->field()->setText(text);
        paint(panel, image);
        state.PauseTiming();
        view->searchRow()->field()->setText(QString());
        state.ResumeTiming();
    }
}
BENCHMARK(searchKeyToPicture)->ArgName("few")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// What each key costs beyond the search: the heights of all rows, for bodies of 300 characters in one script.
void rowHeights(benchmark::State& state) {
    const QString word = state.range(0) == 0   ? QStringLiteral("examination ")
                         : state.range(0) == 1 ? QStringLiteral("рассмотрение ")
                                               : QStringLiteral("この変更を注意深く確認してください。");
    const Prompt prompt(QStringLiteral("Title"), word.repeated(30).left(300));
    const QuickAccessRow::Metrics metrics = QuickAccessRow::Metrics::current();
    for (auto _ : state)
        for (int i = 0; i < 10'000; ++i)
            benchmark::DoNotOptimize(QuickAccessRow::heightFor(prompt, 662, metrics));
}
BENCHMARK(rowHeights)->ArgName("script")->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace Quillstacks

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir folder;
    QApplication application(argc, argv);
    Quillstacks::Preferences preferences(folder.filePath(QStringLiteral("preferences.json")));
    Quillstacks::Preferences::setStandard(&preferences);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    Quillstacks::Library::all().clear();
    Quillstacks::Preferences::setStandard(nullptr);
    return 0;
}
