#include "app/look.h"
#include "core/screen_scale.h"
#include "gui/setup/window_controls.h"
#include "setup/caption_port.h"
#include "setup/controller_choice.h"
#include "setup/display_options.h"
#include "setup/editor_defaults.h"
#include "setup/two_button_page.h"
#include "support/accessible_names.h"
#include "support/test_session.h"
#include "widgets/colour_palette.h"

#include <QComboBox>
#include <QDialog>
#include <QListWidget>

#include <memory>

namespace velmora {
namespace {

/// The room that a control's text needs; none for a control without text of its own.
QSize neededRoom(const QWidget& widget) {
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label != nullptr && label->wordWrap()) {
        return {label->minimumSizeHint().width(), label->heightForWidth(label->width())};
    }
    if (const auto* list = qobject_cast<const QListWidget*>(&widget)) {
        const QSize frame = list->size() - list->viewport()->size();
        return QSize(list->sizeHintForColumn(0), list->sizeHintForRow(0) * list->count()) + frame;
    }
    const bool hasText = label != nullptr || qobject_cast<const QAbstractButton*>(&widget) ||
                         qobject_cast<const QComboBox*>(&widget);
    return hasText ? widget.sizeHint() : QSize(0, 0);
}

/// The names of the visible controls that do not show the whole of their text.
std::string clipped(const QWidget& window) {
    QString names;
    const auto widgets = window.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        const QSize needed = neededRoom(*widget);
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        const bool fits = needed.width() <= place.width() && needed.height() <= place.height() &&
                          (needed.isEmpty() || window.rect().contains(place));
        if (widget->isVisibleTo(&window) && !fits) {
            names += widget->objectName() + u' ';
        }
    }
    return names.toStdString();
}

TEST(SetupWindows, FitTheScreenAndClipNoText) {
    const QFont fontBefore = QApplication::font();
    const QPalette paletteBefore = QApplication::palette();
    for (const QSize size :
         {QSize(1280, 720), QSize(1920, 1080), QSize(3840, 2160), QSize(1080, 1920)}) {
        TestSession test;
        test.monitors.rectangles = {QRect(QPoint(), size)};
        measureScreen(test.session);
        applyLook(*qApp, test.session.screen);
        test.session.settings.CCActive = 1;
        test.session.settings.CCPort = 10;
        test.session.settings.CCSpeed = 13;
        QWidget main;
        main.setStyleSheet(mainWindowStyle(test.session.screen));
        const std::unique_ptr<QWidget> windows[] = {
            std::make_unique<Form8>(test.session, &main),
            std::make_unique<Form12>(test.session, &main),
            std::make_unique<Form29>(test.session, &main),
            std::make_unique<Form3>(test.session, &main),
            std::make_unique<Form30>(test.session, &main),
            std::make_unique<TwoButtonPage>(test.session.settings, nullptr),
        };
        windows[5]->setStyleSheet(main.styleSheet());
        windows[5]->setWindowTitle(u"a page"_qs);
        // Less the frame and a panel.
        const QSize room = size - QSize(40, 80);
        const auto check = [&](QWidget& window) {
            QCoreApplication::processEvents();
            const std::string what =
                window.objectName().toStdString() + " on " + std::to_string(size.width());
            EXPECT_EQ(clipped(window), "") << what;
            EXPECT_EQ(unnamedControls(window), "") << what;
            EXPECT_LE(window.width(), room.width()) << what;
            EXPECT_LE(window.height(), room.height()) << what;
        };
        for (const auto& window : windows) {
            window->show();
            check(*window);
        }
        click(*windows[3], u"ShuttleXpress"_qs);
        check(*windows[3]);
    }
    QApplication::setFont(fontBefore);
    QApplication::setPalette(paletteBefore);
}

} // namespace
} // namespace velmora
