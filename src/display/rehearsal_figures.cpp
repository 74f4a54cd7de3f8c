#include "display/rehearsal_figures.h"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace velmora {

namespace {

double percentile(const std::vector<double>& sorted, double share) {
    const auto last = static_cast<double>(sorted.size() - 1);
    return sorted[static_cast<std::size_t>(std::ceil(share * last))];
}

QJsonObject spreadToJson(const Spread& spread) {
    return {{QStringLiteral("p50"), spread.p50},
            {QStringLiteral("p99"), spread.p99},
            {QStringLiteral("max"), spread.max}};
}

QString spreadToText(const Spread& spread) {
    return QStringLiteral("p50 %1  p99 %2  max %3")
        .arg(spread.p50, 0, 'f', 1)
        .arg(spread.p99, 0, 'f', 1)
        .arg(spread.max, 0, 'f', 1);
}

} // namespace

void Samples::add(double sample) {
    m_greatest = m_kept.empty() ? sample : std::max(m_greatest, sample);
    if (--m_untilNext > 0) {
        return;
    }
    if (m_kept.size() == Most) {
        for (std::size_t i = 0; 2 * i < Most; ++i) {
            m_kept[i] = m_kept[2 * i];
        }
        m_kept.resize((Most + 1) / 2);
        m_stride *= 2;
    }
    m_kept.push_back(sample);
    m_untilNext = m_stride;
}

Spread Samples::spread() const {
    if (m_kept.empty()) {
        return {};
    }
    std::vector<double> sorted = m_kept;
    std::sort(sorted.begin(), sorted.end());
    return {percentile(sorted, 0.5), percentile(sorted, 0.99), m_greatest};
}

QJsonObject RehearsalFigures::toJson() const {
    return {{QStringLiteral("script"), script},
            {QStringLiteral("screen"), QJsonArray{screenWidth, screenHeight}},
            {QStringLiteral("range"), range},
            {QStringLiteral("speed"), speed},
            {QStringLiteral("turbo"), turbo},
            {QStringLiteral("mirror"), mirror},
            {QStringLiteral("lines"), lines},
            {QStringLiteral("rows"), static_cast<qint64>(rows)},
            {QStringLiteral("last_scroll_row"), static_cast<qint64>(lastScrollRow)},
            {QStringLiteral("seconds_set"), secondsSet},
            {QStringLiteral("seconds_predicted"), secondsPredicted},
            {QStringLiteral("seconds_actual"), secondsActual},
            {QStringLiteral("steps"), static_cast<qint64>(steps)},
            {QStringLiteral("paints"), static_cast<qint64>(paints)},
            {QStringLiteral("late_us"), spreadToJson(lateMicroseconds)},
            {QStringLiteral("compose_us"), spreadToJson(composeMicroseconds)},
            {QStringLiteral("cpu_seconds"), cpuSeconds},
            {QStringLiteral("peak_rss_kb"), static_cast<qint64>(peakRssKb)},
            {QStringLiteral("first_lines"), QJsonArray::fromStringList(firstLines)}};
}

QString RehearsalFigures::toTable() const {
    const auto number = [](double value) { return QString::number(value, 'f', 3); };
    const std::array<std::pair<QString, QString>, 12> rowsOfTable = {
        {{QStringLiteral("script"), script},
         {QStringLiteral("screen"), QStringLiteral("%1x%2").arg(screenWidth).arg(screenHeight)},
         {QStringLiteral("range, speed"), QStringLiteral("%1, %2%3")
                                              .arg(range)
                                              .arg(speed)
                                              .arg(turbo ? QStringLiteral(", turbo") : QString())},
         {QStringLiteral("lines, rows"), QStringLiteral("%1, %2").arg(lines).arg(rows)},
         {QStringLiteral("seconds predicted"), number(secondsPredicted)},
         {QStringLiteral("seconds actual"), number(secondsActual)},
         {QStringLiteral("steps, paints"), QStringLiteral("%1, %2").arg(steps).arg(paints)},
         {QStringLiteral("late us"), spreadToText(lateMicroseconds)},
         {QStringLiteral("compose us"), spreadToText(composeMicroseconds)},
         {QStringLiteral("cpu seconds"), number(cpuSeconds)},
         {QStringLiteral("peak memory KB"), QString::number(peakRssKb)},
         {QStringLiteral("last scroll row"), QString::number(lastScrollRow)}}};
    QString table;
    for (const auto& [name, value] : rowsOfTable) {
        table += name.leftJustified(20) + value + u'\n';
    }
    return table;
}

} // namespace velmora
