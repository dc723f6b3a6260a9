#include "tools/lummms/words.h"

#include "wire/fields.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr Word CODEC_RESULTS[] = {
    {9, "malformed, cut short, or with a field that is not known"},
    {16, "with an address that cannot be sent"},
};

constexpr Word BODY_STATUSES[] = {
    {-6, "an argument is missing"},
    {-18, "cannot be encoded"},
    {-19, "malformed or cut short"},
    {-20, "unknown codec result"},
};

constexpr Word SMIL_STATUSES[] = {
    {-1, "the file cannot be opened"},
    {-6, "there is no text"},
    {-7, "the root layout cannot be stored"},
    {-8, "not well-formed XML"},
    {-9, "the root element is not \"smil\""},
    {-10, "a head behind the body"},
    {-11, "a second body"},
    {-12, "a second head"},
    {-15, "no memory for a slide"},
    {-16, "nested too deep"},
    {2, "a region cannot be added"},
};

constexpr Word SMIL_WARNINGS[] = {
    {1, "an element was skipped that is not allowed there"},
    {3, "a media element was left out because its content is missing"},
};

struct TimeUnit {
    qint64 milliseconds;
    const char* word;
};

constexpr TimeUnit TIME_UNITS[] = {{24 * 60 * 60 * 1000, "d"}, {60 * 60 * 1000, "h"}, {60 * 1000, "min"}};

} // namespace

const std::span<const Word> codecResultWords = CODEC_RESULTS;
const std::span<const Word> bodyStatusWords = BODY_STATUSES;
const std::span<const Word> smilStatusWords = SMIL_STATUSES;
const std::span<const Word> smilWarningWords = SMIL_WARNINGS;

QString fieldWord(FIELD_CODE code, int number) {
    const char* word = wireWord(*wireField(code), static_cast<quint64>(number));
    return word ? QString::fromLatin1(word) : QStringLiteral("unknown (%1)").arg(number);
}

QString explained(std::span<const Word> words, const char* what, int number) {
    const auto found = std::find_if(words.begin(), words.end(),
                                    [number](const Word& word) { return word.number == number; });
    const QString code = QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(number);
    return found == words.end() ? code : QStringLiteral("%1 (%2)").arg(QLatin1String(found->text), code);
}

QString spanOfTime(qint64 milliseconds) {
    QStringList units;
    qint64 rest = milliseconds;
    for (const TimeUnit& unit : TIME_UNITS) {
        if (rest >= unit.milliseconds)
            units += QStringLiteral("%1 %2").arg(rest / unit.milliseconds).arg(QLatin1String(unit.word));
        rest %= unit.milliseconds;
    }
    if (rest > 0 || units.isEmpty())
        units += QStringLiteral("%1 s").arg(static_cast<double>(rest) / 1000);
    return units.join(u' ');
}

QString counted(qint64 number, const char* noun) {
    return QStringLiteral("%1 %2%3").arg(number).arg(QLatin1String(noun),
                                                     QLatin1String(number == 1 ? "" : "s"));
}
