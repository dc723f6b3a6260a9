#include "smil/model/presentation.h"
#include "smil/model/words.h"
#include "smil/parser/smil_parser.h"
#include "smil/parser/xml_limits.h"

#include <QDomDocument>
#include <QFile>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <optional>

namespace {

constexpr int READ = 0;
constexpr int ERR_NO_FILE = -1;
constexpr int ERR_MISSING = -6;
constexpr int ERR_NOT_WELL_FORMED = -8;
constexpr int ERR_NOT_SMIL = -9;
constexpr int ERR_HEAD_BEHIND_BODY = -10;
constexpr int ERR_SECOND_BODY = -11;
constexpr int ERR_SECOND_HEAD = -12;
constexpr int ERR_NO_SLIDE = -15;
constexpr int ERR_TOO_DEEP = -16;
constexpr int ERR_NO_REGION = 2;

constexpr int WARNING_NONE = 0;
constexpr int WARNING_SKIPPED = 1;

constexpr int BARE_ELEMENT_DURATION = 5000;
// The deepest nesting of seq and par, which are read recursively. Phones write at most two levels.
constexpr int MAX_TIMING_DEPTH = 10;

// The standard regions exactly as phones write them, sometimes twice.
constexpr QLatin1StringView STANDARD_REGIONS[] = {
    QLatin1StringView(
        "<region id=\"text\"  height=\"160\"  width=\"120\" left=\"0\" top=\"0\" fit=\"hidden\" />"),
    QLatin1StringView(
        "<region id=\"image\"  height=\"160\"  width=\"120\" left=\"0\" top=\"160\" fit=\"hidden\" />"),
};

/// Removes the first copy of a declaration that occurs more than once; the others stay.
void removeDuplicate(QString& smil, QLatin1StringView declaration) {
    const qsizetype first = smil.indexOf(declaration);
    if (first >= 0 && smil.indexOf(declaration, first + declaration.size()) >= 0)
        smil.remove(first, declaration.size());
}

/// The octets as text for the XML reader: without closing zero, without a duplicate of a standard region,
/// from "<smil" on. `skipped` is set to the text before it.
QString repairedText(const QArray<char>& octets, bool keepDuplicates, QString& skipped) {
    const qsizetype size = octets.size();
    QString smil = QString::fromUtf8(octets.data(), octets[size - 1] == '\0' ? size - 1 : size);
    for (const QLatin1StringView region : STANDARD_REGIONS)
        if (!keepDuplicates)
            removeDuplicate(smil, region);
    const qsizetype start = std::max<qsizetype>(smil.indexOf(QLatin1StringView("<smil")), 0);
    skipped = smil.first(start);
    return start > 0 ? smil.sliced(start) : smil;
}

/// The text of an XML file in the encoding that the XML reader will use: declared, or detected from the first
/// octets. Nothing when the reader would refuse the file, or when decoding changes the declaration itself:
/// the limits could then be checked on another text than the one parsed.
std::optional<QString> shownXml(const QByteArray& octets) {
    QXmlStreamReader reader(octets);
    reader.readNext();
    if (reader.hasError())
        return std::nullopt;
    const auto shown = QStringConverter::encodingForData(octets, u'<').value_or(QStringConverter::Utf8);
    const QString text = QStringDecoder(shown)(octets);
    const QByteArray declared = reader.documentEncoding().toLatin1();
    if (declared.isEmpty())
        return text;
    QStringDecoder decode(declared.constData());
    const QString declaredText = decode.isValid() ? QString(decode(octets)) : QString();
    const auto declaration = static_cast<qsizetype>(reader.characterOffset()); // at most the number of octets
    if (declaredText.first(std::min(declaration, declaredText.size())) !=
        text.first(std::min(declaration, text.size())))
        return std::nullopt;
    return declaredText;
}

/// Builds the document tree from a QString, or from the octets of a file. False with the place of the error
/// when it is not well-formed.
template <typename Text>
bool setContent(QDomDocument& document, const Text& smil, int* line, int* column) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0) // the overload used below is deprecated since 6.5
    const QDomDocument::ParseResult result = document.setContent(smil);
    *line = static_cast<int>(result.errorLine);
    *column = static_cast<int>(result.errorColumn);
    return static_cast<bool>(result);
