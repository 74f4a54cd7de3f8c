#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace velmora {

/// The nearest whole number; a half goes to the even neighbour. Limited to the result's range;
/// not-a-number gives 0.
[[nodiscard]] std::int64_t roundHalfEven(double value);

/// A number as the settings file holds it: a leading blank when it is not negative, no digit before
/// the point of a fraction below 1, at most 15 significant digits, one trailing blank.
/// 12 gives " 12 ", -3 "-3 ", 0.1 " .1 ".
[[nodiscard]] QString printNumber(double value);

/// The number that a whole text spells in decimal digits, with an optional sign, point and
/// exponent. No value for anything else, the empty text and a number too large included.
[[nodiscard]] std::optional<double> readNumber(QStringView text);

/// The whole number that a text begins with after its leading blanks; 0 when there is none.
[[nodiscard]] int numericPrefix(QStringView text);

/// A whole number with a comma between its groups of three digits ("##,###"); empty for 0.
[[nodiscard]] QString formatThousands(std::int64_t value);

/// A whole number with at least four digits and a colon before the last two ("00:00"):
/// 125 gives "01:25".
[[nodiscard]] QString formatWithColon(std::int64_t value);

/// Seconds as minutes and seconds, "mm:ss": whole seconds, the fraction dropped. Above 99:59 the
/// minutes take more digits; below 0 it is "00:00".
[[nodiscard]] QString clockText(double seconds);

} // namespace velmora
