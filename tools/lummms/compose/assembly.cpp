// Builds a message like a messaging application: edits slides in the model, writes the presentation from
// them, and encodes body and header.

#include "tools/lummms/compose/assembly.h"

#include "codec/codec_result.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"
#include "codec/ua_encoder.h"
#include "codec/ua_msg.h"
#include "multipart/body_part.h"
#include "multipart/multipart.h"
#include "multipart/multipart_parser.h"
#include "smil/model/presentation.h"
#include "smil/model/slide.h"
#include "smil/parser/smil_parser.h"
#include "tools/lummms/compose/draft.h"
#include "tools/lummms/words.h"

#include <algorithm>
#include <memory>

namespace {

constexpr int MAX_PARTS = 127;           // the count is one octet, which many receivers read as a uintvar
const QString SMIL_ID = "<slides>";      // for the start parameter
const QString SMIL_NAME = "slides.smil"; // Content-Location of the presentation

/// The body of a message and its slides.
class Body {
public:
    explicit Body(const Draft& draft);
    bool encode(MMS_UA_UAMsg& header, QArray<char>& octets, QString& cause);

private:
    void addPresentation();
    void layOut();
    bool addSlide(const SlideDraft& draft);
    bool addItem(MMS_COMP_SMILTimingContainer& slide, const Item& item);
    void addAttachment(const Item& item);

