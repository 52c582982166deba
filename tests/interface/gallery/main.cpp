// Every control in every state on one page, to be looked at beside the design:
//   gallery [dark|light] [picture.png] [alert]
// With a file name it saves its window there and ends. "alert" puts a sheet and an alert over the page.

#include "foundation/Preferences.h"
#include "Gallery.h"
#include "interface/AppearanceMode.h"
#include "interface/Style.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

using namespace Quillstacks;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    QTemporaryDir folder;
    Preferences preferences(folder.filePath(QStringLiteral("preferences.json")));
    Preferences::setStandard(&preferences);
    const bool light = arguments.value(1) == QLatin1String("light");
    appearanceModePreference().set(light ? AppearanceMode::light : AppearanceMode::dark);
    // The design's own type.
    QFont font(QStringLiteral("Inter"));
    font.setPointSizeF(10.5);
    QApplication::setFont(font);
    installStyle(application);
    Gallery gallery;
    gallery.show();
    if (arguments.value(3) == QLatin1String("alert"))
        gallery.showSheets();
    if (arguments.size() > 2) {
        QTimer::singleShot(900, &gallery, [&] {
            gallery.picture().save(arguments[2]);
            QApplication::quit();
        });
    }
    const int result = QApplication::exec();
    Preferences::setStandard(nullptr);
    return result;
}
