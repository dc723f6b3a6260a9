#include "bench/messages.h"

#include "codec/message_kinds.h"
#include "codec/ua_encoder.h"
#include "multipart/multipart_parser.h"
#include "smil/parser/smil_parser.h"

#include <benchmark/benchmark.h>

#include <cstring>

using Part = MMS_COMP_SMILMultipartBodypart;

namespace {

QByteArrayView viewOf(const QArray<char>& octets) {
    return {octets.data(), octets.size()};
}

/// Copies the payload to `at`; returns the position behind it.
char* put(char* at, QByteArrayView payload) {
    std::memcpy(at, payload.data(), static_cast<size_t>(payload.size()));
    benchmark::ClobberMemory();
    return at + payload.size();
}

} // namespace

std::unique_ptr<MMS_UA_UAMsg> makeHeader(unsigned char type) {
    auto header = std::make_unique<MMS_UA_UAMsg>();
    header->messageType = type;
    header->version = 0x10;
    header->markPresent(FIELD_MESSAGE_TYPE);
    header->markPresent(FIELD_MMS_VERSION);
    header->setTransactionId(QStringLiteral("T1763712000-4711"));
    header->setFrom(MMS_UTIL_Entry(QString(), MMS_UTIL_Entry::PLMN, QStringLiteral("+4917012345678")));
    header->setSubject(QStringLiteral("Greetings from the sea"));
    header->markPresent(FIELD_MESSAGE_CLASS);
    if (type == MESSAGE_NOTIFICATION_IND) {
        header->setMsgSize(44022);
        header->markPresent(FIELD_MESSAGE_SIZE);
        header->setExpireTime(172800);
        header->setMsgURI(QStringLiteral("http://mmsc.example.net/fetch?id=4711"));
        return header;
    }
    for (int i = 0; i < 5; ++i) {
        MMS_UTIL_Entry to(QString(), MMS_UTIL_Entry::PLMN, QStringLiteral("+49170123456%1").arg(i));
        header->addToRecipient(to);
    }
    header->setMsgID(QStringLiteral("4711@mmsc.example.net"));
    header->setSendTime(QDateTime::fromSecsSinceEpoch(1763712000));
    header->setPriority(129);
    header->setDeliveryReportNecessity(false);
    header->setReadReplyNecessity(false);
    header->setContentType({QStringLiteral("application"), QStringLiteral("vnd.wap.multipart.related"),
                            QStringLiteral("type=application/smil;start=<smil>")});
    return header;
}

QByteArray encodedHeader(MMS_UA_UAMsg& header) {
    unsigned char* octets = nullptr;
    int length = 0;
    MMS_UA_Encoder().encodeHeader(&header, &octets, &length);
    const QByteArray result(reinterpret_cast<const char*>(octets), length);
    delete[] octets;
    return result;
}

std::vector<QByteArray> textsOf(const MMS_UA_UAMsg& header) {
    std::vector<QByteArray> texts;
    const auto add = [&texts](const QString& text) {
        if (!text.isEmpty())
            texts.push_back(text.toLatin1());
    };
    for (const QString& text : {header.getTransactionId(), header.getFrom().getAddress(), header.getSubject(),
                                header.getMsgURI(), header.getMsgID(), header.getContentType().parameters})
        add(text);
    for (const MMS_UTIL_Entry* entry : header.getTo())
        add(entry->getAddress());
    return texts;
}

QArray<char> makePayload(int size) {
    QArray<char> payload(size);
    unsigned int state = 1;
    for (char& octet : payload) {
        state = state * 1103515245 + 12345;
        octet = static_cast<char>(state >> 16);
    }
    return payload;
}

std::unique_ptr<MMS_COMP_SMILMultipart> makeBody(int count, int size) {
    auto body = std::make_unique<MMS_COMP_SMILMultipart>();
    for (int i = 0; i < count; ++i) {
        auto part = std::make_unique<Part>();
        part->setContentType(QStringLiteral("image"));
        part->setContentSubType(QStringLiteral("jpeg"));
        part->setContentLocation(QStringLiteral("photo%1.jpg").arg(i));
        part->setContentID(QStringLiteral("<photo%1>").arg(i));
        part->setBodyData(makePayload(size));
        body->appendBodypart(part.release());
    }
    return body;
}

QArray<char> encodedBody(MMS_COMP_SMILMultipart& body) {
    MMS_UA_UAMsg header;
    return MMS_COMP_SMILMultipartParser::assembleBody(&body, &header);
}

Presentation makePresentation(int slideCount, int pictureSize) {
    Presentation made{std::make_unique<MMS_COMP_SMILMultipart>(), nullptr, {}};
    auto first = std::make_unique<Part>();
    first->setContentType(QStringLiteral("application"));
    first->setContentSubType(QStringLiteral("smil"));
    first->setContentID(QStringLiteral("<smil>"));
    first->setContentLocation(QStringLiteral("smil.smil"));
    Part* smilPart = first.get();
    made.body->appendBodypart(first.release());
    made.slides = std::make_unique<MMS_COMP_SMILData>(made.body.get());
    MMS_COMP_SMILParser::updateToVarnelioRegion(made.slides.get());
    const QByteArray text("Wish you were here. The water is warm and the days are long.");
    for (int i = 0; i < slideCount; ++i) {
        MMS_COMP_SMILTimingContainer* slide = made.slides->appendSlide();
        slide->updateData(QStringLiteral("image"), QStringLiteral("photo%1.jpg").arg(i),
                          MMS_COMP_SMIL_MEDIA_IMG, QStringLiteral("jpeg"), makePayload(pictureSize), true,
                          made.body.get());
        slide->updateData(QStringLiteral("text"), QStringLiteral("words%1.txt").arg(i),
                          MMS_COMP_SMIL_MEDIA_TEXT, QStringLiteral("plain"), text, true, made.body.get());
    }
    made.smil = MMS_COMP_SMILParser::convertToSMILLang(made.slides.get()).toUtf8();
    smilPart->setBodyData(made.smil);
    made.body->setStart(QStringLiteral("<smil>"));
    return made;
}

std::vector<QString> makeStrings(const std::vector<QByteArray>& texts) {
    std::vector<QString> strings;
    strings.reserve(texts.size());
    for (const QByteArray& text : texts)
        strings.push_back(QString::fromLatin1(text));
    benchmark::DoNotOptimize(strings.data());
    return strings;
}

std::vector<QByteArrayView> payloadsIn(const QByteArray& octets, MMS_COMP_SMILMultipart& body) {
    std::vector<QByteArrayView> payloads;
    qsizetype at = 0;
    for (int i = 0; i < body.getPartCount(); ++i) {
        const QArray<char>& payload = body.getBodypartByIndex(i, false)->getBodyData();
        at = octets.indexOf(viewOf(payload), at);
        payloads.emplace_back(octets.constData() + at, payload.size());
        at += payload.size();
    }
    return payloads;
}

std::vector<Octets> copyPayloads(const std::vector<QByteArrayView>& payloads) {
    std::vector<Octets> copies;
    copies.reserve(payloads.size());
    for (const QByteArrayView payload : payloads) {
        copies.emplace_back(new char[static_cast<size_t>(payload.size())]);
        put(copies.back().get(), payload);
    }
    return copies;
}

Octets gatherPayloads(MMS_COMP_SMILMultipart& body, qsizetype size) {
    Octets copy(new char[static_cast<size_t>(size)]);
    char* at = copy.get();
    for (int i = 0; i < body.getPartCount(); ++i)
        at = put(at, viewOf(body.getBodypartByIndex(i, false)->getBodyData()));
    return copy;
}
