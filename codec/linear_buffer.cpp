#include "codec/linear_buffer.h"

#include <algorithm>
#include <cstring>

namespace {

static_assert(sizeof(long long) > sizeof(int), "a position and a step add up in a long long");

/// Whether `n` octets are left. False behind the end, where readByte() can lead, even for none.
bool fits(const LinearBuffer& buffer, int n) {
    return n >= 0 && n <= buffer.getLength() - buffer.getPosition();
}

} // namespace

LinearBuffer::LinearBuffer(unsigned char* data, int length) : data_(data), length_(std::max(length, 0)) {
}

bool LinearBuffer::readByte(unsigned char* out) {
    if (position_ > length_)
        return false;
    *out = readByte();
    return true;
}

const unsigned char* LinearBuffer::skip(int n) {
    if (!fits(*this, n))
        return nullptr;
    const unsigned char* begin = rest();
    position_ += n;
    return begin;
}

bool LinearBuffer::readData(unsigned char* out, int n) {
    if (!fits(*this, n))
        return false;
    if (n)
        std::memcpy(out, skip(n), static_cast<size_t>(n));
    return true;
}

bool LinearBuffer::appendByte(unsigned char octet) {
    if (!hasMore())
        return false;
    data_[position_++] = octet;
    return true;
}

bool LinearBuffer::appendData(const unsigned char* src, int n) {
    if (!fits(*this, n))
        return false;
    if (n)
        std::memcpy(data_ + position_, src, static_cast<size_t>(n));
    position_ += n;
    return true;
}

unsigned char* LinearBuffer::claim(int n) {
    if (!fits(*this, n))
        return nullptr;
    unsigned char* begin = data_ + position_;
    position_ += n;
    return begin;
}

void LinearBuffer::rewind(int n) {
    const long long target = static_cast<long long>(position_) - n;
    position_ = static_cast<int>(std::clamp(target, 0LL, static_cast<long long>(length_)));
}

void LinearBuffer::forward(int n) {
    const long long target = static_cast<long long>(position_) + n;
    // a step over the end stops on the last octet, not behind it
    position_ = static_cast<int>(std::clamp(target, 0LL, std::max(length_ - 1LL, 0LL)));
}

void LinearBuffer::zerolize() {
    if (length_ > 0)
        std::memset(data_, 0, static_cast<size_t>(length_));
}
