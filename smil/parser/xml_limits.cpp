#include "smil/parser/xml_limits.h"

#include <QStringView>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

constexpr int ALLOWED = 0;
constexpr int REFUSED = -8;
constexpr int TOO_DEEP = -16;

constexpr qsizetype COUNTED_XML = 16384; // longer texts go to the scan without being counted first

/// Whether entities or default attributes may be declared: what is read is then not what is written.
bool declares(QStringView xml) {
    return xml.contains(QLatin1StringView("<!DOCTYPE")) &&
           (xml.contains(QLatin1StringView("<!ENTITY")) || xml.contains(QLatin1StringView("<!ATTLIST")));
}

/// Whether the declaration of an entity may itself use entities, also those that only a declaration
/// can use ("%"). Ten such lines are enough to expand to 10,000,000,000 pieces of nothing.
bool nestsEntities(QStringView xml) {
    const QLatin1StringView opening("<!ENTITY");
    for (qsizetype at = xml.indexOf(opening); at >= 0; at = xml.indexOf(opening, at)) {
        const QStringView declaration = xml.sliced(at);
        const auto isQuote = [](QChar c) { return c == u'"' || c == u'\''; };
        const auto quote = std::find_if(declaration.begin(), declaration.end(), isQuote);
        const auto end = quote == declaration.end() ? quote : std::find(quote + 1, declaration.end(), *quote);
        if (std::any_of(declaration.begin(), end, [](QChar c) { return c == u'&' || c == u'%'; }))
            return true;
        at += opening.size();
    }
    return false;
}

/// Whether there is too little markup for breaking a limit, as in almost every presentation: each
/// element takes a "<", each attribute a "=", each declaration a "!". Long texts are not counted here.
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

/// Whether the XML reader, up to its first error, meets an element that is too deep.
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

/// Walks over a text from one piece of markup to the next.
class MarkupScan {
public:
    explicit MarkupScan(QStringView xml) : xml_(xml) {}

    /// The first limit that the markup breaks.
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
            if (deepest_ > MAX_XML_DEPTH)
                return TOO_DEEP;
        }
        return ALLOWED;
    }

private:
    void skipPast(qsizetype opening, QLatin1StringView closing) {
        const qsizetype found = xml_.indexOf(closing, at_ + opening);
        at_ = found < 0 ? xml_.size() : found + closing.size();
    }

    /// Passes over one tag or declaration, keeping count of the depth; the number of its attributes,
    /// that is of its quoted values. A document type stops before the declarations inside it.
    qsizetype readTag(QChar kind) {
        const bool declaration = kind == u'!';
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
        if (declaration)
            return 0;
        if (kind != u'/')
            deepest_ = std::max(deepest_, ++depth_);
        if (kind == u'/' || xml_[at_ - 1] == u'/')
            --depth_;
        return values;
    }

    QStringView xml_;
    qsizetype at_ = 0;
    qsizetype depth_ = 0;
    qsizetype deepest_ = 0;
};

} // namespace

int checkXmlLimits(const QString& xml) {
    if (isHarmless(xml))
        return ALLOWED;
    if (declares(xml)) {
        if (xml.size() > MAX_DECLARING_XML || nestsEntities(xml))
            return REFUSED;
        return readsTooDeep(xml) ? TOO_DEEP : ALLOWED;
    }
    const int result = MarkupScan(xml).check();
    return result == TOO_DEEP && !readsTooDeep(xml) ? ALLOWED : result;
}
