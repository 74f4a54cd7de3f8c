#include "display/rehearsal.h"

#include "controllers/speed_mapping.h"
#include "core/command_line.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "display/display_geometry.h"
#include "display/rehearsal_figures.h"
#include "display/script_preparation.h"
#include "display/show_hand_over.h"
#include "display/show_observer.h"
#include "editor/script_conventions.h"
#include "editor/script_loader.h"
#include "editor/unattended_host.h"
#include "platform/files/whole_file.h"
#include "platform/timing/clock.h"
#include "platform/timing/process_usage.h"

#include <QBuffer>
#include <QFileInfo>
#include <QJsonDocument>
#include <QPixmap>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace velmora {

namespace {

constexpr int ReportedLines = 40;
constexpr double MicrosecondsPerSecond = 1e6;

/// Starts the show, measures it, takes the picture half-way and leaves at the end.
class Rehearsal final : public ShowObserver {
public:
    Rehearsal(Session& session, const RehearsalArguments& arguments)
        : m_session(session), m_arguments(arguments) {}

    void showPrepared(const ShowTables& tables, const DisplayGeometry& geometry,
                      QWidget& window) override {
        m_window = &window;
        m_figures.screenWidth = window.width();
        m_figures.screenHeight = window.height();
        const RichTextBox& rtb1 = m_session.script.rtb1;
        m_figures.lines = static_cast<int>(tables.lineTable.size());
        m_figures.rows = tables.ScriptPixelHeight;
        m_figures.lastScrollRow = tables.LastScrollRow;
        for (const LineEntry& line : tables.lineTable) {
            if (m_figures.firstLines.size() == ReportedLines) {
                break;
            }
            m_figures.firstLines.append(rtb1.Text().mid(line.index, line.length));
        }
        predict(tables, geometry.textRows());
    }

    void loopStarted() override {
        m_session.show.AwaitingStart = 0;
        m_session.show.PauseState = 0;
        m_start = m_session.platform.clock.counter();
        m_usageAtStart = processUsage().cpuSeconds;
        if (m_arguments.forSeconds) {
            const auto wholeMs = static_cast<int>(*m_arguments.forSeconds * 1000);
            QTimer::singleShot(wholeMs, Qt::PreciseTimer, &m_timerContext,
                               [this] { m_session.show.ExitRequested = 1; });
            QTimer::singleShot(wholeMs / 2, &m_timerContext, [this] { takePicture(); });
        }
    }

    void stepDone(const StepRecord& step) override {
        const std::int64_t now = m_session.platform.clock.counter();
        if (m_figures.steps == 0) {
            m_firstStep = now;
        }
        m_lastStep = now;
        ++m_figures.steps;
        m_figures.paints += step.painted ? 1 : 0;
        m_late.add(inMicroseconds(step.lateTicks));
        m_compose.add(inMicroseconds(step.composeTicks));
        if (m_figures.steps == m_stepsPredicted / 2) {
            takePicture();
        }
    }

    void limitReached() override {
        m_runEnd = m_session.platform.clock.counter();
        m_session.show.ExitRequested = 1;
    }

    void loopEnded() override {
        const ProcessUsage usage = processUsage();
        m_figures.cpuSeconds = usage.cpuSeconds - m_usageAtStart;
        m_figures.peakRssKb = usage.peakRssKb;
        // A timed show keeps to its time whatever a picture costs; a steered one stands meanwhile.
        const std::int64_t actual = timed() ? std::max(m_runEnd, m_lastStep) - m_start
                                            : m_lastStep - m_firstStep - m_pictureTicks;
        m_figures.secondsActual = inMicroseconds(actual) / MicrosecondsPerSecond;
        m_figures.lateMicroseconds = m_late.spread();
        m_figures.composeMicroseconds = m_compose.spread();
        // A script that never moved has its picture taken where it stands.
        takePicture();
    }

    [[nodiscard]] RehearsalFigures figures() const {
        RehearsalFigures figures = m_figures;
        const Settings& settings = m_session.settings;
        figures.script = m_arguments.script;
        figures.range = isFullRange(settings.ScrollSpeedControl) ? QStringLiteral("full")
                                                                 : QStringLiteral("split");
        figures.speed = settings.ScrollSpeed;
        figures.turbo = settings.ScrollerTurbo == 1;
        figures.mirror = settings.MirrorMode;
        figures.secondsSet = timed() ? settings.TimedDisplaySeconds : 0;
        return figures;
    }
    [[nodiscard]] const QPixmap& picture() const { return m_picture; }
    [[nodiscard]] bool tookPlace() const { return m_figures.lines > 0; }

private:
    [[nodiscard]] bool timed() const { return m_session.settings.TimedDisplay != 0; }

