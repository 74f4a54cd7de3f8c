#pragma once

#include <QLabel>
#include <QWidget>

namespace velmora {

/// Form23: the small window that shows the progress of a script's preparation. It stays until its
/// owner is through; Escape and its frame only ask to leave.
class Form23 final : public QWidget {
    Q_OBJECT
public:
    /// text in three rows.
    explicit Form23(const QString& text, QWidget* parent = nullptr);

    /// 0 to 295; paints at once.
    void setProgress(int progress);

Q_SIGNALS:
    void leaveRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    class ProgressBar;

    QLabel* Label1 = nullptr;
    ProgressBar* Picture1 = nullptr;
};

} // namespace velmora
