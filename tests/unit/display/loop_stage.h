#pragma once

#include "display/show_loop.h"
#include "display/show_navigation.h"
#include "support/fake_presenter.h"
#include "support/fake_show_screen.h"
#include "support/quiet_observer.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <memory>

namespace velmora {

inline constexpr int TextRows = 101;
inline constexpr int LineHeight = 10;

/// What a loop works with, over a script of equal lines, on the fake clock.
class LoopStage : public ::testing::Test {
protected:
    /// A show of so many lines from its beginning; may be called again after one.
    void prepare(int lines, int leadInRows = 0) {
        show = ShowState();
        tables = ShowTables();
        screen = FakeShowScreen();
        presenter.steps = 0;
        QStringList text;
        for (int line = 0; line < lines; ++line) {
            text.append(QString::number(line));
        }
        RichTextBox& rtb1 = t.session.script.rtb1;
        rtb1.setText(text.join(u"\r\n"_qs));
        int index = 0;
        for (const QString& line : text) {
            tables.lineTable.push_back({index, static_cast<int>(line.size())});
            index += static_cast<int>(line.size()) + 2;
        }
        tables.scanTable =
            ScanTable(std::vector<int>(static_cast<std::size_t>(lines), LineHeight), leadInRows);
        tables.ScriptPixelHeight = tables.scanTable.rowCount();
        tables.LastScrollRow = tables.ScriptPixelHeight - 1;
        FrameSource source;
        source.rtb2 = &rtb1;
        source.tables = &tables;
        source.WindowWidth = 8;
        source.textRows = TextRows;
        composer.begin(source);
        composer.addOutput(ring, Orientation::Plain);
        t.clock.setTicksPerRead(0);
        t.pump.setPumpMicroseconds(0);
        t.pump.setEveryPump([this] { watch(); });
        navigation = std::make_unique<ShowNavigation>(
            ShowNavigation::Parts{t.session, tables, composer, screen, presenter, TextRows});
    }

    /// The picture must follow ScrollRow at every moment at which a handler could look.
    void watch() {
        if (screen.shown > 0) {
            ASSERT_EQ(ring.top(), navigation->topRow());
        }
    }

    /// Seconds count from the last run's end.
    void at(double seconds, FakeEventPump::Action act) {
        t.pump.at(begin + seconds, std::move(act));
    }
    /// Runs a loop over the parts and notes how long it lasted.
    template<typename Loop> void run(Loop& loop) {
        loop.run();
        lasted = t.clock.secondsSinceStart() - begin;
        begin += lasted;
    }
    ShowLoopParts parts(LoopHousekeeping::Measured measured) {
        return {t.session,           screen,   tables,   composer, *navigation, presenter,
                [this] { ++polls; }, measured, &observer};
    }
    TestSession t;
    ShowState& show = t.session.show;
    Settings& settings = t.session.settings;
    FakeShowScreen screen;
    FakePresenter presenter;
    QuietObserver observer;
    ShowTables tables;
    ScrollSurface ring;
    GlyphMaskCache masks;
    FrameComposer composer{masks};
    std::unique_ptr<ShowNavigation> navigation;
    double lasted = 0;
    double begin = 0;
    int polls = 0;
};

} // namespace velmora
