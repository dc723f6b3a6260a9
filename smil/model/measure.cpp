#include "smil/model/measure.h"

#include "util/short_number.h"

#include <QStringView>

#include <algorithm>
#include <limits>

namespace {

constexpr int NOT_GIVEN = -1;

/// The end of an optional sign at `from`, and of the decimal digits at `from`.
qsizetype signEnd(QStringView text, qsizetype from) {
    return from < text.size() && (text[from] == u'+' || text[from] == u'-') ? from + 1 : from;
}
qsizetype digitsEnd(QStringView text, qsizetype from) {
    while (from < text.size() && text[from] >= u'0' && text[from] <= u'9')
        ++from;
    return from;
}

/// The text without its unit, as phones cut it: two characters at the end, so that "px100" gives "px1".
QString withoutUnit(const QString& text) {
    if (shortNumber(text)) // without a unit, the usual case
        return text;
    QString number = text.trimmed().toLower();
    if (number.contains(QLatin1String("px")))
        number.chop(2);
    return number;
}

/// The leading floating-point number of a text; empty for "inf" and "nan".
QStringView leadingNumber(QStringView text) {
    const qsizetype begin = signEnd(text, 0);
    const qsizetype whole = digitsEnd(text, begin);
    const bool point = whole < text.size() && text[whole] == u'.';
    const qsizetype mantissa = point ? digitsEnd(text, whole + 1) : whole;
    if (mantissa - begin == (point ? 1 : 0))
        return {};
    if (mantissa == text.size() || text[mantissa] != u'e')
        return text.first(mantissa);
    const qsizetype exponent = signEnd(text, mantissa + 1);
    const qsizetype end = digitsEnd(text, exponent);
    return text.first(end > exponent ? end : mantissa);
}

} // namespace

int wholeMeasure(const QString& text) {
    const QString number = withoutUnit(text).trimmed();
    if (number.isEmpty())
        return NOT_GIVEN;
    const qsizetype digits = signEnd(number, 0);
    if (digits == number.size() || digitsEnd(number, digits) != number.size())
        return 0;
    bool ok = false;
    const qlonglong value = number.toLongLong(&ok);
    constexpr qlonglong least = std::numeric_limits<int>::min();
    constexpr qlonglong greatest = std::numeric_limits<int>::max();
    if (!ok) // a number beyond 64 bits
        return static_cast<int>(number.startsWith(u'-') ? least : greatest);
    return static_cast<int>(std::clamp(value, least, greatest));
}

float measure(const QString& text) {
    const QString number = withoutUnit(text);
    if (number.isEmpty())
        return NOT_GIVEN;
    if (const std::optional<int> whole = shortNumber(number))
        return static_cast<float>(*whole);
    constexpr double greatest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(leadingNumber(number).toDouble(), -greatest, greatest));
}
