#include "app/look.h"
#include "app/unattended_machine.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "setup/controller_choice.h"
#include "setup/display_options.h"
#include "setup/editor_defaults.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>

using namespace velmora;

namespace {

/// From the press of the button to a window that is shown and painted once.
template<typename Window> void openWindow(benchmark::State& state) {
    UnattendedMachine services;
    Session session(services.platform);
    session.screen = {1920, 1080, 3, 2.375, 32, 1};
    applyLook(*qApp, session.screen);
    QWidget main;
    main.setStyleSheet(mainWindowStyle(session.screen));
    for (auto _ : state) {
        Window window(session, &main);
        window.show();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(window.grab());
    }
}
BENCHMARK(openWindow<Form8>)->Name("open_display_options")->Unit(benchmark::kMillisecond);
BENCHMARK(openWindow<Form12>)->Name("open_editor_defaults")->Unit(benchmark::kMillisecond);
BENCHMARK(openWindow<Form3>)->Name("open_controller_choice")->Unit(benchmark::kMillisecond);

} // namespace
