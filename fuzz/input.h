#pragma once

#include "qt2/qarray.h"

#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>

// What the fuzz targets share.

/// The input in an allocation of its own that ends exactly with its last octet, so that
/// AddressSanitizer notices the first octet that is read behind it.
class ExactInput {
public:
    ExactInput(const uint8_t* data, size_t size) : octets_(new unsigned char[size]), size_(size) {
        if (size)
            std::memcpy(octets_.get(), data, size);
    }

    unsigned char* data() const { return octets_.get(); }
    unsigned int size() const { return static_cast<unsigned int>(size_); }
    /// The octets as an array that shows them without a copy.
    QArray<char> array() const {
        QArray<char> shown;
        shown.setRawData(reinterpret_cast<const char*>(octets_.get()), static_cast<qsizetype>(size_));
        return shown;
    }

private:
    std::unique_ptr<unsigned char[]> octets_;
    size_t size_;
};

/// Numbers that the input chooses, one octet each; 0 when there are no more.
class Choices {
public:
    Choices(const uint8_t* data, size_t size) : at_(data), end_(data + size) {}

    bool hasMore() const { return at_ != end_; }
    /// From 0 to below `limit`.
    int next(int limit) { return hasMore() ? *at_++ % limit : 0; }

private:
    const uint8_t* at_;
    const uint8_t* end_;
};

/// Ends the process, so that the fuzzer keeps the input, unless the property holds.
inline void require(bool holds, const char* property) {
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", property);
    std::abort();
}

/// A file in memory that holds one input after the other.
class InputFile {
public:
    InputFile() : fd_(::memfd_create("input", MFD_CLOEXEC)) {}

    QString path() const { return QStringLiteral("/proc/self/fd/%1").arg(fd_); }
    void fill(const uint8_t* data, size_t size) {
        require(::ftruncate(fd_, 0) == 0 && ::pwrite(fd_, data, size, 0) == ssize_t(size),
                "a file in memory");
    }

private:
    int fd_;
};

/// Whether a text comes back as it was through every codec: printable ASCII, and not begun by a quote
/// of the wire or by what the readers take for one.
inline bool isPlain(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7F; }) &&
           !text.startsWith(u'"');
}

/// Looks at every character, so that a text over memory that is not there is noticed.
inline size_t touched(const QString& text) {
    size_t sum = 0;
    for (const QChar c : text)
        sum += c.unicode();
    return sum;
}
inline size_t touched(const QArray<char>& octets) {
    size_t sum = 0;
    for (const char c : octets)
        sum += static_cast<unsigned char>(c);
    return sum;
}