    void predict(const ShowTables& tables, int textRows) {
        const Settings& settings = m_session.settings;
        const SpeedDelayTable delays =
            buildSpeedDelayTable(settings.Delay, settings.ScrollSpeedControl);
        const std::int64_t rowsToMove = tables.scanTable.rowCount() - textRows;
        m_stepsPredicted = std::max<std::int64_t>(0, rowsToMove / std::max(1, settings.RowStep));
        if (timed()) {
            m_figures.secondsPredicted = settings.TimedDisplaySeconds;
            return;
        }
        m_figures.secondsPredicted =
            static_cast<double>(std::max<std::int64_t>(0, m_stepsPredicted - 1)) *
            speedDelayMs(delays, settings.ScrollSpeed) / 1000.0;
    }

    void takePicture() {
        if (m_picture.isNull() && m_window && !m_arguments.picture.isEmpty()) {
            // The show stands meanwhile, and its time does not count.
            const std::int64_t start = m_session.platform.clock.counter();
            m_picture = m_window->grab();
            m_pictureTicks = m_session.platform.clock.counter() - start;
        }
    }

    [[nodiscard]] double inMicroseconds(std::int64_t ticks) const {
        return static_cast<double>(ticks) * MicrosecondsPerSecond /
               static_cast<double>(m_session.platform.clock.frequency());
    }

    Session& m_session;
    const RehearsalArguments& m_arguments;
    RehearsalFigures m_figures;
    QObject m_timerContext;
    QPointer<QWidget> m_window;
    QPixmap m_picture;
    Samples m_late;
    Samples m_compose;
    std::int64_t m_stepsPredicted = 0;
    std::int64_t m_start = 0;
    std::int64_t m_runEnd = 0;
    std::int64_t m_firstStep = 0;
    std::int64_t m_lastStep = 0;
    std::int64_t m_pictureTicks = 0;
    double m_usageAtStart = 0;
};

bool complain(const QString& path, const QString& reason) {
    std::fprintf(stderr, "velmora: %s: %s\n", qPrintable(path), qPrintable(reason));
    return false;
}

bool writeOut(const QString& path, const QByteArray& bytes) {
    const Outcome written = writeWholeFile(path, bytes);
    return written ? true : complain(path, written.reason());
}

bool writeReport(const QString& path, const RehearsalFigures& figures) {
    return path.isEmpty() || writeOut(path, QJsonDocument(figures.toJson()).toJson());
}

bool writePicture(const QString& path, const QPixmap& picture) {
    QBuffer png;
    return path.isEmpty() || (picture.save(&png, "PNG") && writeOut(path, png.data()));
}

} // namespace

int runRehearsal(Session& session, const RehearsalArguments& arguments) {
    UnattendedHost host(session);
    RichTextBox& rtb1 = session.script.rtb1;
    applyEditorDefaults(session);
    rtb1.setWrapWidth(wrapWidthForMargin(session.settings.ColumnMargin));
    const Outcome loaded = ScriptLoader(session, host, nullptr).loadUnattended(arguments.script);
    if (!loaded) {
        std::fprintf(stderr, "velmora: %s\n", qPrintable(loaded.reason()));
        return EXIT_FAILURE;
    }
    session.show.StartFromCursor = 0;
    session.show.StartPosition = 0;
    Rehearsal rehearsal(session, arguments);
    ShowHandOver handOver(session, host);
    handOver.setObserver(&rehearsal);
    handOver.RunPrompter();
    if (!rehearsal.tookPlace()) {
        std::fprintf(stderr,
                     "velmora: no show took place: %s holds no text, or its display is "
                     "not available.\n",
                     qPrintable(arguments.script));
        return EXIT_FAILURE;
    }
    const RehearsalFigures figures = rehearsal.figures();
    std::fputs(qPrintable(figures.toTable()), stdout);
    const bool reported = writeReport(arguments.report, figures);
    const bool pictured = writePicture(arguments.picture, rehearsal.picture());
    return reported && pictured ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace velmora
