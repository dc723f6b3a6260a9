#include "util/smil_values.h"

#include "util/color.h"
#include "util/short_number.h"
#include "util/smil_time.h"

#include <QStringView>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <limits>
#include <optional>

namespace {

static_assert(FLT_EVAL_METHOD == 0, "times are calculated in single precision");

constexpr int DURATION_NOT_GIVEN = -1;
constexpr int DURATION_INDEFINITE = -2;
constexpr int DEFAULT_DURATION = 5000;

constexpr qint32 AT_BEGIN = 0;
constexpr qint32 AT_END = -1;

constexpr qint32 LEAST_TIME = std::numeric_limits<qint32>::min();
constexpr qint32 GREATEST_TIME = std::numeric_limits<qint32>::max();

struct NamedColor {
    QLatin1StringView name;
    int red, green, blue;
};

constexpr NamedColor NAMED_COLORS[] = {
    {QLatin1StringView("aqua"), 0, 255, 255},     {QLatin1StringView("black"), 0, 0, 0},
    {QLatin1StringView("blue"), 0, 0, 255},       {QLatin1StringView("fuchsia"), 255, 0, 255},
    {QLatin1StringView("gray"), 128, 128, 128},   {QLatin1StringView("green"), 0, 128, 0},
    {QLatin1StringView("lime"), 0, 255, 0},       {QLatin1StringView("maroon"), 128, 0, 0},
    {QLatin1StringView("navy"), 0, 0, 128},       {QLatin1StringView("olive"), 128, 128, 0},
    {QLatin1StringView("purple"), 128, 0, 128},   {QLatin1StringView("red"), 255, 0, 0},
    {QLatin1StringView("silver"), 192, 192, 192}, {QLatin1StringView("teal"), 0, 128, 128},
    {QLatin1StringView("white"), 255, 255, 255},  {QLatin1StringView("yellow"), 255, 255, 0},
};

/// A unit of time and the factors that convert it to milliseconds, applied in turn.
struct TimeUnit {
    QLatin1StringView suffix;
    float factors[3];
};

// "min" and "ms" come before "s", which would match the end of "ms".
constexpr TimeUnit TIME_UNITS[] = {
    {QLatin1StringView("min"), {60.0F, 1000.0F, 1.0F}},
    {QLatin1StringView("ms"), {1.0F, 1.0F, 1.0F}},
    {QLatin1StringView("s"), {1000.0F, 1.0F, 1.0F}},
    {QLatin1StringView("h"), {60.0F, 60.0F, 1000.0F}},
};

/// QStringView::toFloat() with a fast path for short whole numbers.
float toFloat(QStringView number, bool& ok) {
    const std::optional<int> whole = shortNumber(number);
    ok = whole.has_value();
    return whole ? static_cast<float>(*whole) : number.toFloat(&ok);
}

/// Multiplies in single precision, as phones do. Results beyond 32 bits are clamped.
std::optional<qint32> scaled(QStringView number, const float (&factors)[3]) {
    bool ok = false;
    float value = toFloat(number, ok);
    if (!ok || std::isnan(value))
        return std::nullopt;
    for (const float factor : factors)
        value *= factor;
    if (value >= -static_cast<float>(LEAST_TIME))
        return GREATEST_TIME;
    return value <= static_cast<float>(LEAST_TIME) ? LEAST_TIME : static_cast<qint32>(value);
}

std::optional<qint32> timeWithUnit(QStringView text) {
    for (const TimeUnit& unit : TIME_UNITS)
        if (text.endsWith(unit.suffix))
            return scaled(text.chopped(unit.suffix.size()), unit.factors);
    return std::nullopt; // a number without a unit is invalid, deliberately
}

/// Minutes:seconds.milliseconds. The digits behind the point are a number of milliseconds: 0:01.5 is 1005.
/// They are mandatory, deliberately: 1:30 is invalid.
std::optional<qint32> clockTime(QStringView text) {
    const qsizetype colon = text.indexOf(u':');
    const QStringView rest = text.sliced(colon + 1);
    const qsizetype point = rest.indexOf(u'.');
    if (point <= 0)
        return std::nullopt;
    bool minutesOk = false;
    bool secondsOk = false;
    bool fractionOk = false;
    const qint64 minutes = text.first(colon).toInt(&minutesOk);
    const qint64 seconds = rest.first(point).toInt(&secondsOk);
    const qint64 fraction = rest.sliced(point + 1).left(3).toInt(&fractionOk);
    if (!minutesOk || !secondsOk || !fractionOk)
        return std::nullopt;
    const qint64 value = fraction + 1000 * (seconds + 60 * minutes);
    return static_cast<qint32>(std::clamp<qint64>(value, LEAST_TIME, GREATEST_TIME));
}

/// A text in milliseconds, for durations and for begin and end times.
std::optional<qint32> scanTime(QStringView text) {
    switch (text.count(u':')) {
    case 0:
        return timeWithUnit(text);
    case 1:
        return clockTime(text);
    default:
        return std::nullopt; // hours:minutes:seconds is invalid, deliberately
    }
}

/// Reads "#rgb" or "#rrggbb". A digit of the short form is the component itself, not doubled: deliberate.
bool readHexColor(QStringView text, QColor& color) {
    const qsizetype digits = text.size() == 4 ? 1 : 2;
    int components[3] = {};
    for (qsizetype i = 0; i < 3; ++i) {
        bool ok = false;
        const int component = text.sliced(1 + i * digits, digits).toInt(&ok, 16);
        if (!ok || component < 0 || component > 255)
            return false;
        components[i] = component;
    }
    color.setRgb(components[0], components[1], components[2]);
    return true;
}

} // namespace

