#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// Each test program gets folders of its own, so that no test can touch the library of the person who runs it.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QTemporaryDir home;
    for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
        qputenv(name, home.path().toUtf8());
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", home.path().toUtf8());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
