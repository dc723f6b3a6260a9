#include "tools/lummms/compose/option_value.h"

#include "wire/fields.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 MOST_SECONDS = std::numeric_limits<int>::max();

QDateTime isoTime(const QString& text) {
    return QDateTime::fromString(text, Qt::ISODate).toLocalTime();
}

} // namespace

void OptionValue::refuse(const QString& cause) {
    cause_ = QStringLiteral("'%1' %2").arg(typed_, cause);
}

int OptionValue::number() const {
    static const QRegularExpression digits("^[0-9]+\\z");
    bool fits = false;
    const int value = typed_.toInt(&fits);
    return fits && digits.match(typed_).hasMatch() ? value : -1;
}

QString OptionValue::text() {
    if (typed_.trimmed().isEmpty())
        refuse(QStringLiteral("is empty"));
    return typed_;
}

QString OptionValue::ascii() {
    const auto isPlain = [](QChar c) { return c > u' ' && c < u'\x7F'; };
    if (typed_.isEmpty())
        refuse(QStringLiteral("is empty"));
    else if (!std::all_of(typed_.begin(), typed_.end(), isPlain))
        refuse(QStringLiteral("has blanks, or characters beyond ASCII"));
    return typed_;
}

MMS_UTIL_Entry OptionValue::address() {
    static const QRegularExpression phone("^\\+?[0-9*#][0-9*#.-]*\\z");
    // "/TYPE=" would be read as the type of the address
    static const QRegularExpression email("^(?!.*/TYPE=)[^\\s\\p{C}@<>()\",;:]+@[^\\s\\p{C}@<>()\",;:]+\\z");
    if (phone.match(typed_).hasMatch())
        return {QString(), MMS_UTIL_Entry::PLMN, typed_};
    if (typed_.isEmpty())
        refuse(QStringLiteral("is empty"));
    else if (!email.match(typed_).hasMatch())
        refuse(QStringLiteral("is neither a phone number, such as +15550102, nor an e-mail address"));
    return {QString(), MMS_UTIL_Entry::EMAIL, typed_};
}

unsigned char OptionValue::octet(int field) {
    constexpr int first = 128;
    constexpr int last = 255;
    const int value = number();
    if (value >= first && value <= last)
        return static_cast<unsigned char>(value);
    QStringList known;
    for (const MMS_WIRE_Word& word : wireField(field)->words) {
        known += QString::fromLatin1(word.word).toLower();
        if (known.last() == typed_.toLower())
            return static_cast<unsigned char>(word.number);
    }
    refuse(QStringLiteral("is none of %1, and no number from %2 to %3")
               .arg(known.join(QStringLiteral(", ")))
               .arg(first)
               .arg(last));
    return 0;
}

bool OptionValue::either(const char* first, const char* second) {
    const bool isFirst = typed_.compare(QLatin1String(first), Qt::CaseInsensitive) == 0;
    if (!isFirst && typed_.compare(QLatin1String(second), Qt::CaseInsensitive) != 0)
        refuse(QStringLiteral("is neither %1 nor %2").arg(QLatin1String(first), QLatin1String(second)));
    return isFirst;
}

unsigned char OptionValue::version() {
    static const QRegularExpression form("^([1-7])\\.([0-9]|1[0-4])\\z");
    const QRegularExpressionMatch match = form.match(typed_);
    if (!match.hasMatch())
        refuse(QStringLiteral("is not a version such as 1.0"));
    return static_cast<unsigned char>(match.captured(1).toUInt() << 4 | match.captured(2).toUInt());
}

int OptionValue::size() {
    const int value = number();
    if (value < 1)
        refuse(QStringLiteral("is not a number from 1 to %1").arg(std::numeric_limits<int>::max()));
    return value;
}

QDateTime OptionValue::moment() {
    const QDateTime time = isoTime(typed_);
    const qint64 seconds = time.toSecsSinceEpoch();
    if (!time.isValid())
        refuse(QStringLiteral("is not a date and time such as 2026-11-21T10:00:00Z"));
    else if (seconds < 0 || seconds > std::numeric_limits<quint32>::max())
        refuse(QStringLiteral("is not between the years 1970 and 2106"));
    return time;
}

unsigned int OptionValue::secondsToCome() {
    if (number() >= 0)
        return static_cast<unsigned int>(number());
    const QDateTime time = isoTime(typed_);
    const qint64 seconds = QDateTime::currentDateTime().secsTo(time);
    if (!time.isValid())
        refuse(QStringLiteral("is neither a number of seconds from 0 to %1, nor a date such as "
                              "2026-11-21T10:00:00Z")
                   .arg(MOST_SECONDS));
    else if (seconds < 0)
        refuse(QStringLiteral("is past"));
    else if (seconds > MOST_SECONDS)
        refuse(QStringLiteral("is too far in the future"));
    return static_cast<unsigned int>(seconds);
}

QDateTime OptionValue::momentToCome() {
    const unsigned int seconds = secondsToCome();
    return number() >= 0 ? QDateTime::currentDateTime().addSecs(seconds) : isoTime(typed_);
}
