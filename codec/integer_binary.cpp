#include "codec/integer_binary.h"

#include "codec/codec_result.h"
#include "codec/linear_buffer.h"

namespace {

static_assert(sizeof(int) == 4, "numbers are read into 32 bits, whatever more the sender gave is lost");

constexpr int lengthQuote = 31;

unsigned char octet(int value) {
    return static_cast<unsigned char>(value & 0xFF);
}

} // namespace

unsigned char IntegerBinary::readFrom(LinearBuffer* buffer, int* out) {
    if (!buffer->hasMore())
        return CODEC_MALFORMED;
    const unsigned char first = buffer->readByte();
    if (first & 0x80) {
        *out = first & 0x7F;
        return CODEC_READ;
    }
    unsigned int value = 0;
    for (int left = first; left > 0; --left) {
        if (!buffer->hasMore())
            return CODEC_MALFORMED;
        value = value << 8 | buffer->readByte();
    }
    *out = static_cast<int>(value);
    return CODEC_READ;
}

unsigned char IntegerBinary::writeTo(LinearBuffer* buffer, int value) {
    if (value <= 127) {
        buffer->appendByte(octet((value & 0x7F) | 0x80));
        return CODEC_WRITTEN;
    }
    unsigned char octets[5];
    const int count = sizeOf(value) - 1;
    octets[0] = octet(count);
    for (int i = 0; i < count; ++i)
        octets[1 + i] = octet(value >> 8 * (count - 1 - i));
    buffer->appendData(octets, 1 + count);
    return CODEC_WRITTEN;
}

int IntegerBinary::sizeOf(int value) {
    int size = 1;
    if (value >= 128)
        for (; value; value >>= 8)
            ++size;
    return size;
}

unsigned char UIntBinary::readFrom(LinearBuffer* buffer, int* out) {
    unsigned int value = 0;
    while (buffer->hasMore()) {
        const unsigned char next = buffer->readByte();
        if (!(next & 0x80)) {
            *out = static_cast<int>(value + next);
            return CODEC_READ;
        }
        value = (value + (next & 0x7F)) * 128;
    }
    return CODEC_MALFORMED;
}

unsigned char UIntBinary::writeTo(LinearBuffer* buffer, int value) {
    constexpr int groups = 5; // of seven bits each, for 32 bits
    unsigned char octets[groups];
    for (int i = groups - 1; i >= 0; --i, value >>= 7)
        octets[i] = octet((value & 0x7F) | (i < groups - 1 ? 0x80 : 0));
    int first = 0;
    while (first < groups - 1 && octets[first] == 0x80)
        ++first;
    buffer->appendData(octets + first, groups - first);
    return CODEC_WRITTEN;
}

int UIntBinary::sizeOf(int value) {
    if (value < lengthQuote) // a shorter value never follows a Length-quote
        return 1;
    int size = 0;
    for (; value; value >>= 7)
        ++size;
    return size;
}

unsigned char ValueLengthBinary::readFrom(LinearBuffer* buffer, int* out) {
    if (!buffer->hasMore())
        return CODEC_MALFORMED;
    const unsigned char first = buffer->readByte();
    if (first == lengthQuote)
        return UIntBinary::readFrom(buffer, out);
    *out = first;
    return CODEC_READ;
}

unsigned char ValueLengthBinary::writeTo(LinearBuffer* buffer, int value) {
    if (value < lengthQuote) {
        buffer->appendByte(octet(value));
        return CODEC_WRITTEN;
    }
    buffer->appendByte(lengthQuote);
    return UIntBinary::writeTo(buffer, value);
}

int ValueLengthBinary::sizeOf(int value) {
    return value < lengthQuote ? 1 : 1 + UIntBinary::sizeOf(value);
}

unsigned char CharsetBinary::readFrom(LinearBuffer* buffer, int* out) {
    return IntegerBinary::readFrom(buffer, out);
}
unsigned char CharsetBinary::writeTo(LinearBuffer* buffer, int value) {
    return IntegerBinary::writeTo(buffer, value);
}
int CharsetBinary::sizeOf(int value) {
    return IntegerBinary::sizeOf(value);
}
