// A Qt main window with nothing in it: what the program's start-up and memory are measured against.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(760, 300);
    window.show();
    return QApplication::exec();
}
