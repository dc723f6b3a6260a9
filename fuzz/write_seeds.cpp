// Writes the first inputs of each fuzz target: write_seeds DIRECTORY
//
// They are made by the library and by hand. Files in DIRECTORY/TARGET have the form that the target reads.

#include "tests/octets.h"

#include <lumsmilparser.h>

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>

#include <memory>

namespace {

QString root;

void seed(const char* target, const QByteArray& name, const QByteArray& octets) {
    const QString directory = root + '/' + target;
    QFile file(directory + '/' + name);
    if (!QDir().mkpath(directory) || !file.open(QIODevice::WriteOnly) || file.write(octets) != octets.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

const char* const presentations[] = {
    ("<smil><head><layout><root-layout height=\"160\" width=\"120\"/>"
     "<region id=\"Image\" height=\"50%\" width=\"100%\" left=\"0\" top=\"0\" fit=\"meet\"/>"
     "<region id=\"Text\" height=\"50%\" width=\"100%\" left=\"0\" top=\"50%\" "
     "fit=\"scroll\"/></layout></head>"
     "<body><par dur=\"8s\"><img src=\"a.jpg\" region=\"Image\"/><text src=\"t.txt\" region=\"Text\">"
     "<param name=\"fgcolor\" value=\"#ff0000\" valuetype=\"ref\" type=\"x\"/></text></par>"
     "<par dur=\"0:05.0\"><audio src=\"s.amr\" begin=\"1s\" end=\"id(a)(2s)\"/></par></body></smil>"),
    ("<?xml version=\"1.0\"?><smil><head><meta name=\"title\" content=\"x\"/><layout>"
     "<root-layout width=\"320px\" height=\"240px\" background-color=\"#abc\"/><region id=\"r1\" top=\"5\"/>"
     "<region id=\"r2\" left=\"20\"/><region id=\"imgs\" left=\"1e3\"/></layout><meta/></head><body>"
     "<seq dur=\"indefinite\"><video src=\"v.3gp\"/><seq><par dur=\"2min\"><ref src=\"cid:cid1\"/>"
     "<par><img src=\"b.gif\" alt=\"&lt;b&gt;\"/></par></par></seq></seq><text src=\"none\"/></body></smil>"),
    ("<!DOCTYPE smil [<!ENTITY e \"<img src='a.jpg'/>\"><!ATTLIST par dur CDATA \"3s\">]>"
     "<smil><body><par>&e;&e;</par><!-- c --><![CDATA[x]]></body></smil>"),
};

std::unique_ptr<MMS_COMP_SMILMultipart> sampleBody(const char* smil) {
    auto body = std::make_unique<MMS_COMP_SMILMultipart>();
    const struct {
        const char* type;
        const char* location;
        const char* id;
        QByteArray data;
    } rows[] = {
        {"application/smil", "slides.smil", "<s>", smil},
        {"image/jpeg", "a.jpg", "<pic>", octets("FF D8 FF E0 00 10")},
        {"text/plain", "t.txt", "", "Greetings"},
        {"audio/amr", "s.amr", "sound", "#!AMR"},
        {"application/x-unknown", "", "", "?"},
    };
    for (const auto& row : rows) {
        auto* part = new MMS_COMP_SMILMultipartBodypart;
        part->setContentType(MMS_COMP_SMILMultipartBodypart::getTypePartFromFormat(row.type));
        part->setContentSubType(MMS_COMP_SMILMultipartBodypart::getSubTypePartFromFormat(row.type));
        part->setContentLocation(row.location);
        part->setContentID(row.id);
        part->setBodyData(row.data);
        body->appendBodypart(part);
    }
    body->setStart("<s>");
    return body;
}

void seedMessages() {
    for (int type = MESSAGE_SEND_REQ; type <= MESSAGE_DELIVERY_IND; ++type) {
        const auto body = sampleBody(presentations[type % 3]);
        MMS_UA_UAMsg header;
        header.messageType = static_cast<unsigned char>(type);
        header.markPresent(FIELD_MESSAGE_TYPE);
        header.setTransactionId("t1");
        header.version = 0x10;
        header.markPresent(FIELD_MMS_VERSION);
        MMS_UTIL_Entry phone("", MMS_UTIL_Entry::PLMN, "+15550100");
        MMS_UTIL_Entry mail("", MMS_UTIL_Entry::EMAIL, "a@example.org");
        header.setFrom(type % 2 ? phone : mail);
        header.addToRecipient(phone);
        header.addToRecipient(mail);
        header.addCcRecipient(mail);
        header.addBccRecipient(phone);
        header.setSubject("Holidays");
        header.setSendTime(QDateTime::fromSecsSinceEpoch(0x5000'0000));
        header.setDeliveryTime(QDateTime::fromSecsSinceEpoch(0x5000'1000));
        header.setExpireTime(86400);
        header.setMsgID("m1");
        header.setMsgURI("http://example.org/m1");
        header.setResponseText("fine");
        header.setReportAllowed(true);
        header.setPriority(130);
        header.setMsgSize(4711);
        for (FIELD_CODE code : {FIELD_MESSAGE_SIZE, FIELD_STATUS, FIELD_RESPONSE_STATUS, FIELD_MESSAGE_CLASS})
            header.markPresent(code);
        const QByteArray octets = MMS_COMP_SMILMultipartParser::assembleBody(body.get(), &header);
        unsigned char* head = nullptr;
        int length = 0;
        MMS_UA_Encoder().encodeHeader(&header, &head, &length);
        const std::unique_ptr<unsigned char[]> freed(head);
        const QByteArray encoded(reinterpret_cast<const char*>(head), length);
        const QByteArray name = "kind" + QByteArray::number(type);
        seed("header", name, encoded);
        seed("body", name, octets);
        const bool hasBody = type == MESSAGE_SEND_REQ || type == MESSAGE_RETRIEVE_CONF;
        for (const char* target : {"message", "wire"})
            seed(target, name, hasBody ? encoded + octets : encoded);
    }
}

/// A seed must be read as intended, or it is of no use to the fuzzer.
void requireRead(int result, const char* name) {
    if (result != CODEC_READ)
        qFatal("the seed %s is malformed", name);
}

void seedByHand() {
    const QByteArray start = octets("8C 84 98 74 31 00 8D 90");
    const struct {
        const char* name;
        QByteArray octets;
    } headers[] = {
        {"insert-address", start + octets("89 01 81 86 80 94 80 B1 80")},
        {"unknown", start + octets("01 58", raw("-Unknown\0value\0")) + octets("8A 80")},
        {"distribution", start + octets("01 58", raw("-Mms-Distribution-Allowed\0")) + octets("80")},
        {"charsets", start + octets("96 07 EA 7F C3 A4 00 00 00 93 05 01 EA 61 62 00 96 05 04 61 62 63 00")},
        {"times",
         start + octets("88 05 81 03 01 51 80 87 06 80 04 FF FF FF FF 85 04 7F FF FF FF 8E 04 80 00 00 00")},
        {"application", start + octets("84 1F 37 B3 89", raw("a/b\0\x8A\"<s>\0")) +
                            raw("Application-ID\0x\0Reply-To-Application-ID\0y\0")},
        {"stray", start + octets("84 04 C2 B3 C2 8A 61 00")},
        {"from", start + octets("89 14 80", raw("Me <a@b>/TYPE=PLMN\0"))},
    };
    for (const auto& row : headers) {
        MMS_UA_UAMsg header;
        QByteArray pdu = row.octets;
        auto size = static_cast<unsigned int>(pdu.size());
        auto* head = reinterpret_cast<unsigned char*>(pdu.data());
        requireRead(MMS_UA_Decoder().decodeHeader(head, size, &header), row.name);
        seed("header", row.name, row.octets);
        seed("message", row.name, row.octets);
        seed("wire", row.name, row.octets);
    }
    const struct {
        const char* name;
        QByteArray octets;
    } bodies[] = {
        {"nested", octets("01 01 0A C8 02 01 01 83 61 01 02 83 62 63")},
        {"deep", octets("01 01 10 C8 01 01 0C C8 01 01 08 C8 01 01 04 C8 01 01 00 83")},
        {"utf16", octets("01 06 06 05 83 81 02 03 F7 41 00 42 00 00 00")},
        {"charset",
         octets(
             "03 06 03 05 83 81 02 08 CA 80 41 42 06 03 05 83 81 02 03 F4 2B 41 2D 04 02 03 83 81 A7 1B 24")},
        {"boundary", octets("01 10 03 0F C8", raw("x-boundary\0b1\0abc"))},
        {"prompt", octets("01 16 01 9E", raw("\x8Ex\0X-Mms-UserPrompt\0\x80!"))},
        {"names",
         octets("02 0D 01", raw("\x07\x9E\x85../a\0\xC0\"id\0x")) + octets("0D 01", raw("image/png\0zz\0y"))},
    };
    for (const auto& row : bodies) {
        MMS_COMP_SMILMultipart body;
        QByteArray received = row.octets;
        auto* first = reinterpret_cast<unsigned char*>(received.data());
        requireRead(MMS_UA_MultiPart_CODEC::decodeMultipart(true, first, unsigned(received.size()), &body),
                    row.name);
        seed("body", row.name, row.octets);
        seed("message", row.name, start + octets("84 A3") + row.octets);
        seed("wire", row.name, start + octets("84 A3") + row.octets);
    }
    int i = 0;
    for (const char* smil : presentations) {
        const QByteArray number = QByteArray::number(i++);
        seed("smil", "plain" + number, QByteArray(1, '\0') + smil);
        seed("smil", "file" + number, octets("01 00") + smil);
        seed("smil", "edited" + number,
             octets("13 00 00 01 00 02 01 00 0B 01 02 00 11 00 00 04 05 01 12 13") + smil);
    }
}

/// What only the reading as sent has: every field, parameter and header, charsets and transfer encodings.
void seedWire() {
    const QByteArray times = octets("06 80 04 53 70 78 AC"), text = raw("ab\0"), wide = octets("02 03 F7");
    for (int code = 1; const MMS_WIRE_Field* field = wireField(code); ++code) {
        QByteArray fields;
        for (const QByteArray& value : {octets("80"), text, times, octets("04 EA C3 A4 00"),
                                        octets("04 81 02 0E 10"), octets("03 80 82 85")})
            fields += static_cast<char>(0x80 | code) + value;
        seed("wire", QByteArray("field-") + field->name, fields);
    }
    const QByteArray start = octets("8C 84 8D 93 84 A3");
    const struct {
        const char* name;
        QByteArray head;
        QByteArray data;
    } rows[] = {
        {"base64", octets("83 C8") + raw("base64\0"), "YWJj\r\nZA=="},
        {"printable", octets("83 C8") + raw("quoted-printable\0"), "a=3D=\r\nb=C3=A4"},
        {"names", octets("0B 9E 85") + text + octets("98 22") + text + octets("C5 04 81 86 66 00 AE 01 82"),
         "x"},
        {"by-name", octets("9E") + raw("Content-ID\0\"<i>\0Content-Disposition\0inline; name=\"n\"\0"), "x"},
        {"utf16", octets("05 83 81") + wide, octets("FF FE 61 00 00 D8")},
        {"big5", octets("05 83 81 02 07 EA"), octets("A4 A4 A4 E5")},
        {"nested", octets("A6"), octets("01 02 01 83 8E 78")},
        {"parameters", octets("13 9E 80 81 05 82 93 83 85 87 64 00 88 81 8C 63 00 90 00 61 00 62 00"), "x"},
    };
    for (const auto& row : rows)
        seed("wire", row.name, start + '\1' + entry(row.head, row.data));
    seed("wire", "wide-subject", octets("96 0B") + wide + octets("7F FE FF 00 61 00 00 00"));
}

template <typename Model>
QByteArray record(const Model& model) {
    QByteArray octets;
    QDataStream stream(&octets, QIODevice::WriteOnly);
    model.writeToStream(stream);
    return octets;
}

void seedRecords() {
    const auto body = sampleBody(presentations[0]);
    MMS_COMP_SMILMultipartBodypart part(*body->getBodypartByIndex(1, false));
    part.setSubBody(new MMS_COMP_SMILMultipartBodypart(*body->getBodypartByIndex(2, false)), 0);
    part.setSubBody(new MMS_COMP_SMILMultipartBodypart(part), 1);
    seed("records", "part", QByteArray(1, 0) + record(part));

    MMS_COMP_SMILData data(body.get());
    QArray<char> smil = QByteArray(presentations[0]);
    MMS_COMP_SMILParser().parse(smil, body.get(), &data);
    const QByteArray object = record(*data.getMediaObject(0, 1));
    seed("records", "object", QByteArray(1, 1) + object);
    seed("records", "slide", QByteArray(1, 2) + record(*data.getSlide(0)));
    // the octets of the first object's kind choose who owns the part
    for (int i = 0; i < 8; ++i) {
        const char hands[] = {char(i), char((3 * i + 1) % 8), char((5 * i + 2) % 8), char((i + 4) % 8)};
        seed("records", "hands" + QByteArray::number(i),
             '\3' + QByteArray(hands, 4) + object.mid(4) + object + object);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    root = QString::fromLocal8Bit(argv[1]);
    seedMessages();
    seedByHand();
    seedWire();
    seedRecords();
    QFile sample(QStringLiteral(SAMPLE_MESSAGE));
    if (sample.open(QIODevice::ReadOnly))
        for (const QByteArray octets = sample.readAll(); const char* target : {"message", "wire"})
            seed(target, "sample", octets);
    return 0;
}
