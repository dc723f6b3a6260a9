#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>
#include <utility>

/// The UTF-16 units of a text in lower case, one after another, without a copy. Comparing two texts ends at
/// their first difference.
class LoweredUnits {
public:
    explicit LoweredUnits(QStringView text) : text_(text) {}

    bool isEqual(LoweredUnits other) {
        for (;;) {
            const int unit = next();
            if (unit != other.next())
                return false;
            if (unit < 0)
                return true;
        }
    }

    /// The next unit, or -1 behind the last.
    int next() {
        if (second_)
            return std::exchange(second_, u'\0');
        if (text_.isEmpty())
            return -1;
        char32_t character = text_[0].unicode();
        const bool isPair = text_[0].isHighSurrogate() && text_.size() > 1 && text_[1].isLowSurrogate();
        if (isPair)
            character = QChar::surrogateToUcs4(text_[0], text_[1]);
        text_ = text_.sliced(isPair ? 2 : 1);
        if (character == 0x130) { // the only letter that becomes two in lower case
            second_ = 0x307;
            return u'i';
        }
        character = QChar::toLower(character);
        if (!QChar::requiresSurrogates(character))
            return static_cast<int>(character);
        second_ = QChar::lowSurrogate(character);
        return QChar::highSurrogate(character);
    }

private:
    QStringView text_;
    char16_t second_ = 0; // the second unit of the current letter, 0 if it has none
};

/// An ASCII capital letter in lower case; any other unit unchanged.
constexpr char16_t loweredAscii(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

/// A hash of the text in lower case; 0 for the empty text.
inline quint32 loweredKey(QStringView text) {
    quint32 key = 0;
    const auto add = [&key](int unit) { key = key * 31 + static_cast<quint32>(unit); };
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].unicode() >= 0x80) {
            LoweredUnits rest(text.sliced(i));
            for (int unit = rest.next(); unit >= 0; unit = rest.next())
                add(unit);
            break;
        }
        add(loweredAscii(text[i].unicode()));
    }
    return key;
}

/// text.toLower(), without a conversion for ASCII text that is in lower case already.
inline QString lowered(const QString& text) {
    const bool isLower = std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.unicode() < 0x80 && loweredAscii(c.unicode()) == c.unicode();
    });
    return isLower ? text : text.toLower();
}

/// Whether a text in lower case begins with an ASCII word that is given in lower case.
constexpr bool startsWithLowered(QStringView text, QStringView word) {
    if (text.size() < word.size())
        return false;
    for (qsizetype i = 0; i < word.size(); ++i)
        if (loweredAscii(text[i].unicode()) != word[i].unicode())
            return false;
    return true;
}

/// Whether a.toLower() == b.toLower(), without copies.
inline bool equalLowered(QStringView a, QStringView b) {
    if (a == b)
        return true;
    const qsizetype common = std::min(a.size(), b.size());
    for (qsizetype i = 0; i < common; ++i) {
        const char16_t unitA = a[i].unicode();
        const char16_t unitB = b[i].unicode();
        if ((unitA | unitB) >= 0x80)
            return LoweredUnits(a.sliced(i)).isEqual(LoweredUnits(b.sliced(i)));
        if (loweredAscii(unitA) != loweredAscii(unitB))
            return false;
    }
    return a.size() == b.size(); // no letter becomes empty in lower case
}
