#include "platform/drawing/glyph_mask_cache.h"
#include "platform/drawing/line_printer.h"
#include "platform/drawing/scroll_surface.h"
#include "platform/rich_text/document_layout.h"
#include "platform/rich_text/fragment_document.h"

#include <QPainter>
#include <QTextLayout>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstring>

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

StyledText run(const char* text, const char* font, int halfPoints, const char* styles = "",
               Rgb24 color = White, Rgb24 backColor = 0) {
    StyledText result{QString::fromUtf8(text), {}};
    CharacterFormat& format = result.format;
    format.fontName = QString::fromLatin1(font);
    format.halfPoints = halfPoints;
    format.color = color;
    format.backColor = backColor;
    format.bold = std::strchr(styles, 'b') != nullptr;
    format.italic = std::strchr(styles, 'i') != nullptr;
    format.underline = std::strchr(styles, 'u') != nullptr;
    return result;
}

std::vector<std::vector<StyledText>> mixedParagraphs() {
    constexpr const char* Sans = "Liberation Sans";
    constexpr const char* Serif = "Liberation Serif";
    return {
        {run("^----", Sans, 24, "", 0x00ff00)},
        {run("Good evening, and welcome. ", Sans, 24), run("Tonight: ", Sans, 24, "b", 0x00ffff),
         run("the harbour bridge opens after eleven years of work, the council votes on the "
             "timetable of the night trains, and a school finds its bell again.",
             Sans, 24)},
        {run("~The bridge. ", Serif, 40, "bu", 0x0080ff),
         run("At half past six this morning the first lorry crossed, ", Serif, 28),
         run("slowly", Serif, 28, "i"), run(", as its driver told us, ", Serif, 28),
         run("“because everybody waved”.", Serif, 28, "i", 0xffc0c0),
         run(" Three hundred people had waited since before the dawn.", Serif, 28)},
        {run("Señor Núñez, à Liège: «L'été où Zoë chanta Für Élise»; ", Serif, 24),
         run("naïve façades, Ærø, Łódź, Çeşme and Škofja Loka.", Sans, 22, "i")},
        {run("STAND BY FOR THE LIVE CALL", Sans, 48, "b", White, 0x0000a0),
         run(" in ten, ", Sans, 48), run("nine", Sans, 48, "u", 0x00ffff, 0x604000)},
        {run("The small print of the weather: winds of up to 70 km/h on the coast, rain from the "
             "west, 12 to 14 degrees, clearing by Friday; the bathing season is over.",
             Serif, 18)},
    };
}

struct Line final {
    std::vector<StyledText> runs;
    int rowHeight = 0;
};

/// Breaks the paragraphs at the widest column margin's full width, as the editor does.
std::vector<Line> scriptLines(double zoom) {
    constexpr double WrapUnits = 298 * DocumentLayout::UnitsPerPixel;
    std::vector<Line> lines;
    for (const auto& paragraph : mixedParagraphs()) {
        QString text;
        QList<QTextLayout::FormatRange> ranges;
        for (const StyledText& part : paragraph) {
            ranges.append({static_cast<int>(text.size()), static_cast<int>(part.text.size()),
                           toTextFormat(part.format)});
            text += part.text;
        }
        QTextLayout layout(text);
        layout.setFormats(ranges);
        QTextOption option;
        option.setUseDesignMetrics(true);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(WrapUnits);
            Line result{{}, static_cast<int>(line.height() * zoom / DocumentLayout::UnitsPerPixel)};
            for (qsizetype i = 0; i < ranges.size(); ++i) {
                const int from = std::max(line.textStart() - ranges[i].start, 0);
                const int to = line.textStart() + line.textLength() - ranges[i].start;
                const StyledText& part = paragraph[static_cast<std::size_t>(i)];
                if (to > from && from < part.text.size())
                    result.runs.push_back({part.text.mid(from, to - from), part.format});
            }
            lines.push_back(result);
        }
        layout.endLayout();
    }
    return lines;
}

double renderMilliseconds(const Line& line, Surface& surface, double zoom, GlyphMaskCache& cache) {
    PrintBox box;
    box.width = surface.width();
    box.rowHeight = line.rowHeight;
    box.zoom = zoom;
    const auto start = std::chrono::steady_clock::now();
    surface.resize(surface.width(), line.rowHeight);
    surface.fill(PaperColor);
    printLine(surface, line.runs, box, cache);
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

/// The value below which a share of the values lies; sorts them.
double shareOf(std::vector<double>& values, double share) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(
        std::lround(share * static_cast<double>(values.size() - 1)))];
}

/// Renders all lines of the script, once a turn. The counters tell of single lines: of each its
/// median over the turns, so that a busy machine does not count as a slow line.
void renderLines(benchmark::State& state, bool cold) {
    const int width = static_cast<int>(state.range(0));
    const double zoom = (width - 59) / 301.34;
    const std::vector<Line> lines = scriptLines(zoom);
    std::vector<std::vector<double>> turns(lines.size());
    Surface surface(width, 1);
    auto cache = std::make_unique<GlyphMaskCache>();
    for (const Line& line : lines)
        renderMilliseconds(line, surface, zoom, *cache);
    for (auto _ : state) {
        if (cold)
            cache = std::make_unique<GlyphMaskCache>();
        for (std::size_t i = 0; i < lines.size(); ++i)
            turns[i].push_back(renderMilliseconds(lines[i], surface, zoom, *cache));
    }
    std::vector<double> medians;
    for (std::vector<double>& ofLine : turns)
        medians.push_back(shareOf(ofLine, 0.5));
    state.counters["lines"] = static_cast<double>(lines.size());
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
