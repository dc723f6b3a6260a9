// A presentation: read, normalised, edited as the input chooses, written, and read again.
//
// The input is an octet n, n octets that choose the edits, and the text.

#include "fuzz/input.h"
#include "multipart/multipart.h"
#include "smil/model/presentation.h"
#include "smil/parser/smil_parser.h"

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;
using Object = MMS_COMP_SMILMediaObject;

const char* const names[] = {"a.jpg", "b.gif", "t.txt", "s.amr", "v.3gp", "<cid1>"};

void addPart(MMS_COMP_SMILMultipart& body, const char* name) {
    auto* part = new Part;
    part->setContentLocation(name);
    part->setContentID(name);
    part->setBodyData(name, int(std::strlen(name)));
    body.appendBodypart(part);
}

void look(const MMS_COMP_SMILData& data) {
    for (int i = 0; i < data.getTotalSlidesNum(); ++i) {
        Slide& slide = *data.getSlide(i);
        require(slide.getPageSize() >= 0, "the size of a page is a size");
        for (Object* object : slide) {
            touched(object->getSrc());
            touched(object->getAlt());
            touched(object->getBeginTimeEvent() + object->getEndTimeEvent() + object->getRegionId());
            if (Part* part = object->getData())
                touched(part->getBodyData());
            for (int p = 0; p < object->getParamCount(); ++p)
                touched(object->getParam(p)->getName() + object->getParam(p)->getValue());
        }
        require(slide.isTextBellowImg() || slide.isElemExist(MMS_COMP_SMIL_MEDIA_TEXT),
                "nothing can be above a text that is not there");
    }
    for (int i = 0; i < data.getMetaCount(); ++i)
        touched(data.getMeta(i)->getName() + data.getMeta(i)->getContent());
    for (int i = 0; i < data.getRegionCount(); ++i)
        touched(data.getRegion(unsigned(i))->getId());
}

/// Parts made without a container, which their maker owns.
using Homeless = std::vector<BodypartLink>;

/// One edit. Objects and parts change owners and are deleted in every order that the interface allows.
void edit(MMS_COMP_SMILData& data, MMS_COMP_SMILMultipart& body, MMS_COMP_SMILMultipart& other,
          Homeless& homeless, Choices& choices) {
    const int operation = choices.next(20);
    const int index = choices.next(8);
    const auto type = static_cast<MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE>(choices.next(7));
    const QString src = names[index % 6];
    Slide* slide = data.getSlide(index);
    Object* object = slide ? slide->getMediaObject(choices.next(4)) : nullptr;
    switch (operation) {
    case 0:
        if (slide)
            slide->updateData("text", src, type, "x", QByteArray("new"), index & 1, &body);
        break;
    case 1:
        if (!slide)
            break;
        slide->updateData("text", src, type, "x", QByteArray(), index & 1, nullptr);
        for (const Object* shown : *slide)
            if (shown->getData() && !shown->getData()->getOwner())
                homeless.push_back(shown->getData());
        break;
    case 2:
        delete body.getBodypartByIndex(index, true);
        break;
    case 3:
        delete body.getBodypartByIndex(index, false);
        break;
    case 4:
        body.deletePartBySrc(src);
        break;
    case 5:
        data.deleteMediaObject(index, 0);
        break;
    case 6:
        data.deleteObjectByDataLocation(src);
        break;
    case 7:
        data.removeEmptyTextBeforeSend();
        break;
    case 8:
        if (slide)
            delete slide->getElem(type, true);
        break;
    case 9:
        if (slide)
            slide->removeElem(type);
        break;
    case 10:
        if (slide)
            slide->removeBySrc(src);
        break;
    case 11:
        if (slide)
            slide->clear();
        break;
    case 12:
        if (object) {
            Object* taken = slide->getElem(object->getMediaElementType(), true);
            if (!data.insertMediaObject(index + 1, 0, taken))
                delete taken;
        }
        break;
    case 13:
        if (object)
            object->clear();
        break;
    case 14:
        data.appendSlide()->appendObject(new Object(&body));
        break;
    case 15:
        other.appendBodypart(body.getBodypartByIndex(index, false));
        break;
    case 16:
        if (Part* part = body.getBodypartByIndex(index, false))
            part->setSubBody(body.getBodypartByIndex(0, false), 0);
        break;
    case 17: {
        MMS_COMP_SMILData copy(data, &other);
        look(copy);
        copy.clean();
        break;
    }
    case 18:
        require(!data.isElemNameExist(data.createUniqueSrc(src)), "a new name is free");
        break;
    default:
        if (object)
            object->setRegionId(data.getTextRegionId());
        MMS_COMP_SMILParser::updateToVarnelioRegion(&data);
        MMS_COMP_SMILParser::updateToVarnelioRootLayout(&data);
    }
    look(data);
}

