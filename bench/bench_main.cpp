#include <benchmark/benchmark.h>

#include <QApplication>

#include <cstdio>

namespace {

/// The offscreen platform complains at every window that it cannot raise one: the table of results
/// would drown in it.
void tellAllButThePlatformsLacks(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith(u"This plugin does not support"))
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
}

} // namespace

/// The main function of the benchmarks: fonts, images and widgets need an application object, and
/// no screen is at hand where benchmarks run.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(tellAllButThePlatformsLacks);
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
