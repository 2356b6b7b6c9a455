// An empty Qt main window: the baseline for the program's start-up time and memory. With an
// argument, it shows that text in a label and a menu: the cost of fonts and menus in any program.

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
