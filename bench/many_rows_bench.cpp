// A paste and an import of 100,000 rows in the window: the time from the command until the rows are
// shown, and the longest time without taking input.
// Argument: the number of times each is done, by default 9. The worst of them is printed as well.

#include "app/MainWindow.h"
#include "app/TimerfdRunLoop.h"
#include "bench/window_commands.h"
#include "controls/ImportPanel.h"
#include "controls/VexaBatchTableView.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/none/NoMidiSystem.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QMimeData>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

constexpr std::uint64_t rowCount = 100'000;

QByteArray rowsText(QChar delimiter) {
    QString text;
    for (std::uint64_t row = 0; row < rowCount; ++row)
        text += QStringList{QString::number(row / 10),
                            u"Reel %1 of the archive"_s.arg(row, 6),
                            u"01:00:00:00"_s,
                            u"01:10:00:00"_s,
                            u"25"_s,
                            u"MTC"_s}
                    .join(delimiter) +
                u'\n';
    return text.toUtf8();
}

struct Window {
    Window() {
        controller.applicationDidFinishLaunching();
        window.connectTo(controller, Vexa_MIDI_Manager::sharedMidiManager());
        window.show();
        table.setFocus(); // otherwise Paste is for the time
        QCoreApplication::processEvents();
    }

    TimerfdRunLoop runLoop;
    MainWindow window;
    Vexa_RemoteAppDelegate controller{window.outlets(), runLoop};
    VexaBatchTableView& table = *window.findChild<VexaBatchTableView*>();
};

struct Times {
    std::vector<double> whole;
    std::vector<double> still;
};

double milliseconds(const QElapsedTimer& clock) {
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

/// Lets events be handled until the rows are in the window, and notes for how long the window was
/// still at most. `step` is called in between, also while a dialog is open.
void measure(Window& window, Times& times, const std::function<void()>& act,
             const std::function<bool()>& step) {
    const auto& list = window.controller.batchStripeData();
    const auto filled = list.numItems() + rowCount;
    QElapsedTimer whole;
    QElapsedTimer since;
    double still = 0;
    bool hasBegun = false;
    QTimer pulse;
    QObject::connect(&pulse, &QTimer::timeout, [&] {
        if (!hasBegun) {
            hasBegun = step();
            whole.start();
        } else {
            still = std::max(still, milliseconds(since));
            step();
        }
        since.start();
    });
    pulse.start(0);
    act();
    while (list.numItems() != filled)
        QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    window.window.repaint();
    still = std::max(still, milliseconds(since));
    times.whole.push_back(milliseconds(whole));
    times.still.push_back(still);
}

void undo(Window& window) {
    window.controller.undo();
    QCoreApplication::processEvents();
}

void paste(Window& window, Times& times) {
    bool isChosen = false;
    measure(
        window, times, [] {},
        [&] {
            if (!std::exchange(isChosen, true))
                QTimer::singleShot(0, &window.window,
                                   [&] { choose(window.window, u"&Edit"_s, u"&Paste"_s); });
            return true;
        });
}

void copyFromElsewhere() {
    auto* data = new QMimeData;
    data->setData(u"text/tab-separated-values"_s, rowsText(u'\t'));
    QApplication::clipboard()->setMimeData(data);
}

void copyAll(const Window& window) {
    window.table.selectAll();
    choose(window.window, u"&Edit"_s, u"&Copy"_s);
}

/// The operator adds the rows as soon as the panel lets them.
void import(Window& window, Times& times, const QString& path) {
    measure(
        window, times, [&] { choose(window.window, u"&File"_s, u"&Import…"_s); },
        [&path] {
            auto* dialog = QApplication::activeModalWidget();
            if (auto* files = qobject_cast<QFileDialog*>(dialog)) {
                files->selectFile(path);
                QMetaObject::invokeMethod(files, "accept", Qt::QueuedConnection);
                return true;
            }
            if (auto* panel = qobject_cast<ImportPanel*>(dialog)) {
                for (auto* button : panel->findChildren<QPushButton*>())
                    if (button->isDefault() && button->isEnabled())
                        button->click();
            }
            return false;
        });
}

void print(const char* what, Times times) {
    for (auto* figures : {&times.whole, &times.still})
        std::ranges::sort(*figures);
    const auto middle = times.whole.size() / 2;
    std::printf("| %s | %.0f | %.0f | %.0f | %.0f |\n", what, times.whole[middle],
                times.whole.back(), times.still[middle], times.still.back());
}

} // namespace

int main(int argc, char* argv[]) {
    const QTemporaryDir directory;
    qputenv("XDG_CONFIG_HOME", directory.path().toLocal8Bit());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int times = argc > 1 ? std::atoi(argv[1]) : 9;
    NoMidiSystem midi;
    Vexa_MIDI_Manager::setMidiSystem(&midi);
    QFile file(directory.filePath(u"rows.csv"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(rowsText(u',')) < 0)
        return 1;
    file.close();

    Window window;
    Times pastes;
    Times duplicates;
    Times imports;
    for (int i = 0; i < times; ++i) {
        copyFromElsewhere();
        paste(window, pastes);
        copyAll(window);
        paste(window, duplicates);
        undo(window);
        undo(window);
        import(window, imports, file.fileName());
        undo(window);
    }
    std::printf("## 100,000 rows into the window, in ms, of %d times\n\n"
                "Aim: a paste under 300, an import under 1000, the window never still for more "
                "than 100.\n\n"
                "| command | p50 | max | window still p50 | max |\n|---|---|---|---|---|\n",
                times);
    print("Paste of another program's rows", pastes);
    print("Paste of the window's own rows beside them", duplicates);
    print("Import", imports);
}