    MMS_COMP_SMILMultipart parts_;
    MMS_COMP_SMILData presentation_{&parts_};
    MMS_COMP_SMILMultipartBodypart* smilPart_ = nullptr;
    int attachments_ = 0;
    bool isWhole_ = true;
};

Body::Body(const Draft& draft) {
    parts_.setExtType(QString()); // without a presentation there is no root part, whose type this is
    if (!draft.slides.isEmpty())
        addPresentation();
    for (const SlideDraft& slide : draft.slides)
        isWhole_ = isWhole_ && addSlide(slide);
    for (const Item& item : draft.attachments)
        addAttachment(item);
}

/// Adds the presentation as the first part. It must be added before other parts, so that its name is free.
void Body::addPresentation() {
    smilPart_ = new MMS_COMP_SMILMultipartBodypart;
    smilPart_->setContentType(QStringLiteral("application"));
    smilPart_->setContentSubType(QStringLiteral("smil"));
    smilPart_->setContentID(SMIL_ID);
    smilPart_->setContentLocation(SMIL_NAME);
    parts_.insertBodypart(smilPart_, 0);
    parts_.setStart(SMIL_ID);
    layOut();
}

/// Applies the phone's layout. The screen is made high enough for both regions, so that other phones show the
/// lower one too.
void Body::layOut() {
    MMS_COMP_SMILParser::updateToVarnelioRootLayout(&presentation_);
    MMS_COMP_SMILParser::updateToVarnelioRegion(&presentation_);
    float bottom = 0;
    for (int i = 0; i < presentation_.getRegionCount(); ++i) {
        MMS_COMP_SMILRegion& region = *presentation_.getRegion(static_cast<unsigned int>(i));
        bottom = std::max(bottom, region.getBottom());
        if (region.getId() == MMS_COMP_SMILData::getImgRegionId())
            region.setFit(MMS_COMP_SMIL_FIT_MEET);
    }
    presentation_.getRootLayout()->setHeight(static_cast<int>(bottom));
}

bool Body::addSlide(const SlideDraft& draft) {
    MMS_COMP_SMILTimingContainer* slide = presentation_.appendSlide();
    slide->setDur(draft.duration);
    slide->setSetDurManually(true);
    return std::all_of(draft.items.begin(), draft.items.end(),
                       [this, slide](const Item& item) { return addItem(*slide, item); });
}

bool Body::addItem(MMS_COMP_SMILTimingContainer& slide, const Item& item) {
    const auto type = item.kind();
    const QString region = type == MMS_COMP_SMIL_MEDIA_TEXT    ? MMS_COMP_SMILData::getTextRegionId()
                           : type == MMS_COMP_SMIL_MEDIA_AUDIO ? QString()
                                                               : MMS_COMP_SMILData::getImgRegionId();
    return slide.updateData(region, presentation_.createUniqueSrc(item.src), type, item.type.subType,
                            item.octets, false, &parts_);
}

void Body::addAttachment(const Item& item) {
    auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
    const QString location = presentation_.createUniqueSrc(item.src);
    part->setContentType(item.type.type);
    part->setContentSubType(item.type.subType);
    part->setContentLocation(location);
    part->setDispFileName(location);
    part->setBodyData(item.octets);
    parts_.appendBodypart(part.release());
    ++attachments_;
}

/// The body with a Content-Disposition in each part from `first` on, which the library's encoder does not
/// write: without it receivers take a part that no slide shows for one that was forgotten.
QByteArray withAttachmentsMarked(QArray<char> body, int first) {
    constexpr QByteArrayView attachment("\xAE\x01\x81");
    LinearBuffer in(reinterpret_cast<unsigned char*>(body.data()), static_cast<int>(body.size()));
    const auto take = [&in](int octets) {
        return QByteArrayView(reinterpret_cast<const char*>(in.skip(octets)), octets);
    };
    QByteArray marked = take(1).toByteArray(); // number of parts
    for (int part = 0; in.hasMore(); ++part) {
        const bool isAttachment = part >= first;
        int headLength = 0, dataLength = 0;
        UIntBinary::readFrom(&in, &headLength);
        UIntBinary::readFrom(&in, &dataLength);
        unsigned char octets[10]; // two lengths
        LinearBuffer lengths(octets, sizeof octets);
        UIntBinary::writeTo(&lengths, headLength + (isAttachment ? int(attachment.size()) : 0));
        UIntBinary::writeTo(&lengths, dataLength);
        marked.append(reinterpret_cast<const char*>(octets), lengths.getPosition());
        marked += take(headLength);
        if (isAttachment)
            marked += attachment;
        marked += take(dataLength);
    }
    return marked;
}

bool Body::encode(MMS_UA_UAMsg& header, QArray<char>& octets, QString& cause) {
    if (smilPart_) {
        presentation_.removeEmptyTextBeforeSend();
        smilPart_->setBodyData(MMS_COMP_SMILParser::convertToSMILLang(&presentation_).toUtf8());
    }
    int status = 0;
    if (!isWhole_)
        cause = QStringLiteral("not enough memory");
    else if (parts_.getPartCount() > MAX_PARTS)
        cause = QStringLiteral("%1 are more than the %2 that a message can have")
                    .arg(counted(parts_.getPartCount(), "part"))
                    .arg(MAX_PARTS);
    else
        octets = MMS_COMP_SMILMultipartParser::assembleBody(&parts_, &header, &status);
    if (status)
        cause = explained(bodyStatusWords, "status", status);
    else if (cause.isEmpty() && smilPart_ && attachments_)
        octets = withAttachmentsMarked(octets, parts_.getPartCount() - attachments_);
    return cause.isEmpty();
}

bool encodeHeader(MMS_UA_UAMsg& header, QByteArray& pdu, QString& cause) {
    unsigned char* octets = nullptr;
    int length = 0;
    const unsigned char result = MMS_UA_Encoder().encodeHeader(&header, &octets, &length);
    const std::unique_ptr<unsigned char[]> owner(octets);
    if (result != CODEC_WRITTEN)
        cause = explained(codecResultWords, "result", result);
    else
        pdu = QByteArray(reinterpret_cast<const char*>(octets), length);
    return result == CODEC_WRITTEN;
}

} // namespace

bool encodeMessage(MMS_UA_UAMsg& header, const Draft* content, QByteArray& pdu, QString& cause) {
    QArray<char> body;
    if ((content && !Body(*content).encode(header, body, cause)) || !encodeHeader(header, pdu, cause))
        return false;
    pdu.append(body.data(), body.size());
    return true;
}
