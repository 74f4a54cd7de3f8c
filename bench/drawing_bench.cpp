#include "platform/drawing/glyph_mask_cache.h"
#include "platform/drawing/line_printer.h"
#include "platform/drawing/scroll_surface.h"
#include "platform/rich_text/rich_text_box.h"

#include <QPainter>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <stdexcept>
#include <vector>

using namespace velmora;

namespace {

constexpr QRgb PaperColor = 0xff000000u;

struct Screen final {
    int width;
    int height;
};

Screen screenOf(const benchmark::State& state) {
    return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
}

void screens(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"w", "h"})->Args({1920, 1080})->Args({3840, 2160});
}

/// Rows of the text area: 10 above and 9 below belong to the margins.
int textRows(const Screen& screen) {
    return screen.height - 19;
}

ScrollSurface filledRing(const Screen& screen, const Surface& line) {
    ScrollSurface ring;
    ring.resize(screen.width, textRows(screen), PaperColor);
    for (int row = 0; row < ring.rows(); ++row)
        ring.writeRow(row, line, 0, row % line.height());
    return ring;
}

/// A row's move as the whole picture copied onto itself, one row higher: what a step would cost
/// without the ring.
void BM_SelfCopy(benchmark::State& state) {
    const Screen screen = screenOf(state);
    Surface picture(screen.width, screen.height);
    for (auto _ : state) {
        picture.BitBlt(0, 10, screen.width, screen.height - 20, picture, 0, 11);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_SelfCopy)->Apply(screens);

/// The same move in the ring: one row written, the origin moved.
void BM_RingStep(benchmark::State& state) {
    const Screen screen = screenOf(state);
    const Surface line(screen.width, 131);
    ScrollSurface ring = filledRing(screen, line);
    for (auto _ : state) {
        const std::int64_t incoming = ring.top() + ring.rows();
        ring.writeRow(incoming, line, 0, static_cast<int>(incoming % line.height()));
        ring.setTop(ring.top() + 1);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_RingStep)->Apply(screens);

void BM_PaintFrame(benchmark::State& state) {
    const Screen screen = screenOf(state);
    ScrollSurface ring = filledRing(screen, Surface(screen.width, 131));
    QImage window(screen.width, screen.height, QImage::Format_RGB32);
    QPainter painter(&window);
    for (auto _ : state) {
        ring.setTop(ring.top() + 7);
        ring.paint(painter, 0, 10, window.rect());
    }
}
BENCHMARK(BM_PaintFrame)->Apply(screens)->Unit(benchmark::kMicrosecond);

/// The finished picture of a line, mirrored for the speaker's display.
void BM_MirrorLine(benchmark::State& state) {
    const Screen screen = screenOf(state);
    const Surface line(screen.width, screen.height / 8);
    Surface mirrored(line.width(), line.height());
    for (auto _ : state) {
        mirrored.StretchBlt(line.width(), 0, -line.width(), line.height(), line, 0, 0, line.width(),
                            line.height());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_MirrorLine)->Apply(screens)->Unit(benchmark::kMicrosecond);

/// The bulletin at the widest column, and how a display of a width shows it.
class ScriptLines final {
public:
    explicit ScriptLines(int width) : m_zoom((width - 59) / 301.34), m_surface(width, 1) {
        m_box.setWrapWidth(298);
        if (!m_box.LoadFile(QStringLiteral(VELMORA_EXAMPLES_DIR "/bulletin.rtf"), FileFormat::Rtf))
            throw std::runtime_error("examples/bulletin.rtf could not be read");
        m_lines = m_box.lineMetrics(m_box.lineCount());
        m_box.setZoom(m_zoom);
    }

    [[nodiscard]] std::size_t count() const { return m_lines.size(); }

    /// What the display does for a line when its first row comes in.
    double renderMilliseconds(std::size_t line, GlyphMaskCache& cache) {
        PrintBox box;
        box.width = m_surface.width();
        box.rowHeight = static_cast<int>(m_box.lineHeight(static_cast<int>(line)));
        box.zoom = m_zoom;
        const auto start = std::chrono::steady_clock::now();
        m_surface.resize(m_surface.width(), box.rowHeight);
        m_surface.fill(PaperColor);
        printLine(m_surface, m_box.styledText(m_lines[line].index, m_lines[line].length), box,
                  cache);
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
            .count();
    }

private:
    double m_zoom;
    Surface m_surface;
    RichTextBox m_box;
    std::vector<RichTextBox::LineMetrics> m_lines;
};

/// The value below which a share of the values lies; sorts them.
double shareOf(std::vector<double>& values, double share) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(
        std::lround(share * static_cast<double>(values.size() - 1)))];
}

/// Renders all lines of the bulletin, once a turn. The counters tell of single lines: of each its
/// median over the turns, so that a busy machine does not count as a slow line.
void renderLines(benchmark::State& state, bool cold) {
    ScriptLines lines(static_cast<int>(state.range(0)));
    std::vector<std::vector<double>> turns(lines.count());
    auto cache = std::make_unique<GlyphMaskCache>();
    for (std::size_t i = 0; i < lines.count(); ++i)
        lines.renderMilliseconds(i, *cache);
    for (auto _ : state) {
        if (cold)
            cache = std::make_unique<GlyphMaskCache>();
        for (std::size_t i = 0; i < lines.count(); ++i)
            turns[i].push_back(lines.renderMilliseconds(i, *cache));
    }
    std::vector<double> medians;
    medians.reserve(turns.size());
    for (std::vector<double>& ofLine : turns)
        medians.push_back(shareOf(ofLine, 0.5));
    state.counters["lines"] = static_cast<double>(lines.count());
    state.counters["p50_ms"] = shareOf(medians, 0.5);
    state.counters["p95_ms"] = shareOf(medians, 0.95);
    state.counters["max_ms"] = shareOf(medians, 1);
    state.counters["cache_mb"] = static_cast<double>(cache->bytes()) / (1024 * 1024);
}

void BM_LineRenderWarm(benchmark::State& state) {
    renderLines(state, false);
}
BENCHMARK(BM_LineRenderWarm)->ArgName("w")->Arg(1920)->Arg(3840)->Unit(benchmark::kMillisecond);

/// Every turn begins with an empty cache: its first lines make all their masks.
void BM_LineRenderCold(benchmark::State& state) {
    renderLines(state, true);
}
BENCHMARK(BM_LineRenderCold)->ArgName("w")->Arg(1920)->Arg(3840)->Unit(benchmark::kMillisecond);

} // namespace
