#pragma once

#include <QByteArray>
#include <QDataStream>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

/// The explicitly shared array of Qt 2. Copies share the elements: a change through one, a resize too, is
/// seen in the others, until duplicate(), copy() or detach() makes a private copy.
///
/// A zero element is always readable behind the last (except after setRawData()), so that text in an array
/// can be passed to a C function. A null array has no elements and shares nothing. Elements are plain values,
/// copied octet by octet. Arrays that share elements belong to one thread.
template <typename T>
class QArray {
    static_assert(std::is_trivially_copyable_v<T>, "QArray copies its elements octet by octet");

public:
    /// The null array.
    QArray() = default;
    /// `size` elements of unspecified value; the null array if there is no memory for them.
    explicit QArray(qsizetype size) : block_(Block::make(size)) {}
    /// Shares the elements of `other`.
    QArray(const QArray& other) : block_(other.block_) { ref(); }
    /// Takes over the elements; `other` is the null array then.
    QArray(QArray&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    ~QArray() { deref(); }

    /// Shares the elements of `other` instead of its own.
    QArray& operator=(QArray other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }

    /// A private copy of the octets; a null QByteArray gives the null array.
    QArray(const QByteArray& octets) requires(sizeof(T) == 1)
        : block_(octets.isNull() ? nullptr : Block::copyOf(asElements(octets), octets.size())) {}
    /// A copy of the octets; the null array gives a null QByteArray.
    operator QByteArray() const requires(sizeof(T) == 1) {
        return block_ ? QByteArray(reinterpret_cast<const char*>(data()), size()) : QByteArray();
    }

    /// The elements, shared by all copies; null for the null array.
    T* data() { return block_ ? block_->elements : nullptr; }
    /// The same for reading.
    const T* data() const { return block_ ? block_->elements : nullptr; }
    /// Number of elements.
    qsizetype size() const { return block_ ? block_->size : 0; }
    /// Number of elements.
    qsizetype count() const { return size(); }
    /// Whether there is no element.
    bool isEmpty() const { return size() == 0; }
    /// Whether this is the null array.
    bool isNull() const { return !block_; }

    /// The element at `index`, which must be below size().
    T& at(qsizetype index) { return block_->elements[index]; }
    /// The same for reading.
    const T& at(qsizetype index) const { return block_->elements[index]; }
    /// As at().
    T& operator[](qsizetype index) { return at(index); }
    /// As at().
    const T& operator[](qsizetype index) const { return at(index); }

    /// The first element, for loops.
    T* begin() { return data(); }
    /// Behind the last element.
    T* end() { return data() + size(); }
    /// The first element, for loops.
    const T* begin() const { return data(); }
    /// Behind the last element.
    const T* end() const { return data() + size(); }

    /// Changes the size for all that share the elements; new elements are zero. False, and nothing
    /// changed, when there is no memory for it or the size is negative.
    bool resize(qsizetype size) {
        if (block_)
            return block_->resize(size);
        block_ = Block::make(size);
        if (block_)
            std::fill_n(reinterpret_cast<char*>(block_->elements), byteCount(size), char(0));
        return block_ != nullptr;
    }

    /// Makes this a private copy of `size` elements at `elements`. False, and nothing changed, when
    /// there is no memory for it.
    bool duplicate(const T* elements, qsizetype size) {
        Block* block = Block::copyOf(elements, size);
        if (!block)
            return false;
        deref();
        block_ = block;
        return true;
    }
    /// Makes this a private copy of `other`; the null array stays null.
    bool duplicate(const QArray& other) {
        if (!other.isNull())
            return duplicate(other.data(), other.size());
        *this = QArray();
        return true;
    }
    /// A private copy of this array.
    QArray copy() const {
        QArray result;
        result.duplicate(*this);
        return result;
    }
    /// Makes a private copy if others share these elements.
    void detach() {
        if (block_ && (block_->refs > 1 || block_->home == Home::Caller))
            duplicate(data(), size());
    }

    /// Refers to `size` elements of the caller without copying them. They must outlive this array and its
    /// copies, must not be written through it, and need no zero element behind them. A negative size gives
    /// the null array.
    void setRawData(const T* elements, qsizetype size) {
        deref();
        block_ = size < 0 ? nullptr : Block::show(elements, size);
    }

    /// Whether the elements are the same, octet by octet; null and empty are equal.
    bool operator==(const QArray& other) const { return holds(other.data(), other.size()); }
    /// Whether the octets are the same.
    bool operator==(const QByteArray& octets) const requires(sizeof(T) == 1) {
        return holds(asElements(octets), octets.size());
    }

private:
    enum class Home { Inline, Heap, Caller };

    /// The shared elements, usually in one allocation with this header.
    struct Block {
        int refs;
        Home home;
        qsizetype size;
        T* elements;

        static constexpr qsizetype header() {
            constexpr qsizetype align = alignof(std::max_align_t);
            return (qsizetype(sizeof(Block)) + align - 1) / align * align;
        }
        static constexpr qsizetype limit() {
            return (std::numeric_limits<qsizetype>::max() - header()) / qsizetype(sizeof(T)) - 1;
        }

        static Block* make(qsizetype size) {
            if (size < 0 || size > limit())
                return nullptr;
            void* memory = std::malloc(size_t(header()) + byteCount(size + 1));
            if (!memory)
                return nullptr;
            T* elements = reinterpret_cast<T*>(static_cast<char*>(memory) + header());
            Block* block = new (memory) Block{1, Home::Inline, size, elements};
            block->close();
            return block;
        }
        static Block* copyOf(const T* elements, qsizetype size) {
            Block* block = make(size);
            if (block && size)
                std::memcpy(static_cast<void*>(block->elements), elements, byteCount(size));
            return block;
        }
        static Block* show(const T* elements, qsizetype size) {
            Block* block = make(0);
            if (block) {
                block->home = Home::Caller;
                block->elements = const_cast<T*>(elements);
                block->size = size;
            }
            return block;
        }
        bool resize(qsizetype wanted) {
            if (wanted < 0 || wanted > limit())
                return false;
            if (wanted <= size && home == Home::Inline) {
                size = wanted;
                close();
                return true;
            }
            void* memory = std::realloc(home == Home::Heap ? elements : nullptr, byteCount(wanted + 1));
            if (!memory)
                return false;
            T* moved = static_cast<T*>(memory);
            if (home != Home::Heap && size)
                std::memcpy(memory, static_cast<const void*>(elements), byteCount(std::min(size, wanted)));
            if (wanted > size)
                std::memset(static_cast<void*>(moved + size), 0, byteCount(wanted - size));
            home = Home::Heap;
            elements = moved;
            size = wanted;
            close();
            return true;
        }
        void close() { std::memset(static_cast<void*>(elements + size), 0, sizeof(T)); }
    };

    static constexpr size_t byteCount(qsizetype elements) { return size_t(elements) * sizeof(T); }
    static const T* asElements(const QByteArray& octets) {
        return reinterpret_cast<const T*>(octets.constData());
    }

    bool holds(const T* elements, qsizetype count) const {
        return size() == count && (isEmpty() || !std::memcmp(data(), elements, byteCount(count)));
    }
    void ref() {
        if (block_)
            ++block_->refs;
    }
    void deref() {
        if (!block_ || --block_->refs > 0)
            return;
        if (block_->home == Home::Heap)
            std::free(block_->elements);
        std::free(block_);
    }

    Block* block_ = nullptr;
};

/// Reads `count` raw octets, in pieces as large as the stream accepts, and returns how many there were.
inline qsizetype readRawOctets(QDataStream& stream, char* octets, qsizetype count) {
    constexpr qsizetype piece = 1 << 30;
    static_assert(std::in_range<int>(piece), "a stream takes an int");
    qsizetype done = 0;
    while (done < count) {
        const int wanted = static_cast<int>(std::min(count - done, piece));
        const auto got = static_cast<qsizetype>(stream.readRawData(octets + done, wanted));
        if (got > 0)
            done += got;
        if (got < wanted)
            break;
    }
    return done;
}

/// Writes the number of elements as an unsigned 32-bit integer, then the raw elements. An array too
/// long for that is not written: the stream's status is WriteFailed then.
template <typename T>
QDataStream& operator<<(QDataStream& stream, const QArray<T>& array) {
    constexpr qsizetype piece = (1 << 30) / qsizetype(sizeof(T)) + 1;
    static_assert(std::in_range<int>(piece * qsizetype(sizeof(T))), "a stream takes an int");
    if (!std::in_range<quint32>(array.size())) {
        stream.setStatus(QDataStream::WriteFailed);
        return stream;
    }
    stream << static_cast<quint32>(array.size());
    for (qsizetype done = 0; done < array.size(); done += piece)
        stream.writeRawData(reinterpret_cast<const char*>(array.data() + done),
                            static_cast<int>(std::min(array.size() - done, piece) * qsizetype(sizeof(T))));
    return stream;
}

/// Reads what operator<< wrote into a new private array. The length is believed only as far as
/// elements follow it: a record that ends early leaves the elements that were there and the
/// stream's status at ReadPastEnd.
template <typename T>
QDataStream& operator>>(QDataStream& stream, QArray<T>& array) {
    // A length that nothing follows costs no more memory than this.
    constexpr qint64 firstStep = 64 * 1024 / qint64(sizeof(T)) + 1;
    quint32 length = 0;
    stream >> length;
    array = QArray<T>();
    while (std::cmp_less(array.size(), length) && stream.status() == QDataStream::Ok) {
        const qsizetype done = array.size();
        const qint64 size = std::min<qint64>(length, done + std::max<qint64>(firstStep, done));
        if (!std::in_range<qsizetype>(size) || !array.resize(qsizetype(size))) {
            stream.setStatus(QDataStream::ReadCorruptData);
            break;
        }
        const qsizetype wanted = (array.size() - done) * qsizetype(sizeof(T));
        const qsizetype got = readRawOctets(stream, reinterpret_cast<char*>(array.data() + done), wanted);
        if (got < wanted) {
            stream.setStatus(QDataStream::ReadPastEnd);
            array.resize(done + got / qsizetype(sizeof(T)));
        }
    }
    return stream;
}
