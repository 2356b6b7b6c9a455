// An empty Qt main window: the baseline for the program's start-up time and memory. With an
// argument, it shows that text in a label and a menu: the cost of fonts and menus in any program.
// With a rate as well, the label counts in large type: the cost of a clock in any program.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QTime>
#include <QTimer>

#include <cstdlib>

namespace {

void count(QLabel& label, int rate) {
    auto font = label.font();
    font.setPixelSize(100);
    label.setFont(font);
    auto* frames = new QTimer(&label);
    frames->setTimerType(Qt::PreciseTimer);
    QObject::connect(frames, &QTimer::timeout, &label, [&label, rate, frame = 0]() mutable {
        ++frame;
        label.setText(QTime(0, 0).addSecs(frame / rate).toString(QStringLiteral("HH:mm:ss:")) +
                      QStringLiteral("%1").arg(frame % rate, 2, 10, QLatin1Char('0')));
    });
    frames->start(1000 / rate);
}

} // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QMainWindow window;
    if (argc > 1) {
        const auto text = QString::fromLocal8Bit(argv[1]);
        auto* label = new QLabel(text);
        window.setCentralWidget(label);
        window.menuBar()->addMenu(text);
        if (argc > 2)
            count(*label, std::atoi(argv[2]));
    }
    window.resize(760, 300);
    window.show();
    return QApplication::exec();
}
