// Reading and writing of RTF: scripts as an operator has them, a paragraph a line.

#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"

#include <benchmark/benchmark.h>

#include <random>

namespace velmora {
namespace {

/// Lines of 30 to 70 characters of words, most in one format; some bold or coloured words, accents,
/// markers and an empty line now and then.
RichTextFragment script(int lineCount) {
    RichTextFragment fragment;
    const CharacterFormat format{QStringLiteral("Arial"), 52, White};
    fragment.formats = {format, format, format};
    fragment.formats[1].bold = true;
    fragment.formats[2].color = 0x00FFFF;

    std::mt19937 random(7);
    const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
    const QString alphabet = QStringLiteral("etaoinshrdlucmfwypvbgkqjxz\u00e9\u00fc");
    for (int line = 0; line < lineCount; ++line) {
        Paragraph paragraph;
        const int length = below(12) == 0 ? 0 : 30 + below(40);
        while (paragraph.text.size() < length) {
            for (int letters = 1 + below(9); letters > 0; --letters) {
                paragraph.text += alphabet.at(below(below(20) == 0 ? 28 : 12));
            }
            paragraph.text += u' ';
        }
        const int size = static_cast<int>(paragraph.text.size());
        if (below(10) == 0 && size > 20) {
            paragraph.runs = {{10, 0}, {10, 1 + below(2)}, {size - 20, 0}};
        } else if (size > 0) {
            paragraph.runs = {{size, 0}};
        }
        fragment.paragraphs.push_back(std::move(paragraph));
    }
    return fragment;
}

void BM_RtfRead(benchmark::State& state) {
    const QByteArray rtf = writeRtf(script(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        benchmark::DoNotOptimize(readRtf(rtf));
    }
    state.SetBytesProcessed(state.iterations() * rtf.size());
}
BENCHMARK(BM_RtfRead)->Arg(1'000)->Arg(10'000)->Arg(32'000)->Unit(benchmark::kMillisecond);

void BM_RtfWrite(benchmark::State& state) {
    const RichTextFragment fragment = script(static_cast<int>(state.range(0)));
    qsizetype size = 0;
    for (auto _ : state) {
        size = writeRtf(fragment).size();
        benchmark::DoNotOptimize(size);
    }
    state.SetBytesProcessed(state.iterations() * size);
}
BENCHMARK(BM_RtfWrite)->Arg(1'000)->Arg(10'000)->Arg(32'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace velmora
