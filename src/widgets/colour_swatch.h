#pragma once

#include "core/colour_tables.h"

#include <QAbstractButton>

#include <array>

namespace velmora {

/// A button that is a square of one colour. Space and Enter press it when it has the focus.
class ColourSwatch final : public QAbstractButton {
    Q_OBJECT
public:
    ColourSwatch(const QString& name, Rgb24 colour, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Rgb24 m_colour;
};

/// What a row of swatches is for.
struct SwatchRow final {
    /// Of the controls' names, SC1 to SC8, TC1 to TC8 or TB1 to TB8.
    QStringView prefix;
    /// What assistive programs read, with the number behind it: "screen colour 3".
    QStringView spoken;
    QStringView heading;
    const std::array<Rgb24, ColourCount>* table;
};

/// The rows of the system: the screen's colours, the text's, and those behind text.
inline constexpr int ScreenColours = 0;
inline constexpr int TextColours = 1;
inline constexpr int BackgroundColours = 2;
inline constexpr int SwatchRowCount = 3;
[[nodiscard]] const SwatchRow& swatchRow(int index);

/// The swatch of a row with this number, 1 to 8.
[[nodiscard]] ColourSwatch* makeSwatch(const SwatchRow& row, int number, QWidget* parent);

} // namespace velmora
