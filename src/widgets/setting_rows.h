#pragma once

#include <QStringView>
#include <QWidget>

class QGridLayout;
class QLabel;

namespace velmora {

class CB;

/// The names and the captions of a row. An empty name: the row does not have that control.
struct SettingRowNames final {
    QStringView button;
    QStringView buttonCaption;
    /// The label with the present value.
    QStringView value = {};
    QStringView secondButton = {};
    QStringView secondCaption = {};
};

/// One setting in a window: a push button or two, the caption " Current Setting:" and the value.
struct SettingRow final {
    CB* button = nullptr;
    CB* secondButton = nullptr;
    /// Null in a row without a value.
    QLabel* value = nullptr;

    /// Writes the value label. Assistive programs read the value at the buttons too.
    void showValue(const QString& text) const;
};

/// The rows of a settings window, aligned in columns.
class SettingRows final : public QWidget {
    Q_OBJECT
public:
    explicit SettingRows(QWidget* parent);

    SettingRow addRow(const SettingRowNames& names);
    /// Makes the value column wide enough for this text, so that the window keeps its size when the
    /// value changes.
    void reserveWidth(const QString& text);
    /// Puts a control of the window's own behind the value of the row added last.
    void addBehindValue(QWidget* control);

private:
    CB* addButton(QStringView name, QStringView caption, int column, int columns);

    QGridLayout* m_grid;
    int m_row = -1;
    int m_valueWidth = 0;
    /// Of each button of a pair.
    int m_pairWidth = 0;
};

} // namespace velmora
