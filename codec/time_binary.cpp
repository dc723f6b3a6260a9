#include "codec/time_binary.h"

#include "codec/codec_result.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"

#include <algorithm>
#include <climits>
#include <ctime>

namespace {

static_assert(sizeof(time_t) == sizeof(qint64), "dates after 2038 need a time_t of 64 bits");
static_assert(sizeof(int) == 4, "seconds travel in 32 bits");

constexpr qint64 latest = UINT_MAX;

bool needsUnsigned(qint64 seconds) {
    return seconds > INT_MAX;
}

int signedSeconds(qint64 seconds) {
    return static_cast<int>(std::max<qint64>(seconds, INT_MIN));
}

} // namespace

qint64 SecondsBinary::of(const QDateTime& time) {
    tzset(); // the time zone may have changed
    const QDate date = time.date();
    const QTime clock = time.time();
    tm parts{};
    parts.tm_sec = clock.second();
    parts.tm_min = clock.minute();
    parts.tm_hour = clock.hour();
    parts.tm_mday = date.day();
    parts.tm_mon = date.month() - 1;
    parts.tm_year = date.year() - 1900;
    parts.tm_isdst = -1;
    return mktime(&parts);
}

unsigned char SecondsBinary::readFrom(LinearBuffer* buffer, unsigned int* out) {
    int value = 0;
    const unsigned char result = IntegerBinary::readFrom(buffer, &value);
    if (result == CODEC_READ)
        *out = static_cast<unsigned int>(value);
    return result;
}

unsigned char SecondsBinary::writeTo(LinearBuffer* buffer, qint64 seconds) {
    if (!needsUnsigned(seconds))
        return IntegerBinary::writeTo(buffer, signedSeconds(seconds));
    const auto value = static_cast<unsigned int>(std::min(seconds, latest));
    unsigned char octets[5] = {4};
    for (unsigned int i = 0; i < 4; ++i)
        octets[1 + i] = static_cast<unsigned char>(value >> 8 * (3 - i));
    buffer->appendData(octets, sizeof octets);
    return CODEC_WRITTEN;
}

int SecondsBinary::sizeOf(qint64 seconds) {
    return needsUnsigned(seconds) ? 5 : IntegerBinary::sizeOf(signedSeconds(seconds));
}

int SecondsBinary::sizeOf(const QDateTime& time) {
    // In any time zone, dates of these years take four octets; skipping of() saves a time zone look-up.
    constexpr int firstYear = 1971;
    constexpr int lastYear = 2105;
    const int year = time.date().year();
    return year >= firstYear && year <= lastYear ? 5 : sizeOf(of(time));
}

unsigned char TimeBinary::readFrom(LinearBuffer* buffer, unsigned char* token, unsigned int* seconds) {
    int length = 0; // not used as a limit
    unsigned char result = ValueLengthBinary::readFrom(buffer, &length);
    if (result != CODEC_READ)
        return result;
    tzset();
    if (!buffer->hasMore())
        return CODEC_MALFORMED;
    *token = buffer->readByte();
    result = SecondsBinary::readFrom(buffer, seconds); // also read behind an unknown token
    return *token == ABSOLUTE || *token == RELATIVE ? result : static_cast<unsigned char>(CODEC_MALFORMED);
}

unsigned char TimeBinary::readFrom(LinearBuffer* buffer, QDateTime* out) {
    unsigned char token = 0;
    unsigned int seconds = 0;
    const unsigned char result = readFrom(buffer, &token, &seconds);
    if (result != CODEC_READ)
        return result;
    *out = token == ABSOLUTE ? QDateTime::fromSecsSinceEpoch(seconds)
                             : QDateTime::currentDateTime().addSecs(seconds);
    return result;
}

unsigned char TimeBinary::writeTo(LinearBuffer* buffer, unsigned char token, qint64 seconds) {
    ValueLengthBinary::writeTo(buffer, SecondsBinary::sizeOf(seconds) + 1);
    buffer->appendByte(token);
    return SecondsBinary::writeTo(buffer, seconds);
}

unsigned char TimeBinary::writeTo(LinearBuffer* buffer, const QDateTime& time) {
    return writeTo(buffer, ABSOLUTE, SecondsBinary::of(time));
}

int TimeBinary::sizeOf(qint64 seconds) {
    return SecondsBinary::sizeOf(seconds) + 2;
}

int TimeBinary::sizeOf(const QDateTime& time) {
    return SecondsBinary::sizeOf(time) + 2;
}
