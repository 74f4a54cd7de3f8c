#include "app/look.h"
#include "core/screen_scale.h"
#include "gui/setup/window_controls.h"
#include "setup/caption_port.h"
#include "setup/controller_choice.h"
#include "setup/display_options.h"
#include "setup/editor_defaults.h"
#include "setup/two_button_page.h"
#include "support/test_session.h"
#include "widgets/colour_palette.h"

#include <QComboBox>
#include <QDialog>
#include <QListWidget>

#include <memory>

namespace velmora {
namespace {

/// Controls whose text does not fit the room that they got.
QStringList clipped(const QWidget& window) {
    QStringList names;
    const auto widgets = window.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const bool hasText = label != nullptr || qobject_cast<const QAbstractButton*>(widget) ||
                             qobject_cast<const QComboBox*>(widget);
        if (!hasText || !widget->isVisibleTo(&window)) {
            continue;
        }
        const bool wraps = label != nullptr && label->wordWrap();
        const QSize needed =
            wraps
                ? QSize(widget->minimumSizeHint().width(), widget->heightForWidth(widget->width()))
                : widget->minimumSizeHint().expandedTo(label != nullptr ? widget->sizeHint()
                                                                        : QSize());
        const bool inside =
            window.rect().contains(QRect(widget->mapTo(&window, QPoint()), widget->size()));
        if (!inside || needed.width() > widget->width() || needed.height() > widget->height()) {
            names += widget->objectName() + u' ' + (label != nullptr ? label->text() : QString());
        }
    }
    return names;
}

/// Lists that hide some of their rows.
int listsTooSmall(const QWidget& window) {
    int count = 0;
    const auto lists = window.findChildren<QListWidget*>();
    for (QListWidget* list : lists) {
        const QRect last = list->visualItemRect(list->item(list->count() - 1));
        const bool fits = list->viewport()->rect().contains(last.topLeft()) &&
                          last.bottom() <= list->viewport()->rect().bottom() &&
                          list->sizeHintForColumn(0) <= list->viewport()->width();
        count += list->isVisibleTo(&window) && !fits ? 1 : 0;
    }
    return count;
}

TEST(SetupWindows, FitTheScreenAndClipNoText) {
    const QFont fontBefore = QApplication::font();
    const QPalette paletteBefore = QApplication::palette();
    for (const QSize size : {QSize(1280, 720), QSize(1920, 1080), QSize(3840, 2160)}) {
        TestSession test;
        test.monitors.rectangles = {QRect(QPoint(), size)};
        measureScreen(test.monitors, test.session.screen);
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
        const QSize room = size - QSize(40, 80);
        const auto check = [&](const QWidget& window) {
            QCoreApplication::processEvents();
            const std::string what =
                window.objectName().toStdString() + " on " + std::to_string(size.width());
            EXPECT_EQ(clipped(window).join(u'\n').toStdString(), "") << what;
            EXPECT_EQ(listsTooSmall(window), 0) << what;
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
