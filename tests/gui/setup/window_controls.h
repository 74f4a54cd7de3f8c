#pragma once

#include "core/settings.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

#include <functional>

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
