#include "platform/rich_text/document_layout.h"
#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rtf_writer.h"

#include <benchmark/benchmark.h>

#include <random>

// The rich text control on scripts of 1,000 to 32,000 display lines: layout, loading, line tables
// and single keystrokes.

namespace velmora {
namespace {

constexpr double WrapPixels = 298;

std::vector<CharacterFormat> scriptFormats() {
    CharacterFormat plain{QStringLiteral("Arial"), 52, White};
    CharacterFormat bold = plain;
    bold.bold = true;
    CharacterFormat coloured = plain;
    coloured.color = 0x00FFFF;
    CharacterFormat serif = plain;
    serif.fontName = QStringLiteral("Liberation Serif");
    serif.halfPoints = 60;
    return {plain, bold, coloured, serif};
}

QString randomWord(std::mt19937& random) {
    const auto length = 2 + random() % 8;
    QString word;
    for (auto i = length; i > 0; --i) {
        word += QChar(u'a' + static_cast<char16_t>(random() % 26));
    }
    return word;
}

/// A paragraph of about three display lines; one in eight has a few words in another format.
Paragraph randomParagraph(std::mt19937& random) {
    Paragraph paragraph;
    const auto words = random() % 18;
    for (auto i = words; i > 0; --i) {
        const QString word = randomWord(random) + u' ';
        const int format = random() % 8 == 0 ? static_cast<int>(1 + random() % 3) : 0;
        paragraph.text += word;
        if (!paragraph.runs.empty() && paragraph.runs.back().format == format) {
            paragraph.runs.back().length += static_cast<int>(word.size());
        } else {
            paragraph.runs.push_back({static_cast<int>(word.size()), format});
        }
    }
    return paragraph;
}

/// A script with at least so many display lines, counted by a trial.
RichTextFragment script(int lines) {
    std::mt19937 random(7);
    RichTextFragment fragment;
    fragment.formats = scriptFormats();
    RichTextBox trial;
    trial.setWrapWidth(WrapPixels);
    while (true) {
        const auto missing = static_cast<size_t>(lines - (trial.isEmpty() ? 0 : trial.lineCount()));
        for (size_t i = 0; i < missing / 6 + 1; ++i) {
            fragment.paragraphs.push_back(randomParagraph(random));
        }
        trial.setFragment(fragment);
        if (trial.lineCount() >= lines) {
            return fragment;
        }
    }
}

const RichTextFragment& scriptOf(std::int64_t lines) {
    static std::map<std::int64_t, RichTextFragment> scripts;
    const auto [place, isNew] = scripts.try_emplace(lines);
    if (isNew) {
        place->second = script(static_cast<int>(lines));
    }
    return place->second;
}

void BM_Layout(benchmark::State& state) {
    RichTextBox box;
    box.setFragment(scriptOf(state.range(0)));
    double width = WrapPixels;
    for (auto _ : state) {
        box.setWrapWidth(width);
        benchmark::DoNotOptimize(box.lineCount());
        width = width == WrapPixels ? WrapPixels + 1 : WrapPixels;
    }
    state.counters["lines"] = box.lineCount();
}

/// Fragment to document, without and with its layout; the bytes are those of the script as RTF.
void loadIntoControl(benchmark::State& state, bool withLayout) {
    const RichTextFragment& fragment = scriptOf(state.range(0));
    RichTextBox box;
    for (auto _ : state) {
        state.PauseTiming();
        box.setText({});
        state.ResumeTiming();
        box.setFragment(fragment);
        if (withLayout) {
            benchmark::DoNotOptimize(box.lineCount());
        }
    }
    state.SetBytesProcessed(state.iterations() * writeRtf(fragment).size());
    state.counters["chars"] = box.textLength();
}

void BM_LoadIntoControl(benchmark::State& state) {
    loadIntoControl(state, false);
}

void BM_LoadAndLayOut(benchmark::State& state) {
    loadIntoControl(state, true);
}

/// Loading what is there already, as the start of a show does.
void BM_ReloadSame(benchmark::State& state) {
    const RichTextFragment& fragment = scriptOf(state.range(0));
    RichTextBox box;
    box.setFragment(fragment);
    for (auto _ : state) {
        box.setFragment(fragment);
        benchmark::DoNotOptimize(box.lineCount());
    }
}

void BM_FragmentOfControl(benchmark::State& state) {
    RichTextBox box;
    box.setFragment(scriptOf(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(box.fragment());
    }
}

void BM_LineMetrics(benchmark::State& state) {
    RichTextBox box;
    box.setFragment(scriptOf(state.range(0)));
    (void)box.Text();
    const int lines = box.lineCount();
    for (auto _ : state) {
        benchmark::DoNotOptimize(box.lineMetrics(lines));
    }
}

/// A letter typed and its line asked for, with the document's height, as a view does; in the next
/// iteration the letter taken away, likewise. The time is the mean of the two keystrokes.
void keystroke(benchmark::State& state, double place) {
    RichTextBox box;
    box.setFragment(scriptOf(state.range(0)));
    (void)box.lineCount();
    const int position = static_cast<int>(box.textLength() * place);
    box.setSelStart(position);
    bool isTyped = false;
    for (auto _ : state) {
        if (isTyped) {
            box.setSelLength(0);
            box.select(box.SelStart() - 1, box.SelStart());
            box.setSelText({});
        } else {
            box.setSelText(QStringLiteral("x"));
        }
        isTyped = !isTyped;
        benchmark::DoNotOptimize(box.GetLineFromChar(box.SelStart()));
        benchmark::DoNotOptimize(box.layout().height());
    }
}

/// A letter in the middle of a single paragraph of so many lines: it is laid out as a whole.
void BM_KeystrokeInOneParagraph(benchmark::State& state) {
    RichTextBox box;
    box.setText(QStringLiteral("a line of a song\v").repeated(state.range(0)));
    box.setSelStart(box.textLength() / 2);
    (void)box.lineCount();
    for (auto _ : state) {
        box.setSelText(QStringLiteral("x"));
        benchmark::DoNotOptimize(box.GetLineFromChar(box.SelStart()));
    }
}

/// To the control and back, each paragraph in a format that no other has.
void BM_ManyFormats(benchmark::State& state) {
    RichTextFragment fragment;
    for (int i = 0; i < static_cast<int>(state.range(0)); ++i) {
        fragment.formats.push_back(scriptFormats().front());
        fragment.formats.back().color = static_cast<Rgb24>(i);
        fragment.paragraphs.push_back({QStringLiteral("word"), {{4, i}}, i, {}});
    }
    RichTextBox box;
    for (auto _ : state) {
        state.PauseTiming();
        box.setText({});
        state.ResumeTiming();
        box.setFragment(fragment);
        benchmark::DoNotOptimize(box.fragment());
        box.selectAll();
        box.setSelBold(true);
    }
}

void registerAll() {
    const std::vector<std::int64_t> lines = {1000, 10000, 32000};
    const auto add = [&](const char* name, auto function) {
        auto* entry = benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond);
        for (const std::int64_t count : lines) {
            entry->Arg(count);
        }
    };
    add("BM_Layout", BM_Layout);
    add("BM_LoadIntoControl", BM_LoadIntoControl);
    add("BM_LoadAndLayOut", BM_LoadAndLayOut);
    add("BM_ReloadSame", BM_ReloadSame);
    add("BM_FragmentOfControl", BM_FragmentOfControl);
    add("BM_LineMetrics", BM_LineMetrics);
    add("BM_Keystroke/start", [](benchmark::State& state) { keystroke(state, 0); });
    add("BM_Keystroke/middle", [](benchmark::State& state) { keystroke(state, 0.5); });
    add("BM_Keystroke/end", [](benchmark::State& state) { keystroke(state, 1); });
    add("BM_KeystrokeInOneParagraph", BM_KeystrokeInOneParagraph);
    add("BM_ManyFormats", BM_ManyFormats);
}

const bool isRegistered = (registerAll(), true);

} // namespace
} // namespace velmora
