#include "support/modal_action.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

#include <utility>

namespace velmora {

namespace {
constexpr int LookEveryMs = 5;
constexpr int MaxLooks = 6000;
} // namespace

ModalAction::ModalAction(std::function<void(QWidget&)> action)
    : m_action(std::move(action)), m_timer(std::make_unique<QTimer>()) {
    QObject::connect(m_timer.get(), &QTimer::timeout, m_timer.get(), [this] { look(); });
    m_timer->start(LookEveryMs);
}

ModalAction::~ModalAction() = default;

void ModalAction::look() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible()) {
        return;
    }
    if (!m_done) {
        m_done = true;
        m_action(*window);
        return;
    }
    if (++m_looks > MaxLooks) {
        m_expired = true;
        m_timer->stop();
        window->close();
    }
}

void clickButton(QWidget& window, const char16_t* caption) {
    const auto wanted = QString::fromUtf16(caption);
    const auto buttons = window.findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
        if (button->text().remove(u'&') == wanted) {
            button->click();
            return;
        }
    }
    ADD_FAILURE() << "no button " << wanted.toStdString();
    window.close();
}

} // namespace velmora
