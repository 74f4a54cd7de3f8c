#include "app/look.h"

#include "core/session.h"

#include <QApplication>
#include <QFont>
#include <QLabel>
#include <QPalette>
#include <QProxyStyle>
#include <QRegularExpression>
#include <QString>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double ReferenceHeight = 1080;
constexpr double SmallestUnit = 0.75;
constexpr double FontUnits = 14;

QPalette darkPalette() {
    const QColor window(0x2b, 0x2d, 0x31);
    const QColor base(0x1b, 0x1c, 0x1f);
    const QColor text(0xe8, 0xe8, 0xe8);
    const QColor dim(0x80, 0x84, 0x8a);
    const QColor accent(0x3d, 0x7d, 0xca);
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, dim);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, QColor(0x3b, 0x3e, 0x44));
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, dim);
    }
    return palette;
}

/// Labels and tooltips show every text as it stands: the toolkit would guess that some are HTML,
/// and a font named "<img src=...>" in a script would make the program read that file.
class PlainTextStyle final : public QProxyStyle {
public:
    /// unit: see controlUnit().
    explicit PlainTextStyle(double unit)
        : QProxyStyle(QStringLiteral("Fusion")), m_enlargement(std::max(1.0, unit)) {}

    /// What the hand takes hold of grows with the screen, as the letters do.
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
        switch (metric) {
        case PM_ScrollBarExtent:
        case PM_SliderThickness:
        case PM_SliderControlThickness:
        case PM_SliderLength:
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return static_cast<int>(std::lround(pixels * m_enlargement));
        default:
            return pixels;
        }
    }

    using QProxyStyle::polish;
    void polish(QWidget* widget) override {
        QProxyStyle::polish(widget);
        auto* label = qobject_cast<QLabel*>(widget);
        if (label != nullptr && label->textFormat() == Qt::AutoText) {
            label->setTextFormat(Qt::PlainText);
        }
    }

private:
    double m_enlargement;
};

} // namespace

double controlUnit(const ScreenState& screen) {
    return std::max(SmallestUnit,
                    std::min(screen.ScreenPixelsWide, screen.ScreenPixelsHigh) / ReferenceHeight);
}

void applyLook(QApplication& application, const ScreenState& screen) {
    QApplication::setStyle(new PlainTextStyle(controlUnit(screen)));
    const QPalette palette = darkPalette();
    QApplication::setPalette(palette);
    // Fusion draws their outlines darker than the window, where nobody would see them.
    QPalette checkBox = palette;
    checkBox.setColor(QPalette::Base, QColor(0x50, 0x54, 0x5c));
    QApplication::setPalette(checkBox, "QCheckBox");
    QApplication::setPalette(checkBox, "QRadioButton");
    QFont font = QApplication::font();
    font.setPixelSize(static_cast<int>(std::lround(FontUnits * controlUnit(screen))));
    application.setFont(font);
}

QString mainWindowStyle(const ScreenState& screen) {
    QString style = QStringLiteral(R"(
        #Form1 { background: #1b1c1f; }
        #Backpicture { background: #2b2d31; border-bottom: 1px solid #141517; }
        #BottomStrip { background: #2b2d31; border-top: 1px solid #141517; }
        QPushButton { background: #3b3e44; color: #e8e8e8; border: @1px solid #4b4f56;
                      border-radius: 4px; }
        QDialog QPushButton { padding: @5px @14px; }
        QPushButton:focus { border-color: #8fb8ea; outline: none; }
        QPushButton:hover { background: #4a4e56; border-color: #5d626b; }
        QPushButton:pressed { background: #2f3136; }
        QPushButton:disabled { background: #303338; color: #7d8187; border-color: #3b3e44; }
        #StartButton { background: #2c7a4b; border-color: #3c9560; color: white;
                       font-weight: bold; }
        #StartButton:hover { background: #338d57; }
        #StartButton:pressed { background: #23633d; }
        #StartButton:disabled { background: #2b4435; border-color: #33513f; color: #8fa398; }
        QSlider::groove:horizontal { background: #17181a; border: 1px solid #45494f;
                                     border-radius: 2px; height: @4px; }
        QSlider::handle:horizontal { background: #a9afb8; border-radius: 3px; width: @12px;
                                     margin: -@7px 0; }
        QSlider::handle:horizontal:hover { background: #c9ced6; }
        QSlider::handle:horizontal:focus { background: #8fb8ea; }
        #Form1 > #Label4, #Form1 > #Label5 { color: #a4a8ae; }
        #NoticeLine { color: #8c9098; }
        #NoticeLine[attention="true"] { color: #f2b84b; }
    )");
    // "@5px": so many units of this screen.
    static const QRegularExpression units(QStringLiteral("@(\\d+)px"));
    for (auto match = units.match(style); match.hasMatch(); match = units.match(style)) {
        const auto pixels = std::lround(match.capturedView(1).toInt() * controlUnit(screen));
        style.replace(match.capturedStart(), match.capturedLength(),
                      QStringLiteral("%1px").arg(pixels));
    }
    return style;
}

} // namespace velmora
