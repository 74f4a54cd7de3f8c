#include "editor/progress_window.h"

#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace velmora {

Form31::Form31(QWidget* parent)
    : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      Label1(new QLabel(this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setFrameShape(QFrame::Box);
    Label1->setMargin(24);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Label1);
}

void Form31::showText(const QString& text) {
    Label1->setText(text);
    adjustSize();
    const QRect around = parentWidget() != nullptr
                             ? QRect(parentWidget()->mapToGlobal(QPoint()), parentWidget()->size())
                             : screen()->geometry();
    move(around.center() - rect().center());
    show();
    raise();
    repaint();
}

} // namespace velmora
