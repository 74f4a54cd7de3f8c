#include "setup/editor_defaults.h"

#include "core/colour_tables.h"
#include "gui/setup/window_controls.h"
#include "support/modal_action.h"
#include "widgets/colour_palette.h"
#include "widgets/font_name_combo.h"
#include "widgets/font_size_combo.h"

#include <QPlainTextEdit>
#include <QSlider>

namespace velmora {
namespace {

class Form12Test : public SetupWindowTest<Form12> {
protected:
    [[nodiscard]] QPlainTextEdit& sample() const {
        return control<QPlainTextEdit>(*form, u"Text1"_qs);
    }
    [[nodiscard]] QSlider& slider() const { return control<QSlider>(*form, u"Hscroll1"_qs); }
    template<typename Combo> void choose(const char16_t* name, const QString& text) {
        auto& combo = control<Combo>(*form, QString::fromUtf16(name));
        combo.setCurrentIndex(combo.findText(text));
        Q_EMIT combo.activated(combo.currentIndex());
    }
    /// What is really painted: the background, which is in the corner, or what else is there.
    [[nodiscard]] QColor background() const { return sample().grab().toImage().pixelColor(0, 0); }
    [[nodiscard]] bool paints(const QColor& colour) const {
        const QImage picture = sample().grab().toImage();
        for (int i = 0; i < picture.width() * picture.height(); ++i) {
            if (picture.pixelColor(i % picture.width(), i / picture.width()) == colour) {
                return true;
            }
        }
        return false;
    }
    void changeEverything() {
        click(*form, u"SC5"_qs);
        click(*form, u"TC7"_qs);
        choose<FontNameCombo>(u"Combo1", u"DejaVu Sans"_qs);
        choose<FontSizeCombo>(u"Combo2", u"48"_qs);
        slider().setValue(200);
    }
};

TEST_F(Form12Test, ASwatchColoursTheSampleFromItsTable) {
    open();
    for (int number = 1; number <= ColourCount; ++number) {
        const RgbParts dark = SplitRgb(darkColour(number));
        const RgbParts bright = SplitRgb(brightColour(number));
        for (const bool screen : {true, false}) {
            const QString name = (screen ? u"SC%1"_qs : u"TC%1"_qs).arg(number);
            auto& swatch = control<QAbstractButton>(*form, name);
            EXPECT_EQ(swatch.accessibleName(),
                      (screen ? u"screen colour %1"_qs : u"text colour %1"_qs).arg(number));
            // What the user sees in the square is what the sample takes.
            const QColor square = swatch.grab().toImage().pixelColor(swatch.rect().center());
            click(*form, name);
            const RgbParts& parts = screen ? dark : bright;
            EXPECT_EQ(square, QColor(parts.red, parts.green, parts.blue)) << number;
            EXPECT_TRUE(screen ? background() == square : paints(square)) << number;
            EXPECT_EQ(form->focusWidget(), &sample());
        }
    }
}

TEST_F(Form12Test, TheSampleIsTheEditorsColumnAtAScaleAndStaysInTheMiddle) {
    settings.ColumnMargin = 160;
    test.monitors.rectangles = {QRect(-1920, 0, 1920, 1080), QRect(0, 0, 1920, 1080)};
    open();
    EXPECT_LT(form->geometry().right(), 0) << "on display 1";
    EXPECT_EQ(slider().value(), 160);
    const double scale = 0.45 * test.session.screen.ScaleX;
    const int W = slider().width();
    EXPECT_NEAR(W, scale * (640 - 12), 1);
    for (const int margin : {12, 13, 160, 319, 320}) {
        slider().setValue(margin);
        QCoreApplication::processEvents();
        EXPECT_NEAR(sample().width(), W - (margin - 12) * scale, 1) << margin;
        EXPECT_NEAR(sample().x(), (W - sample().width()) / 2.0 + slider().x(), 1) << margin;
    }
    slider().setValue(12);
    EXPECT_EQ(sample().width(), W);
}

TEST_F(Form12Test, OnlySaveStoresTheChoices) {
    const auto stored = [this] {
        return std::tuple(settings.ScreenBackColor, settings.ScreenTextColor,
                          settings.ScreenFontName, settings.ScreenFontSize, settings.ColumnMargin);
    };
    const auto before = stored();
    for (const WayOut& way : waysOut()) {
        open();
        changeEverything();
        way.act(*form);
        EXPECT_FALSE(form->isVisible()) << way.what;
        EXPECT_EQ(stored(), before) << way.what;
    }
    open();
    const int smallSize = sample().font().pixelSize();
    changeEverything();
    EXPECT_EQ(sample().font().family(), u"DejaVu Sans"_qs);
    EXPECT_NEAR(sample().font().pixelSize(), smallSize * 48.0 / 26, 1);
    click(*form, u"Save"_qs);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(stored(), std::tuple(double{rgb(128, 0, 128)}, double{rgb(255, 255, 0)},
                                   u"DejaVu Sans"_qs, 48, 200));
}

TEST_F(Form12Test, WhateverIsStoredIsShownAndSavedAgain) {
    struct Row final {
        int points;
        QString name;
        int margin;
        int marginShown;
    };
    const Row rows[] = {{0, u"No Such Font"_qs, -5, 12},
                        {-32768, QString(), 32767, 320},
                        {32767, u"Arial"_qs, 0, 12}};
    for (const Row& row : rows) {
        settings.ScreenFontSize = row.points;
        settings.ScreenFontName = row.name;
        settings.ColumnMargin = row.margin;
        settings.ScreenBackColor = -1;
        settings.ScreenTextColor = 1e300;
        open();
        EXPECT_EQ(background(), QColor(Qt::black));
        click(*form, u"Save"_qs);
        EXPECT_EQ(settings.ScreenFontSize, row.points);
        EXPECT_EQ(settings.ScreenFontName, row.name);
        EXPECT_EQ(settings.ColumnMargin, row.marginShown);
    }
}

TEST(Form29, GivesBackTheChoiceAndNothingForExit) {
    TestSession test;
    const std::pair<const char16_t*, int> swatches[] = {{u"SC1", 1},  {u"SC8", 8},  {u"TC1", 9},
                                                        {u"TC8", 16}, {u"TB1", 17}, {u"TB3", 19},
                                                        {u"TB8", 24}};
    Form29 palette(test.session, nullptr);
    for (const auto& [name, choice] : swatches) {
        const ModalAction user(
            [name = name](QWidget& window) { click(window, QString::fromUtf16(name)); });
        EXPECT_EQ(palette.choose(QPoint(40, 40)), choice);
    }
    for (const WayOut& way : waysOut()) {
        const ModalAction user([&](QWidget& window) { way.act(window); });
        EXPECT_EQ(palette.choose(QPoint(99999, -99999)), 0) << way.what;
        EXPECT_FALSE(user.expired()) << way.what;
        EXPECT_TRUE(palette.screen()->geometry().contains(palette.frameGeometry()));
    }
    EXPECT_EQ(control<QAbstractButton>(palette, u"TB3"_qs).accessibleName(),
              u"text background colour 3"_qs);
}

} // namespace
} // namespace velmora