#else
    return document.setContent(smil, nullptr, line, column);
#endif
}

bool isMissing(const QDomElement* element) {
    return !element || element->isNull();
}

bool isPar(QStringView tag) {
    return tag == QLatin1StringView("par");
}
bool isContainer(QStringView tag) {
    return isPar(tag) || tag == QLatin1StringView("seq");
}
bool isBodyElement(QStringView tag) {
    return isContainer(tag) || mediaKindOfTag(tag);
}

} // namespace

void MMS_COMP_SMILParser::startOver() {
    warning_ = WARNING_NONE;
    errorLine_ = 0;
    errorColumn_ = 0;
}

/// Stores the place of an error and returns the status.
int MMS_COMP_SMILParser::failedAt(const QDomElement& element, int status) {
    errorLine_ = element.lineNumber();
    errorColumn_ = element.columnNumber();
    return status;
}

int MMS_COMP_SMILParser::parse(QArray<char>& smil, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data) {
    startOver();
    if (!data || smil.isEmpty())
        return ERR_MISSING;
    QString skipped;
    const int result = parseText(repairedText(smil, layoutKept_, skipped), body, data);
    if (errorLine_ == 1) // make it a position in the text as received
        errorColumn_ += static_cast<int>(skipped.size() - 1 - skipped.lastIndexOf(u'\n'));
    if (errorLine_)
        errorLine_ += static_cast<int>(skipped.count(u'\n'));
    return result;
}

int MMS_COMP_SMILParser::parse(const QString& path, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data) {
    startOver();
    if (!data)
        return ERR_MISSING;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return ERR_NO_FILE;
    // A file is read unchanged, deliberately: no repairs, nothing skipped.
    const QByteArray octets = file.readAll();
    const std::optional<QString> smil = shownXml(octets);
    if (!smil)
        return ERR_NOT_WELL_FORMED;
    if (const int result = checkXmlLimits(*smil))
        return result;
    QDomDocument document;
    const bool wellFormed = setContent(document, octets, &errorLine_, &errorColumn_);
    return parseDocument(document, wellFormed, body, data);
}

int MMS_COMP_SMILParser::parse(const QByteArray& smil, MMS_COMP_SMILMultipart* body,
                               MMS_COMP_SMILData* data) {
    QArray<char> octets(smil);
    return parse(octets, body, data);
}

int MMS_COMP_SMILParser::parse(const char* path, MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data) {
    return parse(QString::fromUtf8(path), body, data);
}

int MMS_COMP_SMILParser::parseText(const QString& smil, MMS_COMP_SMILMultipart* body,
                                   MMS_COMP_SMILData* data) {
    if (const int result = checkXmlLimits(smil))
        return result;
    QDomDocument document;
    const bool wellFormed = setContent(document, smil, &errorLine_, &errorColumn_);
    return parseDocument(document, wellFormed, body, data);
}

/// Reads a document if it is well-formed.
int MMS_COMP_SMILParser::parseDocument(const QDomDocument& document, bool wellFormed,
                                       MMS_COMP_SMILMultipart* body, MMS_COMP_SMILData* data) {
    if (!wellFormed)
        return ERR_NOT_WELL_FORMED;
    errorLine_ = 0;
    errorColumn_ = 0;
    QDomElement root = document.documentElement();
    const int result = parseSmil(&root, body, data);
    if (result == READ && !layoutKept_)
        updateToVarnelioRegion(data);
    return result;
}

