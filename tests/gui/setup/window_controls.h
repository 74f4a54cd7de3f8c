#pragma once

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
