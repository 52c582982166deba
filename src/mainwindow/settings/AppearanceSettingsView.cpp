#include "AppearanceSettingsView.h"

#include "interface/AppearanceMode.h"
#include "interface/Label.h"
#include "interface/SegmentedPicker.h"
#include "interface/TextStyle.h"

#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace Quillstacks {
namespace {

struct Entry {
    AppearanceMode mode;
    const char* label;
    const char* symbol;
};

constexpr std::array entries = {Entry{AppearanceMode::system, "System", "circle.lefthalf.filled"},
                                Entry{AppearanceMode::light, "Light", "sun.max.fill"},
                                Entry{AppearanceMode::dark, "Dark", "moon.fill"}};

std::vector<SegmentedPicker::Segment> segments() {
    std::vector<SegmentedPicker::Segment> result;
    for (const Entry& entry : entries)
        result.push_back({QString::fromLatin1(entry.label), QString::fromLatin1(entry.symbol)});
    return result;
}

} // namespace

AppearanceSettingsView::AppearanceSettingsView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("AppearanceSettingsView"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Label(QStringLiteral("Appearance"), TextStyle::headline));
    column->addSpacing(3);
    auto* hint = new Label(QStringLiteral("Choose how Quillstacks looks."), TextStyle::caption, ColorRole::text2);
    hint->setMaximumLines(0);
    column->addWidget(hint);
    column->addSpacing(12);
    // In line with the recorder in the card beside, whose hint takes a second line, but no lower where that card has
    // more to say.
    auto* secondLine = new QWidget;
    secondLine->setMaximumHeight(textLineHeight(TextStyle::caption));
    column->addWidget(secondLine, 1);
    picker = new SegmentedPicker(QStringLiteral("Appearance"), segments());
    picker->setSize(SegmentedPicker::Size::field);
    column->addWidget(picker);
    column->addStretch(); // what is left then

    showMode();
    appearanceModePreference().observe(this, [this] { showMode(); });
    connect(picker, &SegmentedPicker::selectionChanged, this,
            [](int index) { appearanceModePreference().set(entries.at(static_cast<std::size_t>(index)).mode); });
}

void AppearanceSettingsView::showMode() {
    const auto at = std::ranges::find(entries, appearanceModePreference().value(), &Entry::mode);
    picker->setSelection(static_cast<int>(at - entries.begin()));
}

} // namespace Quillstacks
