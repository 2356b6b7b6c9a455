#include "app/MainWindow.h"
#include "app/TimerfdRunLoop.h"
#include "controls/VexaBatchTableView.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "interchange/read_rows.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/none/NoMidiSystem.h"

#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <utility>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

constexpr std::uint64_t rows = 100'000;

/// The program's window with a long list. Each benchmark undoes its changes.
struct Window {
    Window() {
        controller.applicationDidFinishLaunching();
        window.connectTo(controller, Vexa_MIDI_Manager::sharedMidiManager());
        BatchItems items;
        for (std::uint64_t row = 0; row < rows; ++row)
            items.push_back(std::make_shared<BatchItem>(
                BatchItem{row / 10, u"Reel %1 of the archive"_s.arg(row, 6), 0x01000000 + row % 10,
                          0x02000000, row % 4, row % 3, row}));
        controller.batchStripeData().replaceBatchList(std::move(items));
        table.reloadData();
        controller.handleBatchControlEnabling();
        window.show();
        settle();
    }

    /// Finishes all work that the operator would wait for, including painting.
    void settle() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        window.repaint();
    }

    /// The first half of the rows or, worse, every other row.
    void selectHalf(bool everyOther) {
        const auto* model = table.model();
        const int half = model->rowCount() / 2;
        QItemSelection selection;
        if (everyOther)
            for (int row = 0; row < half; ++row)
                selection.append({model->index(2 * row, 0), model->index(2 * row, 5)});
        else
            selection.append({model->index(0, 0), model->index(half - 1, 5)});
        table.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
        settle();
    }

    void undo() {
        controller.undo();
        settle();
    }

    TimerfdRunLoop runLoop;
    MainWindow window;
    Vexa_RemoteAppDelegate controller{window.outlets(), runLoop};
    VexaBatchTableView& table = *window.findChild<VexaBatchTableView*>();
};

/// Measures the operator's wait; reports the longest beside the mean.
void measure(
    benchmark::State& state, const std::function<void(Window&)>& act,
    const std::function<void(Window&)>& prepare = [](Window&) {}) {
    Window window;
    double worst = 0;
    for ([[maybe_unused]] auto _ : state) {
        prepare(window);
        const auto start = std::chrono::steady_clock::now();
        act(window);
        window.settle();
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(took.count());
        worst = std::max(worst, took.count());
    }
    state.counters["worst_ms"] = worst * 1e3;
}

void firstPaint(benchmark::State& state) {
    measure(state, [](Window& w) { w.table.reloadData(); });
}

void scrollAPage(benchmark::State& state) {
    measure(state, [](Window& w) {
        w.table.verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
    });
}

void jumpToTheItemUnderWay(benchmark::State& state) {
    measure(
        state,
        [](Window& w) {
            w.table.markItem(w.controller.batchStripeData().batchList().back(),
                             StripeMark::underWay);
        },
        [](Window& w) { w.table.scrollToTop(); });
}

void selectAll(benchmark::State& state) {
    measure(
        state, [](Window& w) { w.table.selectAll(); }, [](Window& w) { w.table.clearSelection(); });
}

void deleteHalf(benchmark::State& state) {
    bool deleted = false;
    measure(
        state, [](Window& w) { w.controller.handleDeleteRows(); },
        [&](Window& w) {
            if (std::exchange(deleted, true))
                w.undo();
            w.selectHalf(state.range(0) != 0);
        });
}

void undoTheDeletion(benchmark::State& state) {
    measure(
        state, [](Window& w) { w.controller.undo(); },
        [&](Window& w) {
            w.selectHalf(state.range(0) != 0);
            w.controller.handleDeleteRows();
            w.settle();
        });
}

void addAnItem(benchmark::State& state) {
    measure(state, [](Window& w) {
        w.controller.addItemToBatchList(5000, u"added"_s, {0x01000000, 0x02000000, 2, 0});
    });
}

/// What a paste of many rows keeps the window busy with, when they have been read.
void addReadRows(benchmark::State& state) {
    QString text;
    for (std::uint64_t row = 0; row < rows; ++row)
        text += u"%1\tReel %1 of the archive\t01:00:00:00\t01:10:00:00\t25\tMTC\n"_s.arg(row / 10);
    const auto read = readRows(text, {});
    bool added = false;
    measure(
        state,
        [&](Window& w) {
            w.controller.changeItems({}, itemsOfRows(read, w.controller.batchStripeData()),
                                     u"Paste"_s);
        },
        [&](Window& w) {
            if (std::exchange(added, true))
                w.undo();
        });
}

void often(benchmark::internal::Benchmark* benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);
}
void seldom(benchmark::internal::Benchmark* benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
}
void halves(benchmark::internal::Benchmark* benchmark) {
    seldom(benchmark->ArgName("every_other_row")->Arg(0)->Arg(1));
}

BENCHMARK(firstPaint)->Apply(seldom);
BENCHMARK(scrollAPage)->Apply(often);
BENCHMARK(jumpToTheItemUnderWay)->Apply(often);
BENCHMARK(selectAll)->Apply(seldom);
BENCHMARK(deleteHalf)->Apply(halves);
BENCHMARK(undoTheDeletion)->Apply(halves);
BENCHMARK(addAnItem)->Apply(seldom);
BENCHMARK(addReadRows)->Apply(seldom);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    NoMidiSystem midi;
    Vexa_MIDI_Manager::setMidiSystem(&midi);
    benchmark::RunSpecifiedBenchmarks();
}