bool isWritable(const QString& text) {
    return isPlain(text) && text.trimmed() == text && std::none_of(text.begin(), text.end(), [](QChar c) {
               return c == u'"' || c == u'<' || c == u'>' || c == u'&';
           });
}

/// Whether the written text can be read again: values are not escaped, and a background colour makes the text
/// unreadable.
bool isWritable(const MMS_COMP_SMILData& data) {
    const MMS_COMP_SMILRootLayout* root = data.getRootLayout();
    const int kind = root ? root->getBackgroundColor()->kind : 0;
    bool writable = kind != MMS_COMP_COLOR_NAMED && kind != MMS_COMP_COLOR_NUMERIC;
    for (int i = 0; i < data.getTotalSlidesNum(); ++i)
        for (const Object* object : *data.getSlide(i)) {
            for (const QString& text : {object->getSrc(), object->getAlt(), object->getRegionId(),
                                        object->getBeginTimeEvent(), object->getEndTimeEvent()})
                writable = writable && isWritable(text);
            for (int p = 0; p < object->getParamCount(); ++p)
                for (const QString& text : {object->getParam(p)->getName(), object->getParam(p)->getValue(),
                                            object->getParam(p)->getRefValueType()})
                    writable = writable && isWritable(text);
        }
    for (int i = 0; i < data.getMetaCount(); ++i)
        writable =
            writable && isWritable(data.getMeta(i)->getName()) && isWritable(data.getMeta(i)->getContent());
    for (int i = 0; i < data.getRegionCount(); ++i)
        writable = writable && isWritable(data.getRegion(unsigned(i))->getId());
    return writable;
}

void requireSame(const MMS_COMP_SMILData& first, const MMS_COMP_SMILData& second) {
    require(first.getTotalSlidesNum() == second.getTotalSlidesNum(), "all slides come back");
    for (int i = 0; i < first.getTotalSlidesNum(); ++i) {
        require(first.getMediaObjectCount(i) == second.getMediaObjectCount(i), "all objects come back");
        for (int j = 0; j < first.getMediaObjectCount(i); ++j) {
            const Object& one = *first.getMediaObject(i, j);
            const Object& other = *second.getMediaObject(i, j);
            require(one.getSrc() == other.getSrc() && one.getData() == other.getData(), "content comes back");
            require(one.getMediaElementType() == other.getMediaElementType(), "the kind comes back");
            require(one.getAlt() == other.getAlt(), "the description comes back");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const size_t edits = size ? std::min<size_t>(data[0], size - 1) : 0;
    const size_t begin = size ? 1 + edits : 0;
    Choices choices(data + (size ? 1 : 0), edits);
    const ExactInput input(data + begin, size - begin);
    QArray<char> smil = input.array();

    if (edits % 2) { // a file may have declarations and any encoding
        static InputFile file;
        file.fill(data + begin, size - begin);
        MMS_COMP_SMILData shown(nullptr);
        MMS_COMP_SMILParser().parse(file.path(), nullptr, &shown);
        look(shown);
    }

    MMS_COMP_SMILMultipart other;
    auto body = std::make_unique<MMS_COMP_SMILMultipart>();
    for (const char* name : names)
        addPart(*body, name);
    MMS_COMP_SMILData presentation(body.get());
    MMS_COMP_SMILParser parser;
    const int status = parser.parse(smil, body.get(), &presentation);
    look(presentation);

    const QString text = MMS_COMP_SMILParser::convertToSMILLang(&presentation);
    QArray<char> written = text.toUtf8();
    MMS_COMP_SMILData again(body.get());
    const int reread = parser.parse(written, body.get(), &again);
    look(again);
    if (status == 0 && isWritable(presentation)) {
        require(reread == 0, "what is written can be read");
        requireSame(presentation, again);
    }
    Homeless homeless;
    while (choices.hasMore())
        edit(presentation, *body, other, homeless, choices);
    MMS_COMP_SMILParser::convertToSMILLang(&presentation);
    body.reset(); // the document outlives its container
    for (int i = 0; i < presentation.getTotalSlidesNum(); ++i)
        for (const Object* object : *presentation.getSlide(i))
            if (const Part* part = object->getData())
                touched(part->getBodyData());
    for (const BodypartLink& part : homeless)
        if (part.get() && !part.get()->getOwner())
            delete part.get();
    return 0;
}