int MMS_COMP_SMILParser::parseSmil(QDomElement* element, MMS_COMP_SMILMultipart* body,
                                   MMS_COMP_SMILData* data) {
    if (isMissing(element) || !data)
        return ERR_MISSING;
    if (element->tagName() != QLatin1StringView("smil"))
        return failedAt(*element, ERR_NOT_SMIL);
    bool headRead = false;
    bool bodyRead = false;
    for (QDomElement child = element->firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        int result = READ;
        if (child.tagName() == QLatin1StringView("head")) {
            if (bodyRead)
                return failedAt(child, ERR_HEAD_BEHIND_BODY);
            if (headRead)
                return failedAt(child, ERR_SECOND_HEAD);
            headRead = true;
            result = parseSmilHead(&child, data);
        } else if (child.tagName() == QLatin1StringView("body")) {
            if (bodyRead)
                return failedAt(child, ERR_SECOND_BODY);
            bodyRead = true;
            result = parseSmilBody(&child, body, data);
        } else {
            warning_ = WARNING_SKIPPED;
        }
        if (result != READ)
            return result;
    }
    return READ;
}

int MMS_COMP_SMILParser::parseSmilHead(QDomElement* element, MMS_COMP_SMILData* data) {
    if (isMissing(element) || !data)
        return ERR_MISSING;
    bool layoutRead = false;
    for (QDomElement child = element->firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        int result = READ;
        if (child.tagName() == QLatin1StringView("meta")) {
            result = parseSmilMeta(&child, data);
        } else if (child.tagName() == QLatin1StringView("layout") && !layoutRead) {
            layoutRead = true;
            result = parseSmilLayout(&child, data);
        } else {
            return READ; // the rest of the head is ignored, without a warning
        }
        if (result != READ)
            return result;
    }
    return READ;
}

int MMS_COMP_SMILParser::parseSmilMeta(QDomElement* element, MMS_COMP_SMILData* data) {
    if (isMissing(element) || !data)
        return ERR_MISSING;
    data->appendMeta(element->attribute(QStringLiteral("name")),
                     element->attribute(QStringLiteral("content")));
    return READ;
}

int MMS_COMP_SMILParser::parseSmilLayout(QDomElement* element, MMS_COMP_SMILData* data) {
    if (isMissing(element) || !data)
        return ERR_MISSING;
    // Regions and the first root-layout are read. Others are skipped with a warning: unknown elements, the
    // one region right behind each of them, further root-layouts.
    bool rootLayoutRead = false;
    bool behindUnknown = false;
    for (QDomElement child = element->firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const bool isRegion = child.tagName() == QLatin1StringView("region");
        const bool isRootLayout = child.tagName() == QLatin1StringView("root-layout");
        int result = READ;
        if (isRegion && !behindUnknown) {
            result = parseSmilRegion(&child, data);
        } else if (isRootLayout && !rootLayoutRead) {
            rootLayoutRead = true;
            result = parseSmilRootLayout(&child, data);
        } else {
            warning_ = WARNING_SKIPPED;
        }
        behindUnknown = !isRegion && !isRootLayout;
        if (result != READ)
            return result;
    }
    return READ;
}

int MMS_COMP_SMILParser::parseSmilRootLayout(QDomElement* element, MMS_COMP_SMILData* data) {
    return isMissing(element) || !data ? ERR_MISSING : data->setRootLayout(element);
}

int MMS_COMP_SMILParser::parseSmilRegion(QDomElement* element, MMS_COMP_SMILData* data) {
    if (isMissing(element) || !data)
        return ERR_MISSING;
    const QString left = element->attribute(QStringLiteral("left"));
    const QString top = element->attribute(QStringLiteral("top"));
    const QString height = element->attribute(QStringLiteral("height"));
    const QString width = element->attribute(QStringLiteral("width"));
    const QString fit = element->attribute(QStringLiteral("fit"));
    const QString id = element->attribute(QStringLiteral("id"));
    return data->appendRegion(left, top, width, height, fit, id) ? READ : ERR_NO_REGION;
}

int MMS_COMP_SMILParser::parseSmilBody(QDomElement* element, MMS_COMP_SMILMultipart* body,
                                       MMS_COMP_SMILData* data) {
    if (isMissing(element) || !data)
        return ERR_MISSING;
    int depth = 0;
    return readSlides(element, body, data, BARE_ELEMENT_DURATION, depth);
}

int MMS_COMP_SMILParser::parseSmilSeq(QDomElement* element, MMS_COMP_SMILMultipart* body,
                                      MMS_COMP_SMILData* data, int& depth) {
    if (isMissing(element) || !data)
        return ERR_MISSING;
    return readSlides(element, body, data, parseDur(element->attribute(QStringLiteral("dur"))), depth);
}

