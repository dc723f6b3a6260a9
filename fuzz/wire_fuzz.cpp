// A message as it was sent: items cover every octet, and record, container and parts agree with them.

#include "codec/codec_result.h"
#include "codec/ua_encoder.h"
#include "codec/ua_msg.h"
#include "fuzz/input.h"
#include "multipart/multipart.h"
#include "multipart/multipart_parser.h"
#include "wire/reader.h"

namespace {

using Item = MMS_WIRE_Item;

/// The deepest tree: the message, sixteen nested bodies with a part and its data each, and a header with a
/// parameter.
constexpr int deepest = 2 + 17 * 2 + 4;

/// Visits an item and all items inside; returns their number.
qsizetype look(const Item& item, int depth) {
    require(depth <= deepest, "items lie in each other to a certain depth");
    touched(item.name());
    touched(item.problem());
    require(item.problem().isEmpty() == (item.severity() == Item::SOUND), "a mark says what is wrong");
    require(Item::kindWord(item.kind())[0] != 0, "each kind has a word");
    if (item.kind() == Item::OCTETS || item.kind() == Item::DATA)
        require(!item.hasNumber() && item.text().isEmpty(), "what is not understood has no value");
    if (depth > 2) // texts of several values repeat those of the items inside
        touched(item.text());
    qsizetype at = item.offset(), count = 1;
    for (const Item inside : item) {
        require(inside.offset() == at, "an item begins where the one before ends");
        at += inside.length();
        count += look(inside, depth + 1);
    }
    require(item.isLeaf() || at == item.offset() + item.length(), "the items inside cover all octets");
    return count;
}

/// Compares a part with the body part made from it; returns its payload's octets.
void compare(const MMS_WIRE_Part& part, const MMS_COMP_SMILMultipartBodypart* filled, int depth) {
    require(filled != nullptr, "each part becomes a body part");
    require(depth <= 16, "nested at most sixteen times");
    require(part.wireSize() == part.data().length() && part.payload().size() <= part.wireSize(),
            "no payload is larger than its data");
    require(QByteArray(filled->getBodyData()) == part.content(), "the payload is filled in");
    require(part.name().isEmpty() || filled->getContentLocation() == part.name(), "the name is filled in");
    for (const QString& text : {part.mediaType(), part.contentId(), part.charset(), part.transferEncoding(),
                                part.disposition(), part.parameter("Start")})
        touched(text);
    const QList<MMS_WIRE_Part> inside = part.parts();
    require(inside.size() == filled->getSubBodyCount(), "all parts inside are filled in");
    for (int i = 0; i < inside.size(); ++i)
        compare(inside[i], filled->getSubBody(static_cast<unsigned int>(i)), depth + 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const ExactInput input(data, size);
    const auto octets = static_cast<qsizetype>(size);
    MMS_WIRE_Reader reader;
    const bool isSound = reader.read(QByteArrayView(input.data(), octets));
    const Item message = reader.message();
    require(message.offset() == 0 && message.length() == octets, "the message is the input");
    require(!message.isLeaf() || octets == 0, "every octet is in an item");
    require(look(message, 0) <= 4 * octets + 8, "there are no more items than a few for each octet");

    bool hasProblem = false;
    for (const MMS_WIRE_Mark& mark : reader.marks())
        hasProblem = hasProblem || mark.severity == Item::PROBLEM;
    require(isSound == !hasProblem && isSound == reader.isSound(), "a message without problems is sound");

    MMS_UA_UAMsg header;
    for (const Item& other : reader.fill(&header))
        touched(other.valueText());
    require(header.bodyStart == input.data() + size - header.bodyLength, "the body ends with the input");
    unsigned char* encoded = nullptr;
    int length = 0;
    MMS_UA_Encoder().encodeHeader(&header, &encoded, &length);
    const std::unique_ptr<unsigned char[]> freed(encoded);
    touched(QString::number(reader.missingFields().size() + reader.isFieldOrderCorrect()));

    MMS_COMP_SMILMultipart body;
    reader.fill(&body);
    const QList<MMS_WIRE_Part> parts = reader.parts();
    require(parts.size() == body.getPartCount(), "all parts are filled in");
    for (int i = 0; i < parts.size(); ++i)
        compare(parts[i], body.getBodypartByIndex(i, false), 0);
    body.getSmilPart();
    MMS_COMP_SMILMultipartParser::assembleBody(&body, &header);
    return 0;
}
