#include "tools/lummms/line_reader.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

/// Waits for input; a QFile would wait until its buffer is full.
bool LineReader::fill() {
    ssize_t octets = 0;
    do {
        octets = ::read(descriptor_, buffer_.data(), static_cast<size_t>(buffer_.size()));
    } while (octets < 0 && errno == EINTR);
    if (octets < 0)
        failure_ = std::strerror(errno);
    begin_ = 0;
    end_ = octets > 0 ? octets : 0;
    return end_ > 0;
}

void LineReader::take(qsizetype length) {
    isTooLong_ = isTooLong_ || line_.size() + length > LONGEST;
    if (!isTooLong_)
        line_.append(buffer_.constData() + begin_, length);
    begin_ += length;
}

bool LineReader::next() {
    line_ = QByteArray(); // not clear(), which can keep the memory of a long line
    isTooLong_ = false;
    for (bool isLine = false;; isLine = true) {
        if (begin_ == end_ && !fill())
            return isLine && failure_.isEmpty();
        const char* start = buffer_.constData() + begin_;
        const void* lineEnd = std::memchr(start, '\n', static_cast<size_t>(end_ - begin_));
        if (lineEnd) {
            take(static_cast<const char*>(lineEnd) - start);
            ++begin_;
            if (line_.endsWith('\r'))
                line_.chop(1);
            return true;
        }
        take(end_ - begin_);
    }
}
