// The least that a program with a window of ours' size can be: the peer for start and memory.
#include <QApplication>
#include <QWidget>

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    QWidget window;
    window.resize(1280, 800);
    window.setWindowTitle(QStringLiteral("Empty"));
    window.show();
    return QApplication::exec();
}
