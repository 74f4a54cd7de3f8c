#include "core/number_format.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace velmora {

namespace {

constexpr int SignificantDigits = 15;

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// Steps over digits and tells how many there were.
qsizetype skipDigits(QStringView text, qsizetype& at) {
    const qsizetype begin = at;
    while (at < text.size() && isDigit(text[at])) {
        ++at;
    }
    return at - begin;
}

void skipSign(QStringView text, qsizetype& at) {
    if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) {
        ++at;
    }
}

/// QLocale reads more than a settings file may hold ("inf", hexadecimal, group commas).
bool isDecimalLiteral(QStringView text) {
    qsizetype at = 0;
    skipSign(text, at);
    qsizetype digits = skipDigits(text, at);
    if (at < text.size() && text[at] == u'.') {
        ++at;
        digits += skipDigits(text, at);
    }
    if (digits == 0) {
        return false;
    }
    if (at < text.size() && (text[at] == u'E' || text[at] == u'e')) {
        ++at;
        skipSign(text, at);
        if (skipDigits(text, at) == 0) {
            return false;
        }
    }
    return at == text.size();
}

} // namespace

std::int64_t roundHalfEven(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    // 2^63 is the first double above the range.
    constexpr double Limit = 9223372036854775808.0;
    if (value >= Limit) {
        return std::numeric_limits<std::int64_t>::max();
    }
    if (value < -Limit) {
        return std::numeric_limits<std::int64_t>::min();
    }
    double rounded = std::floor(value);
    const double fraction = value - rounded;
    const bool odd = std::fmod(rounded, 2.0) != 0.0;
    if (fraction > 0.5 || (fraction == 0.5 && odd)) {
        rounded += 1.0;
    }
    return static_cast<std::int64_t>(rounded);
}

QString printNumber(double value) {
    QString digits = QString::number(std::fabs(value), 'g', SignificantDigits).toUpper();
    if (digits.startsWith(u"0.")) {
        digits.remove(0, 1);
    }
    const bool negative = value < 0 && digits != u"0";
    return (negative ? u'-' : u' ') + digits + u' ';
}

std::optional<double> readNumber(QStringView text) {
    if (!isDecimalLiteral(text)) {
        return std::nullopt;
    }
    bool ok = false;
    const double value = QLocale::c().toDouble(text, &ok);
    if (!ok || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

int numericPrefix(QStringView text) {
    const QStringView trimmed = text.trimmed();
    qsizetype end = 0;
    skipSign(trimmed, end);
    if (skipDigits(trimmed, end) == 0) {
        return 0;
    }
    return trimmed.first(end).toInt();
}

QString formatThousands(std::int64_t value) {
    return value == 0 ? QString()
                      : QLocale(QLocale::English).toString(static_cast<qlonglong>(value));
}

QString formatWithColon(std::int64_t value) {
    QString digits = QString::number(value < 0 ? -value : value).rightJustified(4, u'0');
    digits.insert(digits.size() - 2, u':');
    return value < 0 ? u'-' + digits : digits;
}

QString clockText(double seconds) {
    if (!(seconds > 0)) {
        return formatWithColon(0);
    }
    const double minutes = std::floor(seconds / 60);
    return formatWithColon(
        static_cast<std::int64_t>(minutes * 100 + std::floor(seconds - minutes * 60)));
}

} // namespace velmora
