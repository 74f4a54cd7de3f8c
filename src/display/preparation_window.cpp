#include "display/preparation_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace velmora {

namespace {

constexpr int WholeProgress = 295;
constexpr int BarHeight = 18;
constexpr QRgb BarColor = qRgb(128, 128, 128);

} // namespace

/// Picture1 of Form23: the progress bar, whose scale runs to 295.
class Form23::ProgressBar final : public QWidget {
public:
    explicit ProgressBar(QWidget* parent) : QWidget(parent) {
        setFixedSize(WholeProgress, BarHeight);
    }
    void setProgress(int progress) {
        m_progress = std::clamp(progress, 0, WholeProgress);
        repaint();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        painter.fillRect(0, 0, m_progress, height(), QColor(BarColor));
    }

private:
    int m_progress = 0;
};

Form23::Form23(const QString& text, QWidget* parent) : QWidget(parent, Qt::Dialog) {
    setWindowTitle(QStringLiteral("Processing"));
    setWindowModality(Qt::ApplicationModal);
    Label1 = new QLabel(text, this);
    Label1->setAlignment(Qt::AlignHCenter);
    Picture1 = new ProgressBar(this);
    auto* column = new QVBoxLayout(this);
    column->addWidget(Label1);
    column->addWidget(Picture1);
}

void Form23::setProgress(int progress) {
    Picture1->setProgress(progress);
}

void Form23::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT leaveRequested();
    }
}

void Form23::closeEvent(QCloseEvent* event) {
    Q_EMIT leaveRequested();
    event->ignore();
}

} // namespace velmora
