#pragma once

#include "platform/export.h"

/// A cursor over a fixed array of octets, for reading or writing. The caller owns the array. After writing,
/// getPosition() is the number of octets written.
class LUM_EXPORT LinearBuffer {
public:
    /// Puts the cursor at the first of `length` octets. The buffer never frees the array.
    LinearBuffer(unsigned char* data, int length);

    /// The array, the caller's own.
    unsigned char* getData() const { return data_; }
    /// Index of the next octet to read or write.
    int getPosition() const { return position_; }
    /// Number of octets in the array.
    int getLength() const { return length_; }

    /// Whether there is an octet at the cursor.
    bool hasMore() const { return position_ < length_; }

    /// The next octet, unchecked: call hasMore() first.
    unsigned char readByte() { return data_[position_++]; }

    /// Reads the next octet; false, and nothing changed, behind the end. The bound is deliberately lenient:
    /// at getPosition() == getLength() it reads the octet behind the end. Unless that octet is readable,
    /// call hasMore() first, as all codecs here do.
    bool readByte(unsigned char* out);

    /// The octets from the cursor to the end of the array.
    const unsigned char* rest() const { return data_ + position_; }
    /// Number of octets at rest().
    int restLength() const { return hasMore() ? length_ - position_ : 0; }

    /// Skips the next `n` octets and returns where they begin; null, and nothing changed, when fewer are
    /// left.
    const unsigned char* skip(int n);

    /// Copies the next `n` octets to `out`; false, and nothing copied, when fewer are left.
    bool readData(unsigned char* out, int n);

    /// Writes one octet; false when there is no room.
    bool appendByte(unsigned char octet);
    /// Writes `n` octets, all or nothing; false when there is no room for all.
    bool appendData(const unsigned char* src, int n);
    /// Returns the next `n` octets for the caller to write; null, and nothing changed, when there is no room
    /// for all.
    unsigned char* claim(int n);

    /// Moves the cursor back by `n` octets, at most to the beginning.
    void rewind(int n);
    /// Moves the cursor on by `n` octets. A move to the end or beyond leaves it on the last octet, so that
    /// hasMore() stays true: deliberately not the mirror image of rewind().
    void forward(int n);

    /// Sets every octet of the array to zero; the cursor stays.
    void zerolize();

private:
    unsigned char* data_;
    int position_ = 0;
    int length_;
};
