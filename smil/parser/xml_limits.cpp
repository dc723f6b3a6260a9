#include "smil/parser/xml_limits.h"

#include "util/lowered.h"

#include <QStringView>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

constexpr int ALLOWED = 0;
constexpr int REFUSED = -8;
constexpr int TOO_DEEP = -16;

constexpr qsizetype COUNTED_XML = 16384; // longer texts are scanned without this count first

/// The value of a hexadecimal digit; 16 for anything else.
unsigned int digitValue(QChar c) {
    const char16_t unit = loweredAscii(c.unicode());
    return unit >= u'0' && unit <= u'9'   ? unit - u'0'
           : unit >= u'a' && unit <= u'f' ? unit - u'a' + 10u
                                          : 16u;
}

/// Whether an entity's name can begin with this, or with what a character reference puts here.
bool beginsName(QChar c) {
    return c.isLetter() || c.unicode() >= 0x80 || c == u'_' || c == u':' || c == u'&';
}

/// Whether a text begins with a character reference, other than to a "&" that begins an entity reference, as
/// in
/// "&#38;a;".
bool beginsCharacter(QStringView text) {
    if (!text.startsWith(QLatin1StringView("&#")))
        return false;
    const bool isHexadecimal = text.sliced(2).startsWith(u'x');
    const unsigned int base = isHexadecimal ? 16 : 10;
    const qsizetype digits = isHexadecimal ? 3 : 2;
    constexpr unsigned int beyond = 0x110000;
    unsigned int character = 0;
    qsizetype end = digits;
    for (; end < text.size() && digitValue(text[end]) < base; ++end)
        character = std::min(character * base + digitValue(text[end]), beyond);
    if (end == digits || end == text.size() || text[end] != u';')
        return false;
    return character != u'&' || end + 1 == text.size() || !beginsName(text[end + 1]);
}

/// Whether an entity declaration, from the entity's name on, may use other entities; a parameter entity ("%")
/// can contain such declarations. Ten such lines can expand to 10,000,000,000 references.
bool nestsEntities(QStringView declaration) {
    if (declaration.trimmed().startsWith(u'%'))
        return true;
    for (qsizetype i = 0; i < declaration.size(); ++i)
        if (declaration[i] == u'&' && !beginsCharacter(declaration.sliced(i)))
            return true;
    return false;
}

/// Whether a short text has too little markup to break a limit, the usual case: no more "<" than elements may
/// be nested, no more "=" than a tag may have attributes, and no declaration ("!").
bool isHarmless(QStringView xml) {
    if (xml.size() > COUNTED_XML)
        return false;
    int elements = 0;
    int attributes = 0;
    int declarations = 0;
    for (const QChar c : xml) {
        elements += c == u'<';
        attributes += c == u'=';
        declarations += c == u'!';
    }
    return elements <= MAX_XML_DEPTH && attributes <= MAX_XML_ATTRIBUTES && declarations == 0;
}

/// Whether the XML reader meets an element nested too deep before its first error.
bool readsTooDeep(const QString& xml) {
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    while (!reader.atEnd() && depth <= MAX_XML_DEPTH) {
        reader.readNext();
        if (reader.isStartElement())
            ++depth;
        else if (reader.isEndElement())
            --depth;
    }
    return depth > MAX_XML_DEPTH;
}

/// Walks through the markup of a text.
class MarkupScan {
public:
    explicit MarkupScan(QStringView xml) : xml_(xml) {}

    /// Checks all markup; returns the first limit broken. When entities or attributes are declared,
    /// the document can be larger than its text: the text must then be short, and no entity may use another.
    int check() {
        while ((at_ = xml_.indexOf(u'<', at_)) >= 0) {
            const QStringView markup = xml_.sliced(at_);
            const QChar kind = markup.size() > 1 ? markup[1] : QChar();
            if (kind == u'?')
                skipPast(2, QLatin1StringView("?>"));
            else if (kind == u'!' && markup.startsWith(QLatin1StringView("<!--")))
                skipPast(4, QLatin1StringView("-->"));
            else if (kind == u'!' && markup.startsWith(QLatin1StringView("<![CDATA[")))
                skipPast(9, QLatin1StringView("]]>"));
            else if (readTag(kind) > MAX_XML_ATTRIBUTES)
                return REFUSED;
            if (nests_ || (declares_ && xml_.size() > MAX_DECLARING_XML))
                return REFUSED;
            if (deepest_ > MAX_XML_DEPTH)
                return TOO_DEEP;
        }
        return ALLOWED;
    }

    /// Whether check() found a declaration of an entity or of attributes.
    bool declares() const { return declares_; }

private:
    void skipPast(qsizetype opening, QLatin1StringView closing) {
        const qsizetype found = xml_.indexOf(closing, at_ + opening);
        at_ = found < 0 ? xml_.size() : found + closing.size();
    }

    /// Skips one tag or declaration and updates the depth. Returns the number of its quoted values, which are
    /// its attributes. In a document type it stops at the first declaration inside.
    qsizetype readTag(QChar kind) {
        const bool declaration = kind == u'!';
        const qsizetype begin = at_;
        qsizetype values = 0;
        for (++at_; at_ < xml_.size() && xml_[at_] != u'>'; ++at_) {
            const QChar c = xml_[at_];
            if (declaration && c == u'[')
                return 0;
            if (c == u'"' || c == u'\'') {
                ++values;
                const qsizetype close = xml_.indexOf(c, at_ + 1);
                at_ = close < 0 ? xml_.size() - 1 : close;
            }
        }
        if (declaration) {
            readDeclaration(xml_.sliced(begin, at_ - begin));
            return 0;
        }
        if (kind != u'/')
            deepest_ = std::max(deepest_, ++depth_);
        if (kind == u'/' || xml_[at_ - 1] == u'/')
            --depth_;
        return values;
    }

    void readDeclaration(QStringView text) {
        constexpr QLatin1StringView entity("<!ENTITY");
        const bool isEntity = text.startsWith(entity);
        declares_ = declares_ || isEntity || text.startsWith(QLatin1StringView("<!ATTLIST"));
        nests_ = nests_ || (isEntity && nestsEntities(text.sliced(entity.size())));
    }

    QStringView xml_;
    qsizetype at_ = 0;
    qsizetype depth_ = 0;
    qsizetype deepest_ = 0;
    bool declares_ = false;
    bool nests_ = false;
};

} // namespace

int checkXmlLimits(const QString& xml) {
    if (isHarmless(xml))
        return ALLOWED;
    MarkupScan scan(xml);
    const int result = scan.check();
    // with entities or default attributes only the XML reader knows the depth
    if (result == TOO_DEEP || (result == ALLOWED && scan.declares()))
        return readsTooDeep(xml) ? TOO_DEEP : ALLOWED;
    return result;
}
