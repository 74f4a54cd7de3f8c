// Files far beyond any script: what a load of each costs in time and memory, and a key behind it.

#include "app/unattended_machine.h"
#include "core/session.h"
#include "editor/script_conventions.h"
#include "editor/script_loader.h"
#include "editor/unattended_host.h"
#include "platform/rich_text/rich_text_view.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTimer>

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace velmora {
namespace {

QByteArray words(int bytes) {
    return QByteArray("some words of a line that never ends, and ").repeated(bytes / 42);
}

QByteArray rtf(const QByteArray& text) {
    return "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs52 " + text + "}";
}

QByteArray manyFormats() {
    QByteArray table = "{\\colortbl ;";
    QByteArray text;
    for (int i = 0; i < 60'000; ++i) {
        table += "\\red" + QByteArray::number(i & 0xFF) + "\\green" + QByteArray::number(i >> 8) +
                 "\\blue9;";
        text += "\\cf" + QByteArray::number(i + 1) + "\\fs" + QByteArray::number(2 + i % 1000) +
                " word ";
    }
    return rtf(table + "}" + text);
}

struct Giant final {
    const char* name;
    const char* ending;
    QByteArray (*make)();
};

const Giant Giants[] = {
    {"one_line_10MB", "txt", [] { return words(10'000'000); }},
    {"runs_39MB", "rtf",
     [] { return rtf(QByteArray("\\b some a\\b0  word ").repeated(1'900'000)); }},
    {"runs_39MB_in_lines", "rtf",
     [] {
         return rtf(
             (QByteArray("\\b some a\\b0  word ").repeated(10) + "\\par ").repeated(180'000));
     }},
    {"formats", "rtf", manyFormats},
    {"marks_1MB", "txt", [] { return "a" + QByteArray("\xCC\x81").repeated(500'000); }},
    {"marks_10MB_apart", "txt", [] { return QByteArray("a\xCC\x81").repeated(3'500'000); }},
    {"rtf_200MB", "rtf",
     [] {
         return rtf(
             (QByteArray("some\\lang1033 words ").repeated(20) + "\\par\r\n").repeated(450'000));
     }},
    {"rtf_20MB_96pt", "rtf",
     [] { return "{\\rtf1\\fs192 " + (words(4200) + "\\par ").repeated(5'000) + "}"; }},
    {"lines_130000", "txt", [] { return QByteArray("a short line\n").repeated(130'000); }},
    {"lines_1000000", "txt", [] { return QByteArray("a short line\n").repeated(999'000); }},
    {"soft_lines_10000", "rtf",
     [] { return rtf(QByteArray("a line of a song\\line ").repeated(10'000)); }},
    {"soft_lines_1000", "rtf",
     [] { return rtf(QByteArray("a line of a song\\line ").repeated(1'000)); }},
};

double megabytesOfStatus(const char* key) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf(key) + static_cast<int>(qstrlen(key)))
               .trimmed()
               .split(' ')
               .front()
               .toDouble() /
           1000;
}

double seconds(std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

double longestGap(const std::vector<double>& beats) {
    constexpr double quiet = 0.9;
    double longest = 0;
    for (std::size_t i = 1; i < beats.size(); ++i) {
        longest = std::max(longest, beats[i - 1] < quiet ? beats[i] - std::max(beats[i - 1], quiet)
                                                         : beats[i] - beats[i - 1]);
    }
    return longest;
}

void BM_Giant(benchmark::State& state, const Giant& giant) {
    QTemporaryDir folder;
    const QString path =
        folder.filePath(QStringLiteral("giant.%1").arg(QLatin1String(giant.ending)));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        state.SkipWithError("no file");
        return;
    }
    file.write(giant.make());
    file.close();
    state.counters["MB"] = static_cast<double>(QFileInfo(path).size()) / 1e6;
    malloc_trim(0);
    QFile peak(QStringLiteral("/proc/self/clear_refs"));
    if (peak.open(QIODevice::WriteOnly)) {
        peak.write("5");
        peak.close();
    }
    const double before = megabytesOfStatus("VmRSS:");
    UnattendedMachine machine;
    Session session(machine.platform);
    applyEditorDefaults(session);
    RichTextBox& rtb1 = session.script.rtb1;
    RichTextView view(rtb1);
    view.resize(1900, 1000);
    view.show();
    UnattendedHost host(session, UnattendedHost::Notices::Nowhere);
    ScriptLoader loader(session, host, nullptr);
    // The longest time in which no window could live, once a load has shown its progress.
    QTimer heartbeat;
    std::vector<double> beats;
    auto loadBegan = std::chrono::steady_clock::now();
    heartbeat.callOnTimeout([&] { beats.push_back(seconds(loadBegan)); });
    heartbeat.start(0);
    for (auto _ : state) {
        loadBegan = std::chrono::steady_clock::now();
        loader.loadScript(path);
        state.counters["refused"] = rtb1.isEmpty() ? 1 : 0;
        state.counters["load_s"] = seconds(loadBegan);
        beats.push_back(seconds(loadBegan));
        state.counters["stall_s"] = longestGap(beats);
        heartbeat.stop();
        auto begin = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(rtb1.lineCount());
        state.counters["layout_s"] = seconds(begin);
        begin = std::chrono::steady_clock::now();
        QCoreApplication::processEvents();
        view.repaint();
        state.counters["paint_s"] = seconds(begin);
        state.counters["peak_MB"] = megabytesOfStatus("VmHWM:") - before;
        rtb1.setSelStart(rtb1.textLength() / 2);
        QCoreApplication::processEvents();
        double longest = 0;
        for (int key = 0; key < 3; ++key) {
            begin = std::chrono::steady_clock::now();
            QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
            QCoreApplication::sendEvent(&view, &press);
            QCoreApplication::processEvents();
            view.repaint();
            longest = std::max(longest, seconds(begin));
        }
        state.counters["key_s"] = longest;
        state.counters["after_MB"] = megabytesOfStatus("VmRSS:") - before;
    }
}

const bool registered = [] {
    for (const Giant& giant : Giants) {
        benchmark::RegisterBenchmark((std::string("BM_Giant/") + giant.name).c_str(),
                                     [&giant](benchmark::State& state) { BM_Giant(state, giant); })
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

} // namespace
} // namespace velmora