/// Reads the children of a `body` or `seq`: each media element becomes a slide.
int MMS_COMP_SMILParser::readSlides(QDomElement* element, MMS_COMP_SMILMultipart* body,
                                    MMS_COMP_SMILData* data, int duration, int& depth) {
    for (QDomElement child = element->firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString tag = child.tagName();
        int result = READ;
        if (isContainer(tag))
            result = readContainer(&child, body, data, depth);
        else if (isBodyElement(tag))
            result = readMedia(&child, body, data, true, duration);
        if (result != READ)
            return result;
    }
    return READ;
}

int MMS_COMP_SMILParser::parseSmilPar(QDomElement* element, MMS_COMP_SMILMultipart* body,
                                      MMS_COMP_SMILData* data, int& depth) {
    if (isMissing(element) || !data)
        return ERR_MISSING;
    const int duration = parseDur(element->attribute(QStringLiteral("dur")));
    MMS_COMP_SMILTimingContainer* slide = data->appendSlide();
    if (!slide)
        return ERR_NO_SLIDE;
    slide->setDur(duration);
    bool newSlide = false;
    for (QDomElement child = element->firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString tag = child.tagName();
        int result = READ;
        if (isContainer(tag)) {
            result = readContainer(&child, body, data, depth);
            newSlide = true; // the last slide belongs to the inner container
        } else if (isBodyElement(tag)) {
            result = readMedia(&child, body, data, newSlide, duration);
            newSlide = false; // also when the element was skipped for missing content
        }
        if (result != READ)
            return result;
    }
    return READ;
}

/// Reads a `seq` or `par` nested in `depth` others.
int MMS_COMP_SMILParser::readContainer(QDomElement* element, MMS_COMP_SMILMultipart* body,
                                       MMS_COMP_SMILData* data, int& depth) {
    if (depth >= MAX_TIMING_DEPTH)
        return failedAt(*element, ERR_TOO_DEEP);
    ++depth;
    const int result = isPar(element->tagName()) ? parseSmilPar(element, body, data, depth)
                                                 : parseSmilSeq(element, body, data, depth);
    --depth;
    return result;
}

/// Adds a media element to the document. One that the document skips sets a warning.
int MMS_COMP_SMILParser::readMedia(QDomElement* element, MMS_COMP_SMILMultipart* body,
                                   MMS_COMP_SMILData* data, bool newSlide, int duration) {
    MMS_COMP_SMILMediaObject* object = nullptr;
    const int result = data->appendElementObject(element, body, newSlide, duration, &object);
    if (result == READ)
        return parseMediaObjectParam(element, object);
    if (result < READ)
        return result;
    warning_ = result;
    return READ;
}

int MMS_COMP_SMILParser::parseMediaObjectParam(QDomElement* element, MMS_COMP_SMILMediaObject* object) {
    if (isMissing(element) || !object)
        return ERR_MISSING;
    for (QDomElement child = element->firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        if (child.tagName() != QLatin1StringView("param"))
            warning_ = WARNING_SKIPPED;
    return READ;
}

bool MMS_COMP_SMILParser::isValidBodyElement(QDomElement* element) {
    return !isMissing(element) && isBodyElement(element->tagName());
}

QDomNode MMS_COMP_SMILParser::getNextSibling(QDomNode node) {
    return node.nextSibling();
}

MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE MMS_COMP_SMILParser::getTypeEnum(const QString& word) {
    for (const MediaKind& kind : mediaKinds)
        if (kind.type != MMS_COMP_SMIL_MEDIA_REF && word == kind.contentType)
            return kind.type;
    return MMS_COMP_SMIL_MEDIA_OTHER;
}

QString MMS_COMP_SMILParser::getMimeTypeStr(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type) {
    const MediaKind* kind = type == MMS_COMP_SMIL_MEDIA_REF ? nullptr : mediaKindOfType(type);
    return kind ? QString(kind->contentType) : QStringLiteral("");
}
