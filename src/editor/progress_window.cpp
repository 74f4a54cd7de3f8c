#include "editor/progress_window.h"

#include "widgets/push_button.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>

namespace velmora {

namespace {
constexpr int Margin = 24;
constexpr int BarWidth = 280;
constexpr int ButtonWidth = 110;
constexpr int ButtonHeight = 32;
} // namespace

Form31::Form31(QWidget* parent)
    : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      Label1(new QLabel(this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setFrameShape(QFrame::Box);
    Label1->setMargin(Margin);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Label1);
}

void Form31::showText(const QString& text) {
    Label1->setText(text);
    showInTheMiddle();
    repaint();
}

void Form31::showInTheMiddle() {
    adjustSize();
    const QRect around = parentWidget() != nullptr
                             ? QRect(parentWidget()->mapToGlobal(QPoint()), parentWidget()->size())
                             : screen()->geometry();
    move(around.center() - rect().center());
    show();
    raise();
}

void Form31::showShare(double share) {
    if (m_bar == nullptr) {
        becomeDialog();
    }
    m_bar->setValue(static_cast<int>(share * m_bar->maximum()));
}

/// A window takes its kind and its modality while it is hidden.
void Form31::becomeDialog() {
    hide();
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setWindowModality(Qt::ApplicationModal);
    setAttribute(Qt::WA_ShowWithoutActivating, false);
    m_bar = new QProgressBar(this);
    auto* cancel = new CB(QStringLiteral("CancelButton"), QStringLiteral("Cancel"), this);
    cancel->setMinimumSize(ButtonWidth, ButtonHeight);
    connect(cancel, &QPushButton::clicked, this, [this] { m_cancelled = true; });
    m_bar->setMinimumWidth(BarWidth);
    Label1->setFrameShape(QFrame::NoFrame);
    Label1->setMargin(0);
    layout()->setContentsMargins(Margin, Margin, Margin, Margin);
    layout()->setSpacing(Margin / 2);
    layout()->addWidget(m_bar);
    layout()->addWidget(cancel);
    layout()->setAlignment(cancel, Qt::AlignHCenter);
    showInTheMiddle();
    activateWindow();
    cancel->setFocus();
}

void Form31::keyPressEvent(QKeyEvent* event) {
    m_cancelled = m_cancelled || (m_bar != nullptr && event->key() == Qt::Key_Escape);
}

void Form31::closeEvent(QCloseEvent* event) {
    m_cancelled = m_cancelled || m_bar != nullptr;
    event->ignore();
}

} // namespace velmora
