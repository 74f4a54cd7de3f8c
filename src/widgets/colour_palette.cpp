#include "widgets/colour_palette.h"

#include "core/colour_tables.h"
#include "core/session.h"
#include "widgets/colour_swatch.h"
#include "widgets/push_button.h"

#include <QGridLayout>
#include <QLabel>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace velmora {

namespace {
/// Swatches side by side; two such lines make a block.
constexpr int Columns = 4;
} // namespace

Form29::Form29(Session& session, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("Form29"));
    setWindowTitle(QStringLiteral("Colors"));
    const int em = fontMetrics().height();
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(em, em / 2, em, em);
    grid->setSpacing(em / 4);
    // What the headings take beyond the swatches lies behind these.
    grid->setColumnStretch(Columns, 1);
    int line = 0;
    for (int row = 0; row < SwatchRowCount; ++row) {
        grid->setRowMinimumHeight(line, 2 * em);
        grid->addWidget(new QLabel(swatchRow(row).heading.toString(), this), line++, 0, 1,
                        Columns + 1, Qt::AlignBottom);
        for (int number = 1; number <= ColourCount; ++number) {
            ColourSwatch* swatch = makeSwatch(swatchRow(row), number, this);
            grid->addWidget(swatch, line + (number - 1) / Columns, (number - 1) % Columns);
            connect(swatch, &ColourSwatch::clicked, this, [this, row, number] {
                ColourChoice = row * ColourCount + number;
                accept();
            });
        }
        line += ColourCount / Columns;
    }
    grid->setRowMinimumHeight(line++, em / 2);
    auto* exitButton = new CB(QStringLiteral("ExitButton"), QStringLiteral("Exit"), this);
    connect(exitButton, &CB::clicked, this, &Form29::ExitButton_Click);
    grid->addWidget(exitButton, line, 0, 1, Columns + 1);
    usePlainButtonsOnFewColours(*this, session.screen);
    grid->setSizeConstraint(QLayout::SetFixedSize);
}

int Form29::choose(const QPoint& topLeft) {
    ColourChoice = 0;
    adjustSize();
    move(topLeft);
    if (const QScreen* display = screen()) {
        // The frame is not known before the window is shown: a title's height is left for it.
        const int frame = style()->pixelMetric(QStyle::PM_TitleBarHeight);
        const QRect room =
            display->availableGeometry().adjusted(0, 0, -width() - frame, -height() - frame);
        move(std::clamp(x(), room.left(), std::max(room.left(), room.right())),
             std::clamp(y(), room.top(), std::max(room.top(), room.bottom())));
    }
    exec();
    return ColourChoice;
}

void Form29::ExitButton_Click() {
    reject();
}

} // namespace velmora
