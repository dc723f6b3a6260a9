#include "multipart/body_text.h"

#include <QString>
#include <QTextCodec>

#include <algorithm>
#include <iterator>

namespace {

/// IANA MIBenum numbers of the charsets with 16-bit units.
enum MIB : int {
    MIB_UCS_2 = 1000,
    MIB_UTF_16_BE = 1013,
    MIB_UTF_16_LE = 1014,
    MIB_UTF_16 = 1015,
};

/// The ranges of MIBenum numbers that are assigned: the codec look-up for any other is slow and finds
/// nothing.
constexpr struct { int first, last; } assignedMibs[] = {{3, 119}, {1000, 1021}, {2000, 2110}, {2250, 2260}};

constexpr int pieceSize = 2048; // units or octets converted at a time

/// Collects UTF-16 units as UTF-8 up to the first NUL, in pieces, so that memory use stays near the size of
/// the result.
class Utf8Text {
public:
    /// `expected` is the least number of octets to come unless a NUL ends the text. (octets_(0) allocates a
    /// block of its own, which can then grow in place.)
    explicit Utf8Text(qsizetype expected) : octets_(0), expected_(expected) {}

    /// Adds units. False when a NUL ended the text.
    bool append(QStringView units) {
        const qsizetype end = units.indexOf(QChar(0));
        const QStringView text = end < 0 ? units : units.first(end);
        if (half_.isNull()) {
            appendWhole(text);
        } else if (!text.isEmpty()) {
            const QChar pair[] = {half_, text.front()};
            half_ = QChar();
            if (pair[1].isLowSurrogate())
                appendOctets(QStringView(pair, 2).toUtf8());
            else
                appendOctets(QStringView(pair, 1).toUtf8());
            appendWhole(text.sliced(pair[1].isLowSurrogate() ? 1 : 0));
        }
        return end < 0 && !failed_;
    }

    /// The text; the null array when memory ran out.
    QArray<char> take() {
        if (!half_.isNull())
            appendOctets(QStringView(&half_, 1).toUtf8());
        if (failed_ || ((used_ < octets_.size() || octets_.isNull()) && !octets_.resize(used_)))
            return QArray<char>();
        return std::move(octets_);
    }

private:
    /// Adds units, but holds a high surrogate back until its low surrogate comes.
    void appendWhole(QStringView text) {
        if (!text.isEmpty() && text.back().isHighSurrogate()) {
            half_ = text.back();
            text.chop(1);
        }
        appendOctets(text.toUtf8());
    }
    void appendOctets(const QByteArray& utf8) {
        const qsizetype needed = used_ + utf8.size();
        if (needed > octets_.size())
            failed_ = failed_ || !octets_.resize(std::max({needed, used_ + used_ / 2, expected_}));
        if (failed_)
            return;
        std::copy(utf8.begin(), utf8.end(), octets_.data() + used_);
        used_ = needed;
    }

    QArray<char> octets_;
    qsizetype used_ = 0;
    const qsizetype expected_;
    QChar half_;
    bool failed_ = false;
};

QArray<char> sixteenBitText(const unsigned char* octets, int length, int mib) {
    qsizetype count = length / 2;
    const auto startsWith = [octets, count](unsigned char first, unsigned char second) {
        return count > 0 && octets[0] == first && octets[1] == second;
    };
    const bool littleEndian = mib == MIB_UTF_16_LE || startsWith(0xFF, 0xFE);
    if (startsWith(0xFF, 0xFE) || startsWith(0xFE, 0xFF)) {
        octets += 2;
        --count;
    }
    const auto unitAt = [=](qsizetype i) {
        // In any other byte order adjacent units are exchanged (1, 0, 3, 2, ...), not the octets of each.
        // Deliberate. With an odd count the last unit stays.
        if (!littleEndian && (i ^ 1) < count)
            i ^= 1;
        return static_cast<char16_t>(octets[2 * i] | octets[2 * i + 1] << 8);
    };
    Utf8Text text(count);
    char16_t piece[pieceSize];
    for (qsizetype done = 0; done < count;) {
        const qsizetype size = std::min<qsizetype>(count - done, pieceSize);
        for (qsizetype i = 0; i < size; ++i)
            piece[i] = unitAt(done + i);
        if (!text.append(QStringView(piece, size)))
            break;
        done += size;
    }
    return text.take();
}

QArray<char> decodedText(const unsigned char* octets, int length, const QTextCodec& codec) {
    const char* data = reinterpret_cast<const char*>(octets);
    QTextCodec::ConverterState state;
    Utf8Text text(length);
    bool goesOn = true;
    for (int done = 0; done < length && goesOn; done += pieceSize)
        goesOn = text.append(codec.toUnicode(data + done, std::min(length - done, pieceSize), &state));
    if (goesOn && state.remainingChars > 0) { // the text ends inside a character
        const QChar replacement = QChar::ReplacementCharacter;
        text.append(QStringView(&replacement, 1));
    }
    return text.take();
}

} // namespace

const QTextCodec* Charsets::find(int mib) {
    if (std::none_of(std::begin(assignedMibs), std::end(assignedMibs),
                     [mib](const auto& range) { return mib >= range.first && mib <= range.last; }))
        return nullptr;
    const auto known = found_.constFind(mib);
    return known != found_.cend() ? *known : *found_.insert(mib, QTextCodec::codecForMib(mib));
}

std::optional<QArray<char>> bodyTextAsUtf8(const unsigned char* octets, int length, int mib,
                                           Charsets& charsets) {
    switch (mib) {
    case mibUtf8:
        return std::nullopt;
    case MIB_UCS_2:
    case MIB_UTF_16_BE:
    case MIB_UTF_16_LE:
    case MIB_UTF_16:
        return sixteenBitText(octets, length, mib);
    }
    if (const QTextCodec* codec = charsets.find(mib))
        return decodedText(octets, length, *codec);
    return std::nullopt;
}