int durationOf(QStringView text) {
    if (text.isEmpty())
        return DURATION_NOT_GIVEN;
    if (text == QLatin1StringView("indefinite"))
        return DURATION_INDEFINITE;
    return scanTime(text).value_or(DEFAULT_DURATION);
}

void readTime(const QString text, MMS_COMP_SMIL_TIME& time) {
    if (text.isEmpty()) {
        time.type = MMS_COMP_SMIL_TIME_UNSPECIFIED;
        return;
    }
    QStringView rest = text;
    if (text.startsWith(QLatin1StringView("id("))) {
        const qsizetype close = rest.indexOf(u')');
        const qsizetype end = close < 0 ? rest.size() : close;
        time.type = MMS_COMP_SMIL_TIME_EVENT;
        time.id = rest.first(end).sliced(3).toString();
        rest = rest.sliced(close < 0 ? end : end + 1);
        const bool atBegin = rest.contains(QLatin1StringView("begin"));
        if (atBegin || rest.contains(QLatin1StringView("end"))) {
            time.value = atBegin ? AT_BEGIN : AT_END;
            return;
        }
        // Drops the first and last character: the parentheses around the offset, or whatever is in their
        // place.
        rest.chop(std::min<qsizetype>(rest.size(), 1));
        rest = rest.sliced(std::min<qsizetype>(rest.size(), 1));
    } else {
        time.type = MMS_COMP_SMIL_TIME_OFFSET;
        time.id = QStringLiteral("");
    }
    if (const std::optional<qint32> value = scanTime(rest))
        time.value = *value;
    else
        time.type = MMS_COMP_SMIL_TIME_INVALID;
}

void readColor(const QString& text, MMS_COMP_COLOR& color) {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        color.kind = MMS_COMP_COLOR_NONE;
        return;
    }
    for (const NamedColor& named : NAMED_COLORS) {
        if (trimmed == named.name) {
            color.kind = MMS_COMP_COLOR_NAMED;
            color.text = named.name;
            color.color.setRgb(named.red, named.green, named.blue);
            return;
        }
    }
    color.kind = MMS_COMP_COLOR_UNREADABLE;
    if (trimmed.startsWith(u'#') && (trimmed.size() == 4 || trimmed.size() == 7)) {
        color.text = QStringLiteral("");
        color.kind = readHexColor(trimmed, color.color) ? MMS_COMP_COLOR_NUMERIC : MMS_COMP_COLOR_UNREADABLE;
    } else if (trimmed.startsWith(QLatin1StringView("rgb(")) && !trimmed.contains(u'%')) {
        // The rgb() form is recognised but not read, like on phones: the colour stays unchanged.
        color.text = QStringLiteral("");
    }
}
