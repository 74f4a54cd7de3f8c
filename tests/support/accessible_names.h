#pragma once

#include <QAccessible>
#include <QApplication>

namespace velmora {

/// Those of the window's controls that the keyboard or a click reaches, and the window itself, that
/// tell an assistive program no name or not what they are.
inline std::string unnamedControls(QWidget& window) {
    QString found;
    QWidgetList widgets = window.findChildren<QWidget*>();
    widgets.prepend(&window);
    for (QWidget* widget : widgets) {
        const bool isReached =
            widget->focusPolicy() != Qt::NoFocus && widget->focusProxy() == nullptr;
        const bool isPart = !widget->isWindow() && isReached && widget->isVisibleTo(&window);
        if (widget != &window && !isPart) {
            continue;
        }
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
        const bool hasRole = told != nullptr && told->role() != QAccessible::NoRole &&
                             (widget->isWindow() || told->role() != QAccessible::Client);
        if (!hasRole || told->text(QAccessible::Name).isEmpty()) {
            found += QStringLiteral("%1 %2 %3; ")
                         .arg(QString::fromLatin1(widget->metaObject()->className()),
                              widget->objectName(), QString::number(told ? told->role() : -1));
        }
    }
    return found.toStdString();
}

} // namespace velmora
