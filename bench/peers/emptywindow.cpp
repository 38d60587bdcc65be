// An empty program with one window, which shows it and ends.

#include <QApplication>
#include <QTimer>
#include <QWidget>

int main(int argc, char** argv) {
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
    QApplication application(argc, argv);
    QWidget window;
    window.show();
    QTimer::singleShot(0, &application, &QCoreApplication::quit);
    return QApplication::exec();
}
