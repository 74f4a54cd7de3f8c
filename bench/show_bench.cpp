#include "app/unattended_machine.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "display/display_geometry.h"
#include "display/font_scale.h"
#include "display/frame_composer.h"
#include "display/script_preparation.h"
#include "display/show_hand_over.h"
#include "display/show_observer.h"
#include "display/text_window.h"
#include "editor/script_conventions.h"
#include "editor/unattended_host.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QWindow>

#include <stdexcept>

using namespace velmora;

namespace {

/// A bulletin's worth of text, repeated to so many paragraphs of one or two display lines.
QString longText(int lines) {
    QString text;
    for (int line = 0; line < lines; ++line) {
        text += line % 40 == 0 ? QStringLiteral("^----\r\n")
                               : QStringLiteral("Line %1 read\r\n").arg(line);
    }
    text.chop(2);
    return text;
}

/// A script prepared for a display: what a show has in hand when its loop begins.
class PreparedShow final {
public:
    PreparedShow(int width, int height) : PreparedShow(width, height, 0) {}
    /// lines above 0: a long plain script; else the bulletin of the examples.
    PreparedShow(int width, int height, int lines) {
        box.setDefaultFormat({QStringLiteral("Arial"), 52, White});
        box.setWrapWidth(wrapWidthForMargin(12));
        if (lines > 0) {
            box.setText(longText(lines));
        } else if (!box.LoadFile(QStringLiteral(VELMORA_EXAMPLES_DIR "/bulletin.rtf"),
                                 FileFormat::Rtf)) {
            throw std::runtime_error("examples/bulletin.rtf could not be read");
        }
        scale = fitScriptScale(box.TextRTF(), width).FontScale;
        geometry = layOutDisplay({width, height, box.wrapWidth(), scale, 0});
        prepare();
    }

    void prepare() {
        tables = prepareScript(box, {std::min(box.lineCount(), MaxScriptLines), scale, 26, 0}, {});
    }
    void begin() {
        FrameSource source;
        source.rtb2 = &box;
        source.tables = &tables;
        source.FontScale = scale;
        source.WindowWidth = geometry.WindowWidth();
        source.textRows = geometry.textRows();
        composer.begin(source);
        composer.addOutput(surface, Orientation::Plain);
    }
    [[nodiscard]] std::int64_t lastTop() const {
        return tables.LastScrollRow - geometry.textRows();
    }

    RichTextBox box;
    double scale = 1;
    DisplayGeometry geometry;
    ShowTables tables;
    GlyphMaskCache masks;
    FrameComposer composer{masks};
    ScrollSurface surface;
};

/// Screens, and on the smaller one scripts of which one has ten times the rows of the other.
void screensAndScripts(benchmark::internal::Benchmark* bench) {
    bench->Args({1920, 1080, 0})->Args({3840, 2160, 0});
    bench->Args({1920, 1080, 3200})->Args({1920, 1080, 32000});
}

void screens(benchmark::internal::Benchmark* bench) {
    bench->Args({1920, 1080})->Args({3840, 2160});
}

void lineCounts(benchmark::internal::Benchmark* bench) {
    bench->Arg(1000)->Arg(10000)->Arg(32000)->Unit(benchmark::kMillisecond);
}

/// A step as the loop takes it: look-up, new row, ring; the lines that it renders on the way
/// included.
void BM_WholeStep(benchmark::State& state) {
    PreparedShow show(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                      static_cast<int>(state.range(2)));
    show.begin();
    std::int64_t top = 0;
    show.composer.showTop(0);
    for (auto _ : state) {
        if (++top > show.lastTop()) {
            state.PauseTiming();
            top = 0;
            show.composer.showTop(0);
            state.ResumeTiming();
        }
        show.composer.showTop(top);
    }
}
BENCHMARK(BM_WholeStep)->Apply(screensAndScripts);

/// The window's picture brought to the screen's back buffer.
void BM_PresentedFrame(benchmark::State& state) {
    PreparedShow show(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    show.begin();
    TextWindow window;
    window.resize(show.geometry.Picture1.size());
    show.composer.addOutput(window.surface(), Orientation::Plain);
    show.composer.showTop(0);
    window.show();
    while (!window.windowHandle()->isExposed()) {
        QCoreApplication::processEvents();
    }
    for (auto _ : state) {
        window.surface().setTop(window.surface().top() + 1);
        window.repaint();
    }
    state.counters["frames/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_PresentedFrame)->Apply(screens)->Unit(benchmark::kMillisecond);

void BM_Preparation(benchmark::State& state) {
    PreparedShow show(1920, 1080, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        show.prepare();
    }
    state.counters["table_bytes"] = static_cast<double>(
        show.tables.scanTable.bytes() + show.tables.lineTable.capacity() * sizeof(LineEntry));
}
BENCHMARK(BM_Preparation)->Apply(lineCounts);

/// The first picture with an empty glyph cache.
void BM_FirstFillCold(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        PreparedShow show(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
        show.begin();
        state.ResumeTiming();
        show.composer.showTop(0);
    }
}
BENCHMARK(BM_FirstFillCold)->Apply(screens)->Unit(benchmark::kMillisecond);

/// A jump to somewhere else in the script, the whole window drawn anew.
void BM_Reposition(benchmark::State& state) {
    PreparedShow show(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    show.begin();
    const std::int64_t distance = std::int64_t{3} * show.geometry.textRows();
    std::int64_t top = 0;
    for (auto _ : state) {
        top = (top + distance) % std::max<std::int64_t>(1, show.lastTop());
        show.composer.showTop(top);
    }
}
BENCHMARK(BM_Reposition)->Apply(screens)->Unit(benchmark::kMillisecond);

/// Leaves as soon as the loop has drawn its first picture.
class LeaveAtOnce final : public ShowObserver {
public:
    explicit LeaveAtOnce(Session& session) : m_session(session) {}
    void showPrepared(const ShowTables&, const DisplayGeometry&, QWidget&) override {}
    void loopStarted() override { m_session.show.ExitRequested = 1; }
    void stepDone(const StepRecord&) override {}
    void limitReached() override {}
    void loopEnded() override {}

private:
    Session& m_session;
};

/// From the Start command to the first picture and back: an upper bound of the former.
void BM_StartToFirstPicture(benchmark::State& state) {
    UnattendedMachine machine;
    Session session(machine.platform);
    measureScreen(session);
    session.displays.CmdDisplaysGiven = 1;
    session.displays.CmdDisplay1Width = static_cast<int>(state.range(1));
    session.displays.CmdDisplay1Height = static_cast<int>(state.range(2));
    applyEditorDefaults(session);
    session.script.rtb1.setWrapWidth(wrapWidthForMargin(12));
    session.script.rtb1.setText(longText(static_cast<int>(state.range(0))));
    UnattendedHost host(session);
    ShowHandOver handOver(session, host);
    LeaveAtOnce observer(session);
    handOver.setObserver(&observer);
    for (auto _ : state) {
        handOver.RunPrompter();
    }
}
BENCHMARK(BM_StartToFirstPicture)
    ->Args({1000, 1920, 1080})
    ->Args({10000, 1920, 1080})
    ->Args({32000, 1920, 1080})
    ->Args({32000, 3840, 2160})
    ->Unit(benchmark::kMillisecond);

} // namespace
