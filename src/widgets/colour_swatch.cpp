#include "widgets/colour_swatch.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace velmora {

namespace {

/// Names of the dark and of the bright table's colours, for the tool tips.
constexpr std::array<QStringView, ColourCount> DarkNames = {
    u"Black",       u"Dark Blue", u"Dark Cyan",   u"Dark Green",
    u"Dark Purple", u"Dark Red",  u"Dark Yellow", u"White"};
constexpr std::array<QStringView, ColourCount> BrightNames = {
    u"Black", u"Blue", u"Cyan", u"Green", u"Purple", u"Red", u"Yellow", u"White"};

} // namespace

ColourSwatch::ColourSwatch(const QString& name, Rgb24 colour, QWidget* parent)
    : QAbstractButton(parent), m_colour(colour) {
    setObjectName(name);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ColourSwatch::sizeHint() const {
    const int side = 2 * fontMetrics().height();
    return {side, side};
}

void ColourSwatch::paintEvent(QPaintEvent*) {
    const RgbParts parts = SplitRgb(m_colour);
    QPainter painter(this);
    const int line = std::max(1, height() / 24);
    const bool marked = hasFocus() || isDown() || underMouse();
    painter.fillRect(rect(), palette().color(marked ? QPalette::BrightText : QPalette::Mid));
    if (marked) {
        // A dark seam parts the mark from a colour that is as bright.
        painter.fillRect(rect().adjusted(2 * line, 2 * line, -2 * line, -2 * line), Qt::black);
    }
    const int border = marked ? 3 * line : line;
    painter.fillRect(rect().adjusted(border, border, -border, -border),
                     QColor(parts.red, parts.green, parts.blue));
}

void ColourSwatch::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

const SwatchRow& swatchRow(int index) {
    static constexpr std::array<SwatchRow, SwatchRowCount> rows = {
        SwatchRow{u"SC", u"screen colour", u"Screen Color", &DarkColours},
        SwatchRow{u"TC", u"text colour", u"Text Color", &BrightColours},
        SwatchRow{u"TB", u"text background colour", u"Text Background Color", &DarkColours},
    };
    return rows.at(static_cast<std::size_t>(index));
}

ColourSwatch* makeSwatch(const SwatchRow& row, int number, QWidget* parent) {
    const auto index = static_cast<std::size_t>(number - 1);
    const QString text = QString::number(number);
    auto* swatch = new ColourSwatch(row.prefix.toString() + text, row.table->at(index), parent);
    swatch->setAccessibleName(row.spoken.toString() + u' ' + text);
    swatch->setToolTip(
        (row.table == &BrightColours ? BrightNames : DarkNames).at(index).toString());
    return swatch;
}

} // namespace velmora
