#include "bench/hostile/shapes.h"
#include "tests/octets.h"

#include <lumsmilparser.h>

#include <QDataStream>
#include <QIODevice>

namespace {

/// A body of `count` equal parts.
QByteArray body(int count, const QByteArray& part) {
    return QByteArray(1, static_cast<char>(count)) + part.repeated(count);
}

QByteArray repeated(const QByteArray& piece, int size) {
    return piece.repeated(size / int(piece.size()));
}

/// Repeats a piece between an opening and a closing.
std::function<QByteArray(int)> series(const QByteArray& opening, const QByteArray& piece,
                                      const QByteArray& closing) {
    return [=](int octets) { return opening + repeated(piece, octets) + closing; };
}

void receiveHeader(const QByteArray& octets) {
    QByteArray input = octets;
    auto length = static_cast<unsigned int>(input.size());
    MMS_UA_UAMsg msg;
    MMS_UA_Decoder().decodeHeader(reinterpret_cast<unsigned char*>(input.data()), length, &msg);
}

void receiveBody(const QByteArray& octets) {
    MMS_UA_UAMsg header;
    MMS_COMP_SMILMultipart parts;
    MMS_COMP_SMILMultipartParser::parse(octets, &header, &parts);
}

/// Reads a presentation and writes it; `parts` has its content.
void receiveSmil(const QByteArray& text, MMS_COMP_SMILMultipart& parts) {
    MMS_COMP_SMILData data(&parts);
    QArray<char> smil = text;
    MMS_COMP_SMILParser().parse(smil, &parts, &data);
    MMS_COMP_SMILParser::convertToSMILLang(&data);
    data.createUniqueSrc("a.jpg");
    data.removeEmptyTextBeforeSend();
}

MMS_COMP_SMILMultipartBodypart* partNamed(const QString& location, const QString& id) {
    auto* part = new MMS_COMP_SMILMultipartBodypart;
    part->setContentLocation(location);
    part->setContentID(id);
    return part;
}

void receiveSmilOfOnePart(const QByteArray& text) {
    MMS_COMP_SMILMultipart parts;
    parts.appendBodypart(partNamed("a", "b"));
    receiveSmil(text, parts);
}

/// As many parts as a body can have, with names as long as the message has room for beside the text. The
/// names differ only at their ends.
void receiveSmilOfLongNames(const QByteArray& text) {
    MMS_COMP_SMILMultipart parts;
    const QString begin = QString(250, u'\u00C9');
    for (int i = 0; i < 255; ++i)
        parts.appendBodypart(partNamed(begin + QString::number(i), begin + QString::number(i)));
    receiveSmil(text, parts);
}

void receiveSlideRecord(const QByteArray& octets) {
    QDataStream stream(octets);
    MMS_COMP_SMILTimingContainer slide(nullptr);
    slide.readFromStream(stream);
    slide.clear(); // the reader of a record owns its parts
}

void receivePartRecord(const QByteArray& octets) {
    QDataStream stream(octets);
    MMS_COMP_SMILMultipartBodypart part;
    part.readFromStream(stream);
}

/// Many parts in nested bodies; `headers(i)` are the headers of part i.
QByteArray bodyOfBodies(int size, const std::function<QByteArray(int)>& headers) {
    QByteArray outer;
    int count = 0;
    for (int i = 0; outer.size() < size && count < 255; ++count) {
        QByteArray inner(1, '\xFF');
        for (int j = 0; j < 255; ++j)
            inner += entry(headers(i++), QByteArray());
        outer += entry(octets("C8"), inner);
    }
    return char(count) + outer;
}

QByteArray nestedBodies(int size) {
    QByteArray inside = body(1, entry(octets("83"), QByteArray(size, 'x')));
    for (int depth = 1; depth <= 16; ++depth)
        inside = body(1, entry(octets("C8"), inside));
    return inside;
}

QByteArray partsOfOneName(int size) {
    return body(255, entry(QByteArray("image/png") + '\0', QByteArray(size / 255, 'x')));
}

QByteArray partsOfLongNames(int size) {
    const QByteArray name(std::min(size / 255, 1000), '\xC9');
    return body(255, entry(octets("83 8E") + name + '\0' + octets("C0") + name + '\0', QByteArray()));
}

QByteArray textIn(const QByteArray& mib, const QByteArray& text) {
    return body(1, entry(QByteArray(1, char(2 + mib.size())) + octets("83 81") + mib, text));
}

QByteArray texts(const QByteArray& mib, const QByteArray& piece, int size) {
    return textIn(mib, repeated(piece, size));
}

QByteArray longIntegerMib(int mib) {
    return QByteArray(1, 2) + char(mib >> 8) + char(mib & 0xFF);
}

QByteArray elements(int depth) {
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

QByteArray manyAttributes(int size) {
    QByteArray tag = "<a";
    for (int i = 0; i < 900; ++i)
        tag += " a" + QByteArray::number(i) + "=''";
    return "<smil>" + repeated(tag + "/>", size) + "</smil>";
}

QByteArray manyRegions(int size) {
    QByteArray text = "<smil><head><layout>";
    for (int i = 0; text.size() < size; ++i)
        text += "<region id='" + QByteArray::number(i) + "'/>";
    return text + "</layout></head></smil>";
}

/// Half of the octets; the other half of the message is the names of its parts.
std::function<QByteArray(int)> half(const std::function<QByteArray(int)>& make) {
    return [make](int octets) { return make(octets / 2); };
}

std::vector<Shape> headerShapes() {
    const QByteArray begin = octets("8C 84");
    return {
        {"headers of unknown names", series(begin, raw("x\0y\0"), {}), receiveHeader},
        {"unknown names without an end", series(begin, "x", {}), receiveHeader},
        {"recipients", series(begin, raw("\x97\x61\0"), {}), receiveHeader},
        {"content type of unknown parameters, no end",
         [=](int n) {
             return begin + octets("84 1F") + uintvar(unsigned(n)) + octets("B3") + QByteArray(n, 'x');
         },
         receiveHeader},
        {"content type of quotes",
         [=](int n) {
             return begin + octets("84 1F") + uintvar(unsigned(n)) + octets("B3") + QByteArray(n, 0x7F);
         },
         receiveHeader},
        {"content type of empty names",
         [=](int n) {
             return begin + octets("84 1F") + uintvar(unsigned(n)) + octets("B3") + QByteArray(n, 0);
         },
         receiveHeader},
        {"content type of long integers",
         series(begin + octets("84 1F FF FF 7F B3"), octets("89 00 8A 22 00"), {}), receiveHeader},
        {"long integers as field codes", series(begin, QByteArray(1, 0x1E) + QByteArray(0x1E, '\x80'), {}),
         receiveHeader},
        {"a value length without an end", series(begin + octets("96 1F"), "\xFF", {}), receiveHeader},
    };
}

std::vector<Shape> bodyShapes() {
    return {
        {"part headers of unknown octets, no end",
         [](int n) { return QByteArray(1, 1) + uintvar(unsigned(n)) + raw("\0\x83") + QByteArray(n, 'x'); },
         receiveBody},
        {"part headers of quotes",
         [](int n) { return body(1, entry(QByteArray("\x83") + QByteArray(n, 0x7F), {})); }, receiveBody},
        {"part headers of content ids",
         [](int n) { return body(1, entry(QByteArray("\x83") + repeated(raw("\xC0x\0"), n), {})); },
         receiveBody},
        {"part headers of the prompt's beginning",
         [](int n) { return body(1, entry(QByteArray("\x83") + repeated("X-Mms-UserPromp", n), {})); },
         receiveBody},
        {"content type of parameters",
         [](int n) {
             return body(1, entry(octets("1F") + uintvar(unsigned(n / 2 * 2 + 1)) + octets("83") +
                                      repeated(raw("a\0"), n),
                                  {}));
         },
         receiveBody},
        {"nested bodies", nestedBodies, receiveBody},
        {"bodies of bodies of empty parts",
         [](int n) { return bodyOfBodies(n, [](int) { return octets("83"); }); }, receiveBody},
        {"bodies of bodies of texts in unknown charsets",
         [](int n) {
             return bodyOfBodies(n,
                                 [](int i) { return octets("05 83 81") + longIntegerMib(256 + i % 60000); });
         },
         receiveBody},
        {"255 parts that want one name", partsOfOneName, receiveBody, true},
        {"255 parts of long names", partsOfLongNames, receiveBody, true},
        {"text in UTF-7", [](int n) { return texts(longIntegerMib(1012), "+AOQ-", n); }, receiveBody},
        {"text in ISO-2022-KR", [](int n) { return texts(octets("A5"), "\x0E\x0F", n); }, receiveBody},
        {"text in ISO-2022-JP", [](int n) { return texts(octets("A7"), "\x1B$B\x1B(B", n); }, receiveBody},
        {"text in GB18030", [](int n) { return texts(octets("F2"), "\x84\x31\xA4\x37", n); }, receiveBody},
        {"text in windows-1252", [](int n) { return texts(longIntegerMib(2252), "\x80", n); }, receiveBody},
        {"text in UTF-16", [](int n) { return texts(longIntegerMib(1015), "\xD8\x00", n); }, receiveBody},
    };
}

std::vector<Shape> smilShapes() {
    const QByteArray open = "<smil><body>";
    const QByteArray close = "</body></smil>";
    return {
        {"nested elements", [](int n) { return "<smil>" + elements(n / 7) + "</smil>"; },
         receiveSmilOfOnePart},
        {"elements nested as deep as allowed", series("<smil>", elements(126), "</smil>"),
         receiveSmilOfOnePart},
        {"many slides", series(open, "<par/>", close), receiveSmilOfOnePart},
        {"many objects", series(open, "<img src='a'/>", close), receiveSmilOfOnePart},
        {"many objects of one slide", series(open + "<par>", "<ref src='a'/>", "</par>" + close),
         receiveSmilOfOnePart},
        {"many objects whose content is missing", series(open, "<img src='c'/>", close),
         receiveSmilOfOnePart},
        {"many parameters", series(open + "<ref src='a'>", "<param/>", "</ref>" + close),
         receiveSmilOfOnePart},
        {"many references to parts of long names",
         half(series(open, "<img src='" + QString(250, u'\u00E9').toUtf8() + "'/>", close)),
         receiveSmilOfLongNames},
        {"many short references to parts of long names", half(series(open, "<img src='\xC3\x89'/>", close)),
         receiveSmilOfLongNames},
        {"many regions", manyRegions, receiveSmilOfOnePart},
        {"many attributes", manyAttributes, receiveSmilOfOnePart},
        {"many attributes of one element", series("<smil><a", " b=''", "/></smil>"), receiveSmilOfOnePart},
        {"many metas", series("<smil><head>", "<meta/>", "</head></smil>"), receiveSmilOfOnePart},
        {"a long value", series("<smil a='", "x", "'/>"), receiveSmilOfOnePart},
        {"a long duration", series(open + "<par dur='", "9", "s'/>" + close), receiveSmilOfOnePart},
        {"a long measure", series("<smil><head><layout><region top='", "9", "e9'/></layout></head></smil>"),
         receiveSmilOfOnePart},
        {"a long text", series("<smil>", "x", "</smil>"), receiveSmilOfOnePart},
        {"a long name", series("<smil><", "x", "/></smil>"), receiveSmilOfOnePart},
        {"a value of references", series("<smil a='", "&amp;", "'/>"), receiveSmilOfOnePart},
        {"a text of references", series("<smil>", "&#38;", "</smil>"), receiveSmilOfOnePart},
        {"sections", series("<smil>", "<![CDATA[x]]>", "</smil>"), receiveSmilOfOnePart},
        {"comments", series("<smil>", "<!--x-->", "</smil>"), receiveSmilOfOnePart},
        {"a long comment", series("<smil><!--", "- ", "--></smil>"), receiveSmilOfOnePart},
        {"instructions", series("<smil>", "<?x y?>", "</smil>"), receiveSmilOfOnePart},
        {"declarations", series("<!DOCTYPE smil [", "<!ELEMENT a (b)>", "]><smil/>"), receiveSmilOfOnePart},
        {"a declaration of parentheses", series("<!DOCTYPE smil [<!ELEMENT a ", "(", ">]><smil/>"),
         receiveSmilOfOnePart},
        {"opened tags", series("<smil>", "<", {}), receiveSmilOfOnePart},
        {"opened comments", series("<smil>", "<!--", {}), receiveSmilOfOnePart},
        {"opened values", series("<smil>", "<a b='", {}), receiveSmilOfOnePart},
        {"opened sections", series("<smil>", "<![CDATA[", {}), receiveSmilOfOnePart},
        {"opened document types", series({}, "<!DOCTYPE a [<!ENTITY ", {}), receiveSmilOfOnePart},
        {"no presentation", series({}, "<smi", {}), receiveSmilOfOnePart},
    };
}

QByteArray manyObjects(int size) {
    QByteArray record;
    QDataStream stream(&record, QIODevice::WriteOnly);
    stream << qint32(5000) << qint32(0x7FFFFFFF);
    MMS_COMP_SMILMediaObject object(nullptr);
    while (record.size() < size)
        object.writeToStream(stream);
    return record;
}

QByteArray manySubBodies(int size) {
    QByteArray record;
    QDataStream stream(&record, QIODevice::WriteOnly);
    MMS_COMP_SMILMultipartBodypart part;
    part.writeToStream(stream);
    record.replace(record.size() - 4, 4, octets("7F FF FF FF"));
    stream.device()->seek(record.size());
    while (record.size() < size)
        part.writeToStream(stream);
    return record;
}

std::vector<Shape> recordShapes() {
    return {
        {"a slide's record of many objects", manyObjects, receiveSlideRecord},
        {"a part's record of many sub-bodies", manySubBodies, receivePartRecord},
        {"a part's record of one text", series(octets("7F FF FF FE"), "x", {}), receivePartRecord},
    };
}

/// Reads a message as it was sent, visits every item, and fills record and container from it.
void receiveWire(const QByteArray& octets) {
    MMS_WIRE_Reader reader;
    reader.read(octets);
    for (const MMS_WIRE_Mark& mark : reader.marks())
        static_cast<void>(mark.item.name());
    for (const MMS_WIRE_Item item : reader.message())
        static_cast<void>(item.text());
    MMS_UA_UAMsg header;
    reader.fill(&header);
    MMS_COMP_SMILMultipart parts;
    reader.fill(&parts);
}

std::vector<Shape> wireShapes() {
    const QByteArray related = octets("84 B3");
    const auto manyParts = [related](const QByteArray& part) {
        return [=](int size) { return related + uintvar(size / part.size()) + repeated(part, size); };
    };
    const auto oneHead = [related](const QByteArray& piece) {
        return [=](int size) { return related + '\1' + entry('\x9E' + repeated(piece, size)); };
    };
    const auto oneBody = [related](const QByteArray& head, const QByteArray& piece) {
        return [=](int size) { return related + '\1' + entry(head, repeated(piece, size)); };
    };
    const auto nested = [related](int size) {
        QByteArray body = '\1' + entry("\x83", QByteArray(size, 'x'));
        for (int i = 0; i < 16; ++i)
            body = '\1' + entry("\xA3", body);
        return related + body;
    };
    return {
        {"as sent: empty texts", series({}, octets("96 00"), {}), receiveWire},
        {"as sent: one text without end", series("\x96", "a", {}), receiveWire},
        {"as sent: recipients", series({}, octets("97 61 40 62 00"), {}), receiveWire},
        {"as sent: headers by name", series({}, octets("58 00 59 00"), {}), receiveWire},
        {"as sent: fields that are not known", series({}, octets("D4 00"), {}), receiveWire},
        {"as sent: lengths beyond the end", series({}, octets("88 1F FF"), {}), receiveWire},
        {"as sent: texts in ISO-2022-KR", series({}, octets("96 03 A5 41 00"), {}), receiveWire},
        {"as sent: texts in a charset of no name", series({}, octets("96 05 02 0F FF 41 00"), {}),
         receiveWire},
        {"as sent: parameters",
         [](int size) {
             const QByteArray parameters = repeated(octets("85 61 00"), size);
             return octets("84 1F") + uintvar(parameters.size() + 1) + '\x83' + parameters;
         },
         receiveWire},
        {"as sent: many empty parts", manyParts(octets("00 00")), receiveWire},
        {"as sent: many small parts", manyParts(octets("01 01 83 E4")), receiveWire},
        {"as sent: headers of one part", oneHead(octets("8E 00")), receiveWire},
        {"as sent: a disposition of semicolons",
         [=](int size) {
             return related + '\1' +
                    entry("\x9E" + zeroed("Content-Disposition") + zeroed(QByteArray(size, ';')));
         },
         receiveWire},
        {"as sent: bodies within bodies", nested, receiveWire},
        {"as sent: base64 of a text",
         oneBody(octets("03 83 81 EA") + zeroed("\xC8"
                                                "base64"),
                 "YWJj"),
         receiveWire},
        {"as sent: quoted-printable", oneBody('\x83' + zeroed("\xC8quoted-printable"), "=="), receiveWire},
        {"as sent: a text in UTF-16", oneBody(octets("05 83 81 02 03 F7"), octets("D8 00")), receiveWire},
    };
}

} // namespace

std::vector<Shape> badShapes() {
    std::vector<Shape> all;
    for (const auto& some : {headerShapes(), bodyShapes(), smilShapes(), recordShapes(), wireShapes()})
        all.insert(all.end(), some.begin(), some.end());
    return all;
}
