#pragma once

#include "app/look.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

#include <functional>
#include <optional>

namespace velmora {

/// The control of that name; a test cannot go on without it.
template<typename Control> Control& control(const QWidget& window, const QString& name) {
    auto* found = window.findChild<Control*>(name);
    if (found == nullptr) {
        throw std::runtime_error("no control " + name.toStdString());
    }
    return *found;
}

/// A real click with the mouse.
inline void click(const QWidget& window, const QString& name) {
    QTest::mouseClick(&control<QAbstractButton>(window, name), Qt::LeftButton);
}

inline QString labelText(const QWidget& window, const QString& name) {
    return control<QLabel>(window, name).text();
}

/// A window of the setup on fakes, opened with the settings that a test has set.
template<typename Form> class SetupWindowTest : public ::testing::Test {
protected:
    void open() {
        // As under the main window, whose style sheet holds for its dialogs.
        main.setStyleSheet(mainWindowStyle(test.session.screen));
        form.emplace(test.session, &main);
        form->show();
        QApplication::setActiveWindow(&*form);
    }
    void press(const QString& button) { click(*form, button); }

    TestSession test;
    Settings& settings = test.session.settings;
    QWidget main;
    std::optional<Form> form;
};

/// A setting that its button leads round: its values with their texts, "0 Off|1 On".
struct Cycle final {
    const char16_t* button;
    const char16_t* caption;
    const char16_t* label;
    int Settings::*setting;
    const char16_t* values;
};

/// Presses the button once round and one on; the setting must stand at its first value.
inline void leadRound(const QWidget& window, const Settings& settings, const Cycle& cycle) {
    const auto button = QString::fromUtf16(cycle.button);
    const QStringList values = QString::fromUtf16(cycle.values).split(u'|');
    EXPECT_EQ(control<QAbstractButton>(window, button).text(), QString::fromUtf16(cycle.caption));
    for (int press = 0; press <= values.size(); ++press) {
        const QString& value = values[press % values.size()];
        const QString shown = labelText(window, QString::fromUtf16(cycle.label));
        EXPECT_EQ(QString::number(settings.*cycle.setting) + u' ' + shown, value);
        click(window, button);
    }
}

/// A way out of a window, as a user takes it.
struct WayOut final {
    const char* what;
    std::function<void(QWidget&)> act;
};

inline std::vector<WayOut> waysOut() {
    return {
        {"Exit", [](QWidget& window) { click(window, u"ExitButton"_qs); }},
        {"Escape", [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }},
        {"frame", [](QWidget& window) { window.close(); }},
    };
}

} // namespace velmora
