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

// Helpers of the fuzz targets.

/// The input in an allocation that ends with its last octet, so that AddressSanitizer detects reading behind
/// it.
class ExactInput {
public:
    ExactInput(const uint8_t* data, size_t size) : octets_(new unsigned char[size]), size_(size) {
        if (size)
            std::memcpy(octets_.get(), data, size);
    }

    unsigned char* data() const { return octets_.get(); }
    unsigned int size() const { return static_cast<unsigned int>(size_); }
    /// The octets as an array, without a copy.
    QArray<char> array() const {
        QArray<char> shown;
        shown.setRawData(reinterpret_cast<const char*>(octets_.get()), static_cast<qsizetype>(size_));
        return shown;
    }

private:
    std::unique_ptr<unsigned char[]> octets_;
    size_t size_;
};

/// Numbers chosen by the input, one octet each; 0 at its end.
class Choices {
public:
    Choices(const uint8_t* data, size_t size) : at_(data), end_(data + size) {}

    bool hasMore() const { return at_ != end_; }
    /// A number from 0 to `limit` - 1.
    int next(int limit) { return hasMore() ? *at_++ % limit : 0; }

private:
    const uint8_t* at_;
    const uint8_t* end_;
};

/// Aborts if the property does not hold, so that the fuzzer reports the input.
inline void require(bool holds, const char* property) {
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", property);
    std::abort();
}

/// A file in memory, rewritten for each input.
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

/// Whether every codec returns the text unchanged: printable ASCII that does not begin with a quote of the
/// encoding or what the readers take for one.
inline bool isPlain(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7F; }) &&
           !text.startsWith(u'"');
}

/// Reads every character, so that AddressSanitizer detects a text in freed memory.
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
