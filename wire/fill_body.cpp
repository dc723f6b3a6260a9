#include "codec/field_code.h"
#include "multipart/multipart.h"
#include "multipart/multipart_parser.h"
#include "wire/media.h"
#include "wire/part_data.h"
#include "wire/reader.h"
#include "wire/tree.h"

#include <memory>

namespace {

using Bodypart = MMS_COMP_SMILMultipartBodypart;

/// Converts a part with its nested parts to a body part with sub-bodies.
std::unique_ptr<Bodypart> bodypartOf(const MMS_WIRE_Part& part) {
    auto made = std::make_unique<Bodypart>();
    const MediaType media = mediaOf(contentTypeOf(part.item()));
    made->setContentType(media.type);
    made->setContentSubType(media.subType);
    if (const QString id = part.contentId(); !id.isEmpty())
        made->setContentID(id);
    if (const QString name = part.name(); !name.isEmpty())
        made->setContentLocation(name);
    if (const QString boundary = part.parameter("Boundary"); !boundary.isEmpty())
        made->setBoundary(boundary);
    made->setPartFlags(part.wantsPrompt() ? +Bodypart::FLAG_USER_PROMPT : 0u);
    const QByteArray content = part.content();
    QArray<char> payload;
    payload.setRawData(content.constData(), content.size());
    made->setBodyData(payload);
    for (const MMS_WIRE_Part& inside : part.parts())
        made->setSubBody(bodypartOf(inside).release(), -1);
    return made;
}

} // namespace

void MMS_WIRE_Reader::fill(MMS_COMP_SMILMultipart* body) const {
    for (const MMS_WIRE_Part& part : parts())
        body->appendBodypart(bodypartOf(part).release());
    MMS_COMP_SMILMultipartParser::checkLocation(body);
    const MMS_WIRE_Item type = field(FIELD_CONTENT_TYPE);
    body->setStart(parameterOf(type, startParameter).text());
    body->setExtType(parameterOf(type, typeParameter).text());
    body->setOtherContentTypeParam(
        MMS_COMP_SMILMultipartParser::otherParamListStrExceptStartType(parameterText(type)));
}
