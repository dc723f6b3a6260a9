#pragma once

#include "platform/export.h"

/// A cursor over a fixed array of octets that stays the caller's. It serves for reading and for
/// writing; after writing, getPosition() is the number of octets written.
class LUM_EXPORT LinearBuffer {
public:
    /// A cursor at the first of `length` octets. The buffer never frees the array.
    LinearBuffer(unsigned char* data, int length);

    /// The array, the caller's own.
    unsigned char* getData() const { return data_; }
    /// Index of the next octet to read or write.
    int getPosition() const { return position_; }
    /// Number of octets in the array.
    int getLength() const { return length_; }

    /// Whether there is an octet at the cursor.
    bool hasMore() const { return position_ < length_; }

    /// The next octet, unchecked: call it only after hasMore().
    unsigned char readByte() { return data_[position_++]; }

    /// Reads the next octet; false, and nothing changed, behind the end. The bound is lenient: at
    /// getPosition() == getLength() it still reads the one octet behind the end, which must then be
    /// readable. Who cannot vouch for that octet asks hasMore() first, as all codecs here do.
    bool readByte(unsigned char* out);

    /// The octets from the cursor to the end of the array.
    const unsigned char* rest() const { return data_ + position_; }
    /// How many octets rest() shows.
    int restLength() const { return hasMore() ? length_ - position_ : 0; }

    /// Passes over the next `n` octets and gives where they begin; null, and nothing changed, when
    /// there are not as many.
    const unsigned char* skip(int n);

    /// Copies the next `n` octets to `out`; false, and nothing copied, when there are not as many.
    bool readData(unsigned char* out, int n);

    /// Writes one octet; false when there is no room.
    bool appendByte(unsigned char octet);
    /// Writes `n` octets, all or nothing; false when there is no room for all.
    bool appendData(const unsigned char* src, int n);
    /// The next `n` octets, to be written by the caller; null, and nothing changed, when there is no
    /// room for all.
    unsigned char* claim(int n);

    /// Goes `n` octets back, at most to the beginning.
    void rewind(int n);
    /// Goes `n` octets on. Going to the end or beyond it leaves the cursor on the last octet, so
    /// that hasMore() stays true: deliberately not the mirror image of rewind().
    void forward(int n);

    /// Sets every octet of the array to zero; the cursor stays.
    void zerolize();

private:
    unsigned char* data_;
    int position_ = 0;
    int length_;
};
