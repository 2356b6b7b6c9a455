// A Qt main window with nothing in it: what the program's start-up and memory are measured against.
// With an argument it shows that as text, in a label and a menu: what fonts and menus cost anybody.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QMainWindow window;
    if (argc > 1) {
        const auto text = QString::fromLocal8Bit(argv[1]);
        window.setCentralWidget(new QLabel(text));
        window.menuBar()->addMenu(text);
    }
    window.resize(760, 300);
    window.show();
    return QApplication::exec();
}
